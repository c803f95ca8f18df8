#ifndef INPUT_METHODS_ENGINES_HANGUL_SPELLING_H
#define INPUT_METHODS_ENGINES_HANGUL_SPELLING_H

#include <map>
#include <string>
#include <vector>

#include <hangul.h>

#include "key_table.h"

namespace input_methods
{

// Unicode's jamo for keyboards; those inside a syllable stand elsewhere.
const ucschar kFirstJamo = 0x3131;
const ucschar kLastJamo = 0x318E;

// Which jamo, one a key, compose a syllable or a jamo.
class HangulSpelling
{
public:
    // Both belong to the caller and stay as long as this; what the context composes is dropped.
    HangulSpelling(HangulInputContext* context, const KeyTable& keys);

    // Empty for what is no Korean letter.
    std::string of(ucschar character);

private:
    std::string ofJamo(ucschar jamo);
    void learnPairs();
    void learnPair(const std::vector<int>& keys, const std::string& pair);

    HangulInputContext* m_context;
    const KeyTable& m_keys;
    std::map<ucschar, std::string> m_pairs; // that make a jamo; once one was asked for
};

} // namespace input_methods

#endif
