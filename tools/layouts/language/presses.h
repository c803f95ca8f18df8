#ifndef TOOLS_LAYOUTS_LANGUAGE_PRESSES_H
#define TOOLS_LAYOUTS_LANGUAGE_PRESSES_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace layouts
{

struct KeyMap;

// Counts the presses of a remote control, arrows and OK, that typing takes on one layout, Shift and
// Alt included. The way is the shortest over the whole word.
class PressCounter
{
public:
    explicit PressCounter(const KeyMap& keyMap);

    // From the blank before a word, where the last word's end has left the focus, to the blank
    // after it. -1 when the word cannot be typed.
    int countWord(const std::string& word) const;

private:
    struct Stroke {
        std::string text; // decomposed
        size_t key;
        bool symbol;
        bool shifted;
    };
    using Costs = std::map<size_t, int>; // presses so far, by state

    void findDistances(const KeyMap& keyMap);
    void addStrokes(const KeyMap& keyMap);
    void type(const Stroke& stroke, const Costs& before, Costs& after) const;

    size_t m_keys;
    std::vector<std::vector<int>> m_distances; // between any two states
    std::multimap<char32_t, Stroke> m_strokes; // by the first code point
    size_t m_start = 0;
};

} // namespace layouts

#endif
