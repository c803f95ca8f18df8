// From a syllable to its keys, as libhangul itself puts them together.
#include "hangul_spelling.h"

#include "text.h"

namespace input_methods
{

HangulSpelling::HangulSpelling(HangulInputContext* context, const KeyTable& keys)
    : m_context(context), m_keys(keys)
{
}

std::string HangulSpelling::of(ucschar character)
{
    if (!hangul_is_syllable(character))
        return ofJamo(character);
    ucschar parts[3] = {};
    hangul_syllable_to_jamo(character, &parts[0], &parts[1], &parts[2]);
    std::string letters;
    for (const ucschar jamo : parts)
        letters += jamo == 0 ? "" : ofJamo(hangul_jamo_to_cjamo(jamo));
    return letters;
}

// A jamo that no key has is put together from two, at the end of a syllable.
std::string HangulSpelling::ofJamo(ucschar jamo)
{
    if (m_keys.keyOf(jamo) != 0)
        return utf8(jamo);
    if (m_pairs.empty())
        learnPairs();
    return m_pairs[jamo];
}

void HangulSpelling::learnPairs()
{
    const int initial = m_keys.keyOf(U'ㄱ');
    const int vowel = m_keys.keyOf(U'ㅏ');
    for (ucschar first = kFirstJamo; first <= kLastJamo; ++first)
        for (ucschar second = kFirstJamo; second <= kLastJamo; ++second) {
            const int firstKey = m_keys.keyOf(first);
            const int secondKey = m_keys.keyOf(second);
            if (firstKey == 0 || secondKey == 0)
                continue;
            const std::string pair = utf8(first) + utf8(second);
            learnPair({initial, firstKey, secondKey}, pair);
            learnPair({initial, vowel, firstKey, secondKey}, pair);
        }
}

void HangulSpelling::learnPair(const std::vector<int>& keys, const std::string& pair)
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

} // namespace input_methods
