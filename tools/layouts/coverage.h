#ifndef LAYOUTS_COVERAGE_H
#define LAYOUTS_COVERAGE_H

#include <map>
#include <string>
#include <vector>

#include "key_map.h"
#include "language.h"

namespace layouts
{

// Where an ordinary key delivers a text.
struct Place {
    const Face* face;
    size_t key;
};

// By the text delivered; of several keys the first on the first face.
std::map<std::string, Place> placesOf(const KeyMap& keyMap);

// How a text is typed: one key after another. Empty when it cannot be typed.
struct Spelling {
    std::string text;
    std::vector<Place> keys;
};

// All that a language needs: the letters of its alphabet in both cases and printable ASCII.
std::vector<std::string> neededTexts(const Language& language);

std::vector<Spelling> spellAll(const KeyMap& keyMap, const std::vector<std::string>& texts);

} // namespace layouts

#endif
