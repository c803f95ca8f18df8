#ifndef TOOLS_LAYOUTS_GENERATE_GENERATOR_H
#define TOOLS_LAYOUTS_GENERATE_GENERATOR_H

#include "key_map.h"

namespace layouts
{

struct Language;

// Makes the key map of a language from its computer keyboard and its alphabet. The default set
// is that keyboard; the symbol set holds the letters and the ASCII characters that it lacks.
// The same input gives the same key map. Throws std::runtime_error when the grid is not the
// one of the shipped catalogue or the letters are too many for the four faces.
KeyMap generate(const Language& language, const Catalogue& catalogue);

} // namespace layouts

#endif
