#ifndef TOOLS_LAYOUTS_GENERATE_SYMBOL_SET_H
#define TOOLS_LAYOUTS_GENERATE_SYMBOL_SET_H

#include <string>
#include <vector>

#include "key_set.h"
#include "xkb_keyboard.h"

namespace layouts
{

class Repertoire;
struct Cell;

// The symbol set that goes with a default set: what the computer keyboard types with AltGr, the
// letters of the language that the default set cannot type, each as near as possible to its base
// letter, what is missing of ASCII, and signs. Throws std::runtime_error when the letters are too
// many for the four faces.
KeySet symbolSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
                 const std::vector<Cell>& cells, const KeySet& defaults);

} // namespace layouts

#endif
