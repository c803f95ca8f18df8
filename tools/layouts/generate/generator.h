#ifndef TOOLS_LAYOUTS_GENERATE_GENERATOR_H
#define TOOLS_LAYOUTS_GENERATE_GENERATOR_H

#include <vector>

#include "key_map.h"

namespace layouts
{

struct KeyException;
struct Language;

// Makes the key map of a language from its computer keyboard, with the layout's exceptions, and its
// alphabet. The default set is that keyboard; the symbol set holds the letters and the ASCII
// characters that it lacks. The same input gives the same key map. Throws std::runtime_error, which
// begins with the language's line in the table, when the keyboard is not in the database, the grid
// is not the one of the shipped catalogue, or the letters are unknown or too many for four faces.
KeyMap generate(const Language& language, const Catalogue& catalogue,
                const std::vector<KeyException>& exceptions);

} // namespace layouts

#endif
