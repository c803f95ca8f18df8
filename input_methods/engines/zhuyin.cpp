// Zhuyin's signs, by chewing's keys for them.
#include "zhuyin.h"

#include "text.h"

namespace input_methods
{

namespace
{

const int kLongest = 39; // syllables that chewing holds before it commits by itself
const uint32_t kFirstSign = 0x3105;
const uint32_t kLastSign = 0x312F;

// Marks of tones, which no syllable begins with; the first tone is the space key. 0 for others.
int keyOfTone(uint32_t character)
{
    const struct {
        uint32_t mark;
        int key;
    } tones[] = {{U' ', ' '}, {U'ˊ', '6'}, {U'ˇ', '3'}, {U'ˋ', '4'}, {U'˙', '7'}};
    for (const auto& tone : tones)
        if (tone.mark == character)
            return tone.key;
    return 0;
}

void empty(ChewingContext* context)
{
    chewing_cand_close(context);
    chewing_clean_preedit_buf(context);
    chewing_clean_bopomofo_buf(context);
}

uint32_t signOf(ChewingContext* context, int key)
{
    chewing_handle_Default(context, key);
    const uint32_t sign = firstLetter(chewing_bopomofo_String_static(context));
    empty(context);
    return sign;
}

} // namespace

Zhuyin::Zhuyin(ChewingContext* context)
    : m_context(context),
      m_keys(kFirstSign, kLastSign, [context](int key) { return signOf(context, key); })
{
    chewing_set_maxChiSymbolLen(context, kLongest);
}

bool Zhuyin::type(uint32_t character)
{
    const int tone = keyOfTone(character);
    const int key = tone == 0 ? m_keys.keyOf(character) : tone;
    if (key == 0 || (tone != 0 && m_sound.empty()))
        return false;
    const size_t before = letters(m_converted);
    m_typed.push_back({key, tone != 0});
    press(key);
    // A syllable that does not exist, which chewing would drop or wait on.
    if (tone != 0 && letters(m_converted) != before + 1)
        erase();
    return true;
}

bool Zhuyin::erase()
{
    if (m_typed.empty())
        return false;
    m_typed.pop_back();
    typeAgain();
    return true;
}

// Of chewing's lists, until see returns false. It gets a word and its index in the list.
template <typename See> void Zhuyin::forEachWord(See see)
{
    chewing_handle_Home(m_context);
    chewing_cand_open(m_context);
    chewing_cand_list_first(m_context);
    bool goesOn = chewing_cand_TotalChoice(m_context) > 0;
    while (goesOn) {
        for (int i = 0; goesOn && i < chewing_cand_TotalChoice(m_context); ++i)
            goesOn = see(chewing_cand_string_by_index_static(m_context, i), i);
        goesOn = goesOn && chewing_cand_list_has_next(m_context) != 0 &&
                 chewing_cand_list_next(m_context) == 0;
    }
    chewing_cand_close(m_context);
    chewing_handle_End(m_context);
}

std::vector<std::string> Zhuyin::wordsAtTheBeginning()
{
    std::vector<std::string> words;
    forEachWord([&](const char* word, int) {
        words.emplace_back(word);
        return true;
    });
    return words;
}

void Zhuyin::choose(const std::string& word)
{
    forEachWord([&](const char* known, int index) {
        if (word != known)
            return true;
        chewing_cand_choose_by_index(m_context, index);
        return false;
    });
}

void Zhuyin::drop(size_t syllables)
{
    auto key = m_typed.begin();
    for (; key != m_typed.end() && syllables > 0; ++key)
        syllables -= key->isTone ? 1 : 0;
    m_typed.erase(m_typed.begin(), key);
    typeAgain();
}

void Zhuyin::clear()
{
    m_typed.clear();
    typeAgain();
}

void Zhuyin::press(int key)
{
    if (key == ' ')
        chewing_handle_Space(m_context);
    else
        chewing_handle_Default(m_context, key);
    m_converted = chewing_buffer_String_static(m_context);
    m_sound = chewing_bopomofo_String_static(m_context);
}

void Zhuyin::typeAgain()
{
    empty(m_context);
    m_converted.clear();
    m_sound.clear();
    for (const Key& typed : m_typed)
        press(typed.key);
}

} // namespace input_methods
