#ifndef TOOLS_LAYOUTS_LANGUAGE_TYPING_H
#define TOOLS_LAYOUTS_LANGUAGE_TYPING_H

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace layouts
{

// What remains of text, decomposed, when piece has been typed; false when text cannot begin
// with piece. Marks that do not interact may be typed in any order.
bool removeFront(const std::string& text, const std::string& piece, std::string& rest);

// The code points that such a piece can begin with.
std::vector<char32_t> frontOf(const std::string& text);

// Knows what can be typed with a set of keys, each given by its text.
class Speller
{
public:
    explicit Speller(const std::set<std::string>& keys);

    // The fewest keys that, typed one after another, give text or something canonically equal
    // to it: a base letter and its marks for a letter with marks. Empty when there are none.
    std::vector<std::string> spell(const std::string& text) const;

    bool canType(const std::string& text) const { return !spell(text).empty(); }

private:
    std::set<std::string> m_keys;
    std::vector<std::pair<std::string, std::string>> m_decomposed; // each with its key
};

} // namespace layouts

#endif
