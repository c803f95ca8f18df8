// Japanese by anthy: kana become words. The scheme is "romaji" for Latin letters, "kana" for keys
// that carry kana.
#include <anthy/anthy.h>

#include "kana.h"
#include "listing_engine.h"
#include "text.h"
#include "whole_data.h"

using namespace input_methods;

namespace
{

const size_t kWhole = static_cast<size_t>(-1);
const int kNoWord = -1;         // the number of kana, which are no word of anthy's
const int kWordsBeforeKana = 5; // candidates, so that both kana are on the first page

bool startLibrary(const EngineSettings& settings)
{
    static bool isStarted = false;
    if (isStarted)
        return true;
    const std::string data = settings.engineData + "/anthy";
    anthy_conf_override("HOME", settings.userFolder().c_str());
    anthy_conf_override("ANTHYDIR", (data + "/").c_str());
    anthy_conf_override("DIC_FILE", (data + "/anthy.dic").c_str());
    isStarted = isWholeAnthy(data + "/anthy.dic") && anthy_init() == 0;
    return isStarted;
}

class Anthy : public ListingEngine
{
public:
    Anthy(anthy_context_t context, bool isRomaji, bool learns)
        : m_context(context), m_is_romaji(isRomaji), m_learns(learns)
    {
    }

    ~Anthy() override { anthy_release_context(m_context); }

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
        anthy_conv_stat conversion = {};
        if (!reading.empty() && anthy_set_string(m_context, reading.c_str()) == 0)
            anthy_get_stat(m_context, &conversion);
        std::string best;
        for (int segment = 0; segment < conversion.nr_segment; ++segment)
            best += word(segment, 0);
        offerNew({best + m_reading.rest(), kWhole, 0});
        anthy_segment_stat first = {};
        if (conversion.nr_segment > 0)
            anthy_get_segment_stat(m_context, 0, &first);
        for (int number = 0; number < first.nr_candidate; ++number) {
            if (number == kWordsBeforeKana)
                offerKana(reading);
            offerNew({word(0, number), static_cast<size_t>(first.seg_len), number});
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
            learn(candidate.number);
        if (candidate.length == kWhole)
            m_reading.clear();
        else
            m_reading.drop(candidate.length);
    }

    // anthy learns when all segments are committed.
    void learn(int number)
    {
        anthy_conv_stat conversion = {};
        anthy_get_stat(m_context, &conversion);
        for (int segment = 0; segment < conversion.nr_segment; ++segment)
            anthy_commit_segment(m_context, segment, segment == 0 ? number : 0);
    }

    std::string word(int segment, int number)
    {
        const int length = anthy_get_segment(m_context, segment, number, nullptr, 0);
        if (length <= 0)
            return "";
        std::string text(static_cast<size_t>(length) + 1, '\0');
        anthy_get_segment(m_context, segment, number, &text[0], length + 1);
        text.resize(static_cast<size_t>(length));
        return text;
    }

    anthy_context_t m_context;
    bool m_is_romaji;
    bool m_learns;
    Kana m_reading;
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    anthy_context_t context = startLibrary(settings) ? anthy_create_context() : nullptr;
    if (context == nullptr) {
        problem = "anthy does not start; expected its whole dictionary " + settings.engineData +
                  "/anthy/anthy.dic";
        return nullptr;
    }
    anthy_context_set_encoding(context, ANTHY_UTF8_ENCODING);
    anthy_set_reconversion_mode(context, ANTHY_RECONVERT_DISABLE);
    return new Anthy(context, settings.scheme == "romaji", settings.learns());
}
