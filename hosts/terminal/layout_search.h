#ifndef HOSTS_TERMINAL_LAYOUT_SEARCH_H
#define HOSTS_TERMINAL_LAYOUT_SEARCH_H

#include <string>
#include <vector>

namespace host
{

// The layouts that have keys for the character (UTF-8), in the order of their names, without those
// that are left out: among all that came with this program, else among the files at their fixed
// place.
std::vector<std::string> layoutsWith(const std::string& character,
                                     const std::vector<std::string>& leftOut);

} // namespace host

#endif
