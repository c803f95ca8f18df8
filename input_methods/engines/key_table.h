#ifndef INPUT_METHODS_ENGINES_KEY_TABLE_H
#define INPUT_METHODS_ENGINES_KEY_TABLE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace input_methods
{

// The layouts' keys carry the signs of a language, and an engine wants the Latin letters of its own
// keyboard: which letter stands for which sign.
class KeyTable
{
public:
    // signOf gives the sign that a letter alone stands for, or 0. Of two letters with the same
    // sign, as with Shift and without, the small one counts.
    template <typename SignOf>
    KeyTable(uint32_t firstSign, uint32_t lastSign, SignOf signOf)
        : m_first(firstSign), m_keys(lastSign - firstSign + 1)
    {
        for (int key = '~'; key >= '!'; --key) {
            const uint32_t sign = signOf(key);
            if (sign >= firstSign && sign <= lastSign)
                m_keys[sign - firstSign] = key;
        }
    }

    // 0 for a sign without a key.
    int keyOf(uint32_t sign) const
    {
        const size_t at = sign - m_first; // a huge one for a sign before the first
        return at < m_keys.size() ? m_keys[at] : 0;
    }

private:
    uint32_t m_first;
    std::vector<int> m_keys;
};

} // namespace input_methods

#endif
