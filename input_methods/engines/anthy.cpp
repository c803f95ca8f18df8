// Japanese by anthy: kana become words. The scheme is "romaji" for Latin letters, "kana" for keys
// that carry kana.
#include "anthy_words.h"
#include "kana.h"
#include "listing_engine.h"
#include "text.h"

using namespace input_methods;

namespace
{

const size_t kWhole = static_cast<size_t>(-1);
const int kNoWord = -1;         // the number of kana, which are no word of anthy's
const int kWordsBeforeKana = 5; // candidates, so that both kana are on the first page

class Anthy : public ListingEngine
{
public:
    Anthy(anthy_context_t context, bool isRomaji, bool learns)
        : m_words(context), m_is_romaji(isRomaji), m_learns(learns)
    {
    }

    bool type(uint32_t character, Answer&) override
    {
        const std::string key = utf8(character);
        if (!(m_is_romaji ? m_reading.typeRomaji(key) : m_reading.typeKana(key)))
            return false;
        forgetList();
        return true;
    }

    bool erase(Answer&) override
    {
        forgetList();
        return m_reading.erase();
    }

    void reset() override
    {
        m_reading.clear();
        forgetList();
    }

    void addPreedit(std::string& text) const override { text += m_reading.shown(); }

private:
    // The whole reading in anthy's best words, words for its beginning, and both kana.
    void list() override
    {
        const std::string reading = m_reading.kana();
        m_words.convert(reading);
        offerNew({m_words.best() + m_reading.rest(), kWhole, 0});
        for (int number = 0; number < m_words.count(); ++number) {
            if (number == kWordsBeforeKana)
                offerKana(reading);
            offerNew({m_words.first(number), m_words.firstLength(), number});
        }
        offerKana(reading);
    }

    void offerNew(const Candidate& candidate)
    {
        if (!candidate.text.empty() && !isOffered(candidate.text))
            offer(candidate);
    }

    void offerKana(const std::string& reading)
    {
        offerNew({reading + m_reading.rest(), kWhole, kNoWord});
        offerNew({katakana(reading) + m_reading.rest(), kWhole, kNoWord});
    }

    void use(const Candidate& candidate) override
    {
        if (m_learns && candidate.number != kNoWord)
            m_words.learn(candidate.number);
        if (candidate.length == kWhole)
            m_reading.clear();
        else
            m_reading.drop(candidate.length);
    }

    AnthyWords m_words;
    bool m_is_romaji;
    bool m_learns;
    Kana m_reading;
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    const std::string data = settings.engineData + "/anthy";
    const bool isStarted = startAnthy(data, settings.userFolder());
    anthy_context_t context = isStarted ? anthy_create_context() : nullptr;
    if (context == nullptr) {
        problem = "anthy does not start; expected its whole dictionary " + data + "/anthy.dic";
        return nullptr;
    }
    anthy_context_set_encoding(context, ANTHY_UTF8_ENCODING);
    anthy_set_reconversion_mode(context, ANTHY_RECONVERT_DISABLE);
    return new Anthy(context, settings.scheme == "romaji", settings.learns());
}
