#ifndef TOOLS_LAYOUTS_GENERATE_KEY_SET_H
#define TOOLS_LAYOUTS_GENERATE_KEY_SET_H

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "key_texts.h"

namespace layouts
{

// One key set while it is being made. The keys that are the same in every layout are there from
// the start; an empty text is still free. No face may have a text twice: ask before setting.
class KeySet
{
public:
    KeySet();

    // Whether the language may decide what stands at the position.
    static bool isFree(size_t i);

    size_t size() const { return m_keys.size(); }
    const KeyTexts& at(size_t i) const { return m_keys[i]; }
    bool isEmpty(size_t i) const;
    bool hasPlain(const std::string& text) const { return m_plain.count(text) != 0; }
    bool hasShifted(const std::string& text) const { return m_shifted.count(text) != 0; }
    bool has(const std::string& text) const { return hasPlain(text) || hasShifted(text); }
    std::set<std::string> texts() const;

    void setPlain(size_t i, const std::string& text);
    void setShifted(size_t i, const std::string& text);
    void set(size_t i, const KeyTexts& texts);

    // Give the keys that are still free useful characters: those of web addresses first, with
    // the language's punctuation on the shifted face, or, for the symbol set, signs that the set
    // does not have on any face.
    void fillForTheWeb(const std::vector<std::string>& punctuation);
    void fillWithSigns();

private:
    std::vector<KeyTexts> m_keys;
    std::set<std::string> m_plain; // the texts of each face
    std::set<std::string> m_shifted;
};

// The free positions, the easiest to reach first: those on both sides of the space bar.
std::vector<size_t> fillOrder();

} // namespace layouts

#endif
