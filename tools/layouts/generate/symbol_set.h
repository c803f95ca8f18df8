#ifndef TOOLS_LAYOUTS_GENERATE_SYMBOL_SET_H
#define TOOLS_LAYOUTS_GENERATE_SYMBOL_SET_H

#include "key_set.h"

namespace layouts
{

struct Catalogue;
struct Language;

// The symbol set that goes with a default set: a US keyboard, without its letters where the
// default set has them, and the letters of the language that the default set cannot type, each as
// near as possible to its base letter. Throws std::runtime_error when they are too many.
KeySet symbolSet(const Language& language, const Catalogue& catalogue, const KeySet& defaults);

} // namespace layouts

#endif
