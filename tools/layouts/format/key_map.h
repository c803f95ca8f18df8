#ifndef TOOLS_LAYOUTS_FORMAT_KEY_MAP_H
#define TOOLS_LAYOUTS_FORMAT_KEY_MAP_H

#include <cstdint>
#include <string>
#include <vector>

#include <json/forwards.h>

#include "catalogue.h"

namespace layouts
{

// What one key shows and delivers on one face.
struct Legend {
    std::string text;
    int32_t character;
};

// What the host puts into the text field: the character, or the text where there is none.
std::string delivered(const Legend& legend);

// Whether the keyboard knows one of its own keys by this word: Shift, Alt, Hide or ClearAll.
bool worksKeyboard(const std::string& text);

struct Key {
    Legend plain;
    Legend shifted;
    bool isSpecial;
    bool isLanguage;
    int32_t keyCode;
    Neighbours neighbours;
};

// One layout: two key sets, each with a plain and a shifted face.
struct KeyMap {
    std::vector<Key> defaults;
    std::vector<Key> symbols;
};

struct Face {
    const char* name; // as messages call it
    bool symbol;
    bool shifted;
};

// In the order in which people meet them.
extern const Face kFaces[4];

const std::vector<Key>& keysOf(const KeyMap& keyMap, const Face& face);
const Legend& legendOf(const Key& key, const Face& face);

// Reads a file that has been checked; throws std::runtime_error for one that is no key map.
KeyMap readKeyMap(const std::string& file);
KeyMap keyMapOf(const Json::Value& root); // of a file that its schema allows

// One key a line. Flags that are false are left out.
std::string writeKeyMap(const KeyMap& keyMap);

} // namespace layouts

#endif
