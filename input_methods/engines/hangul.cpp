// Korean by libhangul: jamo become syllables. The scheme is libhangul's name of a keyboard.
#include <map>

#include <hangul.h>
#include <unistr.h>

#include "engine.h"
#include "text.h"

using namespace input_methods;

namespace
{

// Unicode's letters for keyboards; those inside a syllable stand elsewhere.
const ucschar kFirstJamo = 0x3131;
const ucschar kLastJamo = 0x318E;

void add(const ucschar* text, std::string& utf8Text)
{
    uint8_t bytes[6];
    for (; *text != 0; ++text)
        utf8Text.append(reinterpret_cast<char*>(bytes),
                        static_cast<size_t>(u8_uctomb(bytes, *text, sizeof bytes)));
}

class Hangul : public Engine
{
public:
    explicit Hangul(HangulInputContext* context) : m_context(context) { learnKeys(); }
    ~Hangul() override { hangul_ic_delete(m_context); }

    bool type(uint32_t character, Answer& answer) override
    {
        const int key = keyOf(character);
        if (key == 0)
            return false;
        hangul_ic_process(m_context, key);
        add(hangul_ic_get_commit_string(m_context), answer.commit);
        return true;
    }

    bool erase(Answer&) override { return hangul_ic_backspace(m_context); }
    void finish(Answer& answer) override { add(hangul_ic_flush(m_context), answer.commit); }
    void reset() override { hangul_ic_reset(m_context); }

    void addPreedit(std::string& text) const override
    {
        add(hangul_ic_get_preedit_string(m_context), text);
    }

    std::vector<std::string> spellings(uint32_t character) override
    {
        if (!hangul_is_syllable(character))
            return {lettersOf(character)};
        ucschar parts[3] = {};
        hangul_syllable_to_jamo(character, &parts[0], &parts[1], &parts[2]);
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
                setKey(*hangul_ic_get_preedit_string(m_context), key);
            hangul_ic_reset(m_context);
        }
    }

    static bool isKey(ucschar jamo) { return jamo >= kFirstJamo && jamo <= kLastJamo; }
    int keyOf(ucschar jamo) const { return isKey(jamo) ? m_keys[jamo - kFirstJamo] : 0; }
    void setKey(ucschar jamo, int key)
    {
        if (isKey(jamo))
            m_keys[jamo - kFirstJamo] = key;
    }

    // A jamo that no key has is put together from two, at the end of a syllable.
    std::string lettersOf(ucschar jamo)
    {
        if (keyOf(jamo) != 0)
            return utf8(jamo);
        if (m_pairs.empty())
            learnPairs();
        return m_pairs[jamo];
    }

    void learnPairs()
    {
        const int initial = keyOf(U'ㄱ');
        const int vowel = keyOf(U'ㅏ');
        for (ucschar first = kFirstJamo; first <= kLastJamo; ++first)
            for (ucschar second = kFirstJamo; second <= kLastJamo; ++second) {
                if (keyOf(first) == 0 || keyOf(second) == 0)
                    continue;
                const std::string pair = utf8(first) + utf8(second);
                learnPair({initial, keyOf(first), keyOf(second)}, pair);
                learnPair({initial, vowel, keyOf(first), keyOf(second)}, pair);
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
            m_pairs.insert({hangul_jamo_to_cjamo(parts[keys.size() == 3 ? 1 : 2]), pair});
        }
        hangul_ic_reset(m_context);
    }

    HangulInputContext* m_context;
    int m_keys[kLastJamo - kFirstJamo + 1] = {}; // of each jamo; 0 where it has none
    std::map<ucschar, std::string> m_pairs;      // that make a jamo
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
