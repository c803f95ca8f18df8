#ifndef TOOLS_LAYOUTS_GENERATE_DEFAULT_SET_H
#define TOOLS_LAYOUTS_GENERATE_DEFAULT_SET_H

#include <vector>

#include "key_set.h"
#include "xkb_keyboard.h"

namespace layouts
{

class Repertoire;
struct Neighbours;

// The set that a keyboard shows first: the computer keyboard, with 0 to 9 where the language is
// written with them. Where too much of its text would need Alt, the most frequent characters take
// the places of signs and letters that the language does not use.
KeySet defaultSet(const XkbKeyboard& keyboard, const Repertoire& repertoire,
                  const std::vector<Neighbours>& around);

} // namespace layouts

#endif
