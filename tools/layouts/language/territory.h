#ifndef TOOLS_LAYOUTS_LANGUAGE_TERRITORY_H
#define TOOLS_LAYOUTS_LANGUAGE_TERRITORY_H

#include <string>
#include <vector>

#include "language.h"

namespace layouts
{

// What is spoken in a country, the most spoken first: languages that are official there, or that
// one person in a hundred speaks.
struct Territory {
    std::vector<const Language*> languages; // those of the list
    std::vector<std::string> others;        // the English names of those that the list lacks
};

// The country's code has two letters (ISO 3166), in any case. Throws std::runtime_error for a code
// that CLDR does not know.
Territory territoryOf(const std::vector<Language>& languages, const std::string& country);

// The layout for a locale, as zh_TW: of its language in its script, best in the country's own form;
// nullptr when there is none.
const Language* layoutForLocale(const std::vector<Language>& languages, const std::string& locale);

} // namespace layouts

#endif
