#ifndef TOOLS_LAYOUTS_GENERATE_EXCEPTIONS_H
#define TOOLS_LAYOUTS_GENERATE_EXCEPTIONS_H

#include <cstddef>
#include <string>
#include <vector>

#include "xkb_keyboard.h"

namespace layouts
{

struct Language;

// One line of the table of exceptions: what a key types on one face of a layout, instead of what
// the computer keyboard types there.
struct KeyException {
    std::string layout;
    std::string key;  // its name in the keyboard database
    size_t face;      // in kFaces
    std::string text; // empty for nothing
};

// Throws std::runtime_error with the line that is wrong, also when it names a layout that is not
// among the languages, or no key or face.
std::vector<KeyException> readExceptions(const std::string& file,
                                         const std::vector<Language>& languages);

// Changes the keyboard as the exceptions of this layout say.
void applyExceptions(const std::vector<KeyException>& exceptions, const std::string& layout,
                     XkbKeyboard& keyboard);

} // namespace layouts

#endif
