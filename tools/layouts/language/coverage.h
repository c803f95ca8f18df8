#ifndef TOOLS_LAYOUTS_LANGUAGE_COVERAGE_H
#define TOOLS_LAYOUTS_LANGUAGE_COVERAGE_H

#include <map>
#include <string>
#include <vector>

namespace layouts
{

struct Face;
struct KeyMap;
struct Language;

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

// Where the letters of a layout lie, and what is missing.
struct Coverage {
    struct Group {
        const char* name; // of the face, or that several keys are needed
        std::vector<std::string> texts;
    };
    std::vector<Group> groups; // always all five
    std::vector<std::string> missing;
};
Coverage coverageOf(const KeyMap& keyMap, const Language& language);

} // namespace layouts

#endif
