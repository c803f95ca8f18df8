#ifndef TOOLS_LAYOUTS_CHECK_CHECKER_H
#define TOOLS_LAYOUTS_CHECK_CHECKER_H

#include <functional>
#include <set>
#include <string>

#include "finding.h"
#include "layout_set.h"
#include "schema_check.h"

namespace layouts
{

class Font;

struct CheckOptions {
    // Layouts that may be there without being in the catalogue, and must be.
    std::set<std::string> known;

    // The font that a layout is drawn with; without one, labels are not measured.
    std::function<const Font*(const std::string& layout)> font;

    int screenWidth = 1920;
    int screenHeight = 1080;
};

class Checker
{
public:
    // Takes the schemas from this folder.
    explicit Checker(const std::string& schemaFolder);

    // Everything that is wrong, in the order of the files' names.
    Findings check(const LayoutSet& set, const CheckOptions& options) const;

private:
    Schema m_catalogue;
    Schema m_key_map;
};

} // namespace layouts

#endif
