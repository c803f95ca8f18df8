#ifndef TOOLS_LAYOUTS_LANGUAGE_USAGE_H
#define TOOLS_LAYOUTS_LANGUAGE_USAGE_H

#include <cstddef>
#include <string>
#include <vector>

namespace layouts
{

struct KeyMap;
struct Language;

// How a layout does for running text: the words that the locale data has in its language. All zero
// for a language without words there.
struct Usage {
    size_t words = 0;
    std::vector<std::string> untypable; // words
    double presses = 0;                 // a character, blanks included; words in lower case
    double behindAlt = 0;               // of 1, how many of their characters need Alt
};

Usage usageOf(const KeyMap& keyMap, const Language& language);

} // namespace layouts

#endif
