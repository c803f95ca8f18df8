#ifndef TOOLS_LAYOUTS_CHECK_RULES_H
#define TOOLS_LAYOUTS_CHECK_RULES_H

#include <set>
#include <string>

#include <json/forwards.h>

#include "finding.h"

namespace layouts
{

class Font;
struct Catalogue;
struct Face;
struct KeyMap;

// What a schema cannot say. Each adds its findings about one file, which its schema allows.

// Returns the names that can be looked for.
std::set<std::string> checkNames(const Catalogue& catalogue, Findings& findings);
void checkGrid(const Catalogue& catalogue, int screenWidth, int screenHeight, Findings& findings);

// ids are those that the file gives, which a key map in memory no longer has.
void checkIds(const std::string& file, const Json::Value& keyMap, Findings& findings);
void checkCounts(const std::string& file, const KeyMap& keyMap, size_t places, Findings& findings);
void checkNavigation(const std::string& file, const KeyMap& keyMap, Findings& findings);
void checkTexts(const std::string& file, const KeyMap& keyMap, Findings& findings);
void checkSpecialKeys(const std::string& file, const KeyMap& keyMap, Findings& findings);
void checkLabels(const std::string& file, const KeyMap& keyMap, const Catalogue& catalogue,
                 const Font& font, Findings& findings);

// The JSON's names.
std::string setPath(bool symbol);
std::string keyPath(const Face& face, size_t key);
std::string textPath(const Face& face, size_t key);

} // namespace layouts

#endif
