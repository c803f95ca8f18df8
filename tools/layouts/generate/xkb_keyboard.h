#ifndef TOOLS_LAYOUTS_GENERATE_XKB_KEYBOARD_H
#define TOOLS_LAYOUTS_GENERATE_XKB_KEYBOARD_H

#include <map>
#include <string>

#include "key_texts.h"

namespace layouts
{

// What one key of a computer keyboard types, alone and together with AltGr.
struct XkbKey {
    KeyTexts base;
    KeyTexts altGr;
};

// By the keys' names in the keyboard database.
using XkbKeyboard = std::map<std::string, XkbKey>;

extern const char kSpaceBar[]; // the name of that key

// The printing keys and the space bar. Dead keys give their accent as a character of its own where
// ASCII has it and otherwise nothing: there is no composing here. ownFolder has keyboards that the
// database lacks, and may be empty. Throws std::runtime_error for a keyboard that neither has.
XkbKeyboard readXkbKeyboard(const std::string& layout, const std::string& variant,
                            const std::string& ownFolder);

} // namespace layouts

#endif
