// Chinese in Zhuyin, by chewing. The scheme is chewing's name of a keyboard.
#include <chewing.h>

#include "listing_engine.h"
#include "text.h"
#include "whole_data.h"
#include "zhuyin.h"

using namespace input_methods;

namespace
{

const int kWhole = -1; // the number of the whole conversion

void ignoreLog(void*, int, const char*, ...) {} // NOLINT(cert-dcl50-cpp): the type chewing calls

class Chewing : public ListingEngine
{
public:
    Chewing(ChewingContext* context, bool learns) : m_typed(context), m_learns(learns) {}

    bool type(uint32_t character, Answer&) override
    {
        forgetList();
        return m_typed.type(character);
    }

    bool erase(Answer&) override
    {
        forgetList();
        return m_typed.erase();
    }

    void reset() override
    {
        forgetList();
        m_typed.clear();
    }

    void addPreedit(std::string& text) const override
    {
        text += m_typed.converted() + m_typed.sound();
    }

    void finish(Answer& answer) override
    {
        answer.commit += preedit();
        if (!m_typed.converted().empty())
            learn();
        reset();
    }

private:
    // The whole conversion, and words at its beginning.
    void list() override
    {
        const std::string& whole = m_typed.converted();
        if (whole.empty() || !m_typed.sound().empty())
            return;
        offer({whole, letters(whole), kWhole});
        for (const std::string& word : m_typed.wordsAtTheBeginning())
            if (word != whole)
                offer({word, letters(word), 0});
    }

    void use(const Candidate& candidate) override
    {
        if (candidate.number != kWhole)
            m_typed.choose(candidate.text);
        learn();
        m_typed.drop(candidate.length);
    }

    void learn()
    {
        if (m_learns)
            m_typed.learn();
    }

    Zhuyin m_typed;
    bool m_learns;
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    const std::string data = settings.engineData + "/libchewing";
    const std::string learned = settings.learningFolder + "/words.sqlite3";
    const bool isWhole = isWholeChewing(data + "/index_tree.dat", data + "/dictionary.dat");
    const auto open = [&](const std::string& words) {
        return isWhole ? chewing_new2(data.c_str(), words.c_str(), ignoreLog, nullptr) : nullptr;
    };
    ChewingContext* context = settings.learns() ? open(learned) : nullptr;
    const bool learns = context != nullptr;
    if (!learns)
        context = open(":memory:");
    if (context == nullptr) {
        problem = "chewing does not start; expected its whole dictionary in " + data;
        return nullptr;
    }
    if (settings.learns() && !learns)
        problem = "chewing cannot read " + learned + "; nothing is learned";
    chewing_set_KBType(context, chewing_KBStr2Num(settings.scheme.c_str()));
    return new Chewing(context, learns);
}
