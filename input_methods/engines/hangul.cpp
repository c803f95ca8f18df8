// Korean by libhangul: jamo become syllables. The scheme is libhangul's name of a keyboard.
#include <map>

#include <hangul.h>
#include <unistr.h>

#include "engine.h"
#include "text.h"

using namespace input_methods;

namespace
{

std::string fromUcs4(const ucschar* text)
{
    std::string utf8Text;
    for (; text != nullptr && *text != 0; ++text)
        utf8Text += utf8(*text);
    return utf8Text;
}

ucschar toUcs4(const std::string& character)
{
    ucs4_t code = 0;
    u8_mbtouc(&code, reinterpret_cast<const uint8_t*>(character.data()), character.size());
    return code;
}

class Hangul : public Engine
{
public:
    explicit Hangul(HangulInputContext* context) : m_context(context) { learnKeys(); }
    ~Hangul() override { hangul_ic_delete(m_context); }

    bool type(const std::string& character, Answer& answer) override
    {
        const auto key = m_keys.find(character);
        if (key == m_keys.end())
            return false;
        hangul_ic_process(m_context, key->second);
        answer.commit += fromUcs4(hangul_ic_get_commit_string(m_context));
        return true;
    }

    bool erase(Answer&) override { return hangul_ic_backspace(m_context); }
    void take(size_t, Answer&) override {}
    void finish(Answer& answer) override { answer.commit += fromUcs4(hangul_ic_flush(m_context)); }
    void reset() override { hangul_ic_reset(m_context); }

    std::string preedit() const override
    {
        return fromUcs4(hangul_ic_get_preedit_string(m_context));
    }

    std::vector<std::string> candidates(size_t, size_t) override { return {}; }

    std::vector<std::string> spellings(const std::string& character) override
    {
        const ucschar code = toUcs4(character);
        if (!hangul_is_syllable(code))
            return {lettersOf(code)};
        ucschar parts[3] = {};
        hangul_syllable_to_jamo(code, &parts[0], &parts[1], &parts[2]);
        std::string letters;
        for (const ucschar jamo : parts)
            letters += jamo == 0 ? "" : lettersOf(hangul_jamo_to_cjamo(jamo));
        return {letters};
    }

private:
    // The layout's keys carry jamo, libhangul wants the Latin letters of its own keyboard. Each
    // letter alone tells which jamo it stands for; of two with the same jamo, as with Shift, the
    // small one does.
    void learnKeys()
    {
        for (int key = '~'; key >= '!'; --key) {
            if (hangul_ic_process(m_context, key))
                m_keys[fromUcs4(hangul_ic_get_preedit_string(m_context))] = key;
            hangul_ic_reset(m_context);
        }
        m_keys.erase("");
    }

    // A jamo that no key has is put together from two, at the end of a syllable.
    std::string lettersOf(ucschar jamo)
    {
        std::string alone = utf8(jamo);
        if (m_keys.count(alone) != 0)
            return alone;
        if (m_pairs.empty())
            learnPairs();
        return m_pairs[alone];
    }

    void learnPairs()
    {
        const int initial = m_keys["ㄱ"];
        const int vowel = m_keys["ㅏ"];
        for (const auto& first : m_keys)
            for (const auto& second : m_keys) {
                learnPair({initial, first.second, second.second}, first.first + second.first);
                learnPair({initial, vowel, first.second, second.second},
                          first.first + second.first);
            }
    }

    void learnPair(const std::vector<int>& keys, const std::string& pair)
    {
        hangul_ic_reset(m_context);
        bool isOne = true;
        for (const int key : keys) {
            hangul_ic_process(m_context, key);
            isOne = isOne && *hangul_ic_get_commit_string(m_context) == 0;
        }
        const ucschar* text = hangul_ic_get_preedit_string(m_context);
        if (isOne && hangul_is_syllable(text[0]) && text[1] == 0) {
            ucschar parts[3] = {};
            hangul_syllable_to_jamo(text[0], &parts[0], &parts[1], &parts[2]);
            m_pairs.insert({utf8(hangul_jamo_to_cjamo(parts[keys.size() == 3 ? 1 : 2])), pair});
        }
        hangul_ic_reset(m_context);
    }

    HangulInputContext* m_context;
    std::map<std::string, int> m_keys;          // of each jamo
    std::map<std::string, std::string> m_pairs; // that make a jamo
};

} // namespace

Engine* VKB_MAKE_ENGINE(const EngineSettings& settings, std::string& problem)
{
    // hangul_ic_new takes any name, and another keyboard for an unknown one.
    if (hangul_keyboard_list_get_keyboard(settings.scheme.c_str()) == nullptr) {
        problem = "libhangul has no keyboard '" + settings.scheme + "'";
        return nullptr;
    }
    return new Hangul(hangul_ic_new(settings.scheme.c_str()));
}
