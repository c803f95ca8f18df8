#ifndef TOOLS_LAYOUTS_GENERATE_KEY_TEXTS_H
#define TOOLS_LAYOUTS_GENERATE_KEY_TEXTS_H

#include <string>

namespace layouts
{

// What one key types, plain and with Shift; empty for nothing.
struct KeyTexts {
    std::string plain;
    std::string shifted;
};

} // namespace layouts

#endif
