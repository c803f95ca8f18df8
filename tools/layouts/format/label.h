#ifndef TOOLS_LAYOUTS_FORMAT_LABEL_H
#define TOOLS_LAYOUTS_FORMAT_LABEL_H

#include <string>

namespace layouts
{

// What the key that types a text shows: the text, but a name for a character without a picture, and
// a dotted circle with a mark where that brings it into the middle of the key.
std::string labelFor(const std::string& typed);

// A word as a renderer must get it that draws one character after another from the left and joins
// none.
std::string inVisualOrder(const std::string& text);

} // namespace layouts

#endif
