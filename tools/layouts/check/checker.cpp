// Runs all rules over a layout set.
#include "checker.h"

#include <optional>

#include <json/value.h>

#include "catalogue.h"
#include "key_map.h"
#include "rules.h"

namespace layouts
{
namespace
{

// The catalogue as far as it makes sense.
std::optional<Catalogue> checkCatalogue(const LayoutSet& set, const Schema& schema,
                                        const CheckOptions& options, std::set<std::string>& names,
                                        Findings& findings)
{
    const auto file = set.find(kCatalogueName);
    if (file == set.end()) {
        findings.push_back({kCatalogueName, "the whole file", "no such file",
                            "the catalogue of the layouts", "file"});
        return std::nullopt;
    }
    Json::Value value;
    if (!parseStrictly(file->first, file->second, value, findings) ||
        !schema.check(file->first, value, findings))
        return std::nullopt;
    const Catalogue catalogue = catalogueOf(value);
    names = checkNames(catalogue, findings);
    checkGrid(catalogue, options.screenWidth, options.screenHeight, findings);
    return catalogue;
}

void checkKeyMap(const std::string& file, const std::string& text, const Schema& schema,
                 const std::optional<Catalogue>& catalogue, const CheckOptions& options,
                 Findings& findings)
{
    Json::Value value;
    if (!parseStrictly(file, text, value, findings) || !schema.check(file, value, findings))
        return;
    const KeyMap keyMap = keyMapOf(value);
    checkIds(file, value, findings);
    checkNavigation(file, keyMap, findings);
    checkTexts(file, keyMap, findings);
    checkSpecialKeys(file, keyMap, findings);
    if (!catalogue)
        return;
    checkCounts(file, keyMap, catalogue->cells.size(), findings);
    const Font* font = options.font ? options.font(layoutOf(file)) : nullptr;
    if (font != nullptr)
        checkLabels(file, keyMap, *catalogue, *font, findings);
}

void checkListed(const LayoutSet& set, const std::set<std::string>& names, const std::string& by,
                 Findings& findings)
{
    for (const std::string& name : names)
        if (!set.count(keyMapName(name)))
            findings.push_back({keyMapName(name), "the whole file", "no such file",
                                "a key map, as the " + by + " names it", "file"});
}

} // namespace

Checker::Checker(const std::string& schemaFolder)
    : m_catalogue(schemaFolder + "/catalogue.schema.json"),
      m_key_map(schemaFolder + "/keymap.schema.json")
{
}

Findings Checker::check(const LayoutSet& set, const CheckOptions& options) const
{
    Findings findings;
    std::set<std::string> listed;
    const std::optional<Catalogue> catalogue =
        checkCatalogue(set, m_catalogue, options, listed, findings);
    checkListed(set, listed, "catalogue", findings);
    checkListed(set, options.known, "language table", findings);
    for (const auto& file : set) {
        if (file.first == kCatalogueName)
            continue;
        checkKeyMap(file.first, file.second, m_key_map, catalogue, options, findings);
        const std::string layout = layoutOf(file.first);
        if (catalogue && !listed.count(layout) && !options.known.count(layout))
            findings.push_back({file.first, "the whole file", "a file that nobody lists",
                                "its name in the catalogue's \"language\"", "orphan"});
    }
    return findings;
}

} // namespace layouts
