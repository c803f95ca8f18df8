#ifndef LAYOUTS_TYPING_H
#define LAYOUTS_TYPING_H

#include <set>
#include <string>
#include <vector>

namespace layouts
{

// The keys' texts that, typed one after another, give text or something canonically equal to
// it (a base letter and its mark for a letter with a mark). Empty when the keys cannot give it.
std::vector<std::string> spell(const std::string& text, const std::set<std::string>& keys);

inline bool canType(const std::string& text, const std::set<std::string>& keys)
{
    return !spell(text, keys).empty();
}

} // namespace layouts

#endif
