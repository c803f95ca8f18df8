#ifndef TOOLS_LAYOUTS_LANGUAGE_LOOKUP_H
#define TOOLS_LAYOUTS_LANGUAGE_LOOKUP_H

#include <string>
#include <vector>

#include "language.h"

namespace layouts
{

// The language that somebody means by its layout's name, its code, or its English or own name.
// Case, accents, blanks and hyphens do not count. Of several, the first in the list whose name is
// the most exact one. A code may have a country that no layout has: de_AT is German. Throws
// std::runtime_error that suggests the nearest names when there is none.
const Language& meantLanguage(const std::vector<Language>& languages, const std::string& text);

} // namespace layouts

#endif
