// Reads the table of exceptions.
#include "exceptions.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "key_map.h"
#include "language.h"
#include "positions.h"
#include "table.h"

namespace layouts
{
namespace
{

constexpr size_t kColumns = 5; // layout, key, face, text, reason

bool isPrintingKey(const std::string& name)
{
    const size_t i = positionOf(name);
    return i < positions().size() && positions()[i].role == Role::Printing;
}

KeyException exceptionOf(const TableRow& row, const std::vector<Language>& languages)
{
    const std::string& layout = row.fields[0];
    const std::string& key = row.fields[1];
    const std::string& face = row.fields[2];
    if (findLanguage(languages, layout) == nullptr)
        row.refuse("the layout \"" + layout + "\"", "the name of one in languages.tsv");
    if (!isPrintingKey(key))
        row.refuse("the key \"" + key + "\"",
                   "the name of a printing key in the keyboard database, as AD01 for Q");
    const auto found = std::find_if(std::begin(kFaces), std::end(kFaces),
                                    [&](const Face& known) { return known.name == face; });
    if (found == std::end(kFaces))
        row.refuse("the face \"" + face + "\"",
                   "default, default shifted, symbol or symbol shifted");
    if (row.fields[4].empty())
        row.refuse("no reason in column 5", "why the layout differs from its keyboard");
    return {layout, key, static_cast<size_t>(found - kFaces), row.fields[3]};
}

} // namespace

std::vector<KeyException> readExceptions(const std::string& file,
                                         const std::vector<Language>& languages)
{
    std::vector<KeyException> exceptions;
    std::set<std::string> seen;
    for (const TableRow& row : readTable(file, kColumns, kColumns)) {
        exceptions.push_back(exceptionOf(row, languages));
        const std::string key = row.fields[0] + " " + row.fields[1] + " " + row.fields[2];
        if (!seen.insert(key).second)
            row.refuse(key + " again", "each key of a layout once for each face");
    }
    return exceptions;
}

void applyExceptions(const std::vector<KeyException>& exceptions, const std::string& layout,
                     XkbKeyboard& keyboard)
{
    for (const KeyException& exception : exceptions) {
        if (exception.layout != layout)
            continue;
        const Face& face = kFaces[exception.face];
        XkbKey& key = keyboard.at(exception.key);
        KeyTexts& texts = face.symbol ? key.altGr : key.base;
        (face.shifted ? texts.shifted : texts.plain) = exception.text;
    }
}

} // namespace layouts
