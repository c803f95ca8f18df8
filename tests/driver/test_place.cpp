#include "test_place.h"

#include <map>
#include <utility>

using test_support::Catalogue;
using test_support::Key;

namespace
{

const int kRows = 5;
const int kColumns = 16;

// The language key's text is the layout's own.
const std::map<int, std::string> kSpecialKeys = {
    {0, "Hide"}, {1, ""}, {2, "ClearAll"}, {2 * kColumns, "Alt"}, {3 * kColumns, "Shift"}};

std::string label(const std::string& layout, char face, int number)
{
    const auto special = kSpecialKeys.find(number);
    if (special == kSpecialKeys.end())
        return layout + face + std::to_string(number);
    return special->second.empty() ? layout : special->second;
}

// The number of the key that is so many columns and rows from this one.
int neighbour(int number, int columns, int rows)
{
    const int row = (number / kColumns + rows + kRows) % kRows;
    return row * kColumns + (number + columns + kColumns) % kColumns;
}

std::vector<Key> keys(const std::string& layout, bool symbol)
{
    std::vector<Key> made;
    for (int number = 0; number < kRows * kColumns; ++number) {
        const bool is_special = kSpecialKeys.count(number) != 0;
        const int code = '!' + number + (symbol ? 256 : 0);
        made.push_back({number, label(layout, symbol ? 's' : 'd', number), is_special,
                        is_special && kSpecialKeys.at(number).empty(), code, code,
                        neighbour(number, -1, 0), neighbour(number, 1, 0), neighbour(number, 0, -1),
                        neighbour(number, 0, 1), label(layout, symbol ? 'S' : 'D', number), code});
    }
    return made;
}

} // namespace

TestPlace::TestPlace(const std::vector<std::string>& names)
{
    Catalogue catalogue = {names, 4, 4, 40, 40, {}};
    for (int number = 0; number < kRows * kColumns; ++number)
        catalogue.rects.push_back({number % kColumns, number / kColumns, 1, 1});
    writeCatalogue(asJson(catalogue));
    for (const std::string name : {"One", "Two"})
        writeKeyMap(name, asJson(keys(name, false), keys(name, true)));
    for (const char* font : {"/usr/local/opt/font/TarvoL2700.ttf", "/opt/font/TarvoL2700.ttf"})
        linkFile(font, VKB_TEST_FONT);
}
