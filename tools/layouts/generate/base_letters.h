#ifndef TOOLS_LAYOUTS_GENERATE_BASE_LETTERS_H
#define TOOLS_LAYOUTS_GENERATE_BASE_LETTERS_H

#include <string>

namespace layouts
{

// The letter that people look for when they want this one: e for é, l for ł. A letter that is not
// like another is its own base.
std::string baseLetter(const std::string& letter);

} // namespace layouts

#endif
