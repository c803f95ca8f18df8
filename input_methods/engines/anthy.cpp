// Japanese by anthy: kana become words. The scheme is "romaji" for Latin letters, "kana" for keys
// that carry kana.
#include <algorithm>

#include <anthy/anthy.h>

#include "engine.h"
#include "kana.h"
#include "text.h"
#include "whole_data.h"

using namespace input_methods;

namespace
{

const char kNoFolder[] = "/nonexistent";
const size_t kWhole = static_cast<size_t>(-1);
const int kWordsBeforeKana = 5; // candidates, so that both kana are on the first page

bool startLibrary(const EngineSettings& settings)
{
    static bool isStarted = false;
    if (isStarted)
        return true;
    const std::string data = settings.engineData + "/anthy";
    const std::string home = settings.learningFolder.empty() ? kNoFolder : settings.learningFolder;
    anthy_conf_override("HOME", home.c_str());
    anthy_conf_override("ANTHYDIR", (data + "/").c_str());
    anthy_conf_override("DIC_FILE", (data + "/anthy.dic").c_str());
    isStarted = isWholeAnthy(data + "/anthy.dic") && anthy_init() == 0;
    return isStarted;
}

class Anthy : public Engine
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
        m_candidates.clear();
        return true;
    }

    bool erase(Answer&) override
    {
        m_candidates.clear();
        return m_reading.erase();
    }

    void take(size_t index, Answer& answer) override
    {
        if (index >= all().size())
            return;
        const Candidate candidate = m_candidates[index];
        if (m_learns)
            learn(candidate);
        answer.commit += candidate.text;
        if (candidate.kana == kWhole)
            m_reading.clear();
        else
            m_reading.drop(candidate.kana);
        m_candidates.clear();
    }

    void reset() override
    {
        m_reading.clear();
        m_candidates.clear();
    }

    void addPreedit(std::string& text) const override { text += m_reading.shown(); }

    void addCandidates(size_t from, size_t count, std::vector<std::string>& found) override
    {
        for (size_t i = from; i < all().size() && i < from + count; ++i)
            found.push_back(m_candidates[i].text);
    }

private:
    struct Candidate {
        std::string text;
        size_t kana; // so many of the reading, from its beginning; or kWhole
        int number;  // anthy's, of the first segment; -1 for those that are not its
    };

    // The whole reading in anthy's best words, words for its beginning, and both kana.
    const std::vector<Candidate>& all()
    {
        if (!m_candidates.empty() || preedit().empty())
            return m_candidates;
        const std::string reading = m_reading.kana();
        anthy_conv_stat conversion = {};
        if (!reading.empty() && anthy_set_string(m_context, reading.c_str()) == 0)
            anthy_get_stat(m_context, &conversion);
        std::string best;
        for (int segment = 0; segment < conversion.nr_segment; ++segment)
            best += word(segment, 0);
        add({best + m_reading.rest(), kWhole, 0});
        anthy_segment_stat first = {};
        if (conversion.nr_segment > 0)
            anthy_get_segment_stat(m_context, 0, &first);
        for (int number = 0; number < first.nr_candidate; ++number) {
            if (number == kWordsBeforeKana)
                addKana(reading);
            add({word(0, number), static_cast<size_t>(first.seg_len), number});
        }
        addKana(reading);
        return m_candidates;
    }

    void addKana(const std::string& reading)
    {
        add({reading + m_reading.rest(), kWhole, -1});
        add({katakana(reading) + m_reading.rest(), kWhole, -1});
    }

    void add(const Candidate& candidate)
    {
        const bool isKnown =
            std::any_of(m_candidates.begin(), m_candidates.end(),
                        [&](const Candidate& known) { return known.text == candidate.text; });
        if (!isKnown && !candidate.text.empty())
            m_candidates.push_back(candidate);
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

    // anthy learns when all segments are committed.
    void learn(const Candidate& candidate)
    {
        anthy_conv_stat conversion = {};
        anthy_get_stat(m_context, &conversion);
        for (int segment = 0; segment < conversion.nr_segment && candidate.number >= 0; ++segment)
            anthy_commit_segment(m_context, segment, segment == 0 ? candidate.number : 0);
    }

    anthy_context_t m_context;
    bool m_is_romaji;
    bool m_learns;
    Kana m_reading;
    std::vector<Candidate> m_candidates;
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
    return new Anthy(context, settings.scheme == "romaji", !settings.learningFolder.empty());
}
