#ifndef TOOLS_LAYOUTS_GENERATE_XKB_KEYBOARD_H
#define TOOLS_LAYOUTS_GENERATE_XKB_KEYBOARD_H

#include <map>
#include <string>

#include "key_texts.h"

namespace layouts
{

// What the printing keys of a computer keyboard type, by the keys' names in the keyboard
// database. Dead keys give their accent as a character of its own where ASCII has it and
// otherwise nothing: there is no composing here. ownFolder has keyboards that the database lacks,
// and may be empty. Throws std::runtime_error for a keyboard that
// the database does not have.
std::map<std::string, KeyTexts> readXkbKeyboard(const std::string& layout,
                                                const std::string& variant,
                                                const std::string& ownFolder);

} // namespace layouts

#endif
