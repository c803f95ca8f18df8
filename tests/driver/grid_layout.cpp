#include "grid_layout.h"

#include <map>
#include <utility>

#include "layout_folder.h"

using test_support::Catalogue;
using test_support::GridRect;
using test_support::Key;

namespace grid_layout
{
namespace
{

// The language key's text is the layout's own.
const std::map<std::pair<int, int>, std::string> kSpecialKeys = {
    {{0, 0}, "Hide"}, {{0, 1}, ""}, {{0, 2}, "ClearAll"}, {{2, 0}, "Alt"}, {{3, 0}, "Shift"}};

int idOf(int row, int column)
{
    return (row + kRows) % kRows * kColumns + (column + kColumns) % kColumns;
}

std::string label(const std::string& layout, char face, int row, int column)
{
    const auto special = kSpecialKeys.find({row, column});
    if (special == kSpecialKeys.end())
        return layout + face + std::to_string(idOf(row, column));
    return special->second.empty() ? layout : special->second;
}

Key key(const std::string& layout, bool symbol, int row, int column)
{
    const auto special = kSpecialKeys.find({row, column});
    const bool is_special = special != kSpecialKeys.end();
    const int code = '!' + idOf(row, column) + (symbol ? 256 : 0);

    return {idOf(row, column),
            label(layout, symbol ? 's' : 'd', row, column),
            is_special,
            is_special && special->second.empty(),
            code,
            code,
            idOf(row, column - 1),
            idOf(row, column + 1),
            idOf(row - 1, column),
            idOf(row + 1, column),
            label(layout, symbol ? 'S' : 'D', row, column),
            code};
}

} // namespace

std::string catalogue(const std::vector<std::string>& names)
{
    Catalogue catalogue = {names, 4, 4, 40, 40, {}};
    for (int row = 0; row < kRows; ++row)
        for (int column = 0; column < kColumns; ++column)
            catalogue.rects.push_back(GridRect{column, row, 1, 1});
    return asJson(catalogue);
}

std::string keyMap(const std::string& layout)
{
    std::vector<Key> plain, symbol;
    for (int row = 0; row < kRows; ++row) {
        for (int column = 0; column < kColumns; ++column) {
            plain.push_back(key(layout, false, row, column));
            symbol.push_back(key(layout, true, row, column));
        }
    }
    return asJson(plain, symbol);
}

} // namespace grid_layout
