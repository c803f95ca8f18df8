#include "bench_layout.h"

#include <string>
#include <vector>

namespace bench
{

const char kLayoutName[] = "Bench";

namespace
{

// 70 keys and fewer look like a shipped keyboard; for more, the cells shrink.
struct Grid {
    int columns, gap, cellWidth, cellHeight;
};

Grid gridFor(int keys)
{
    if (keys <= 70)
        return {14, 5, 52, 45};
    if (keys <= 1000)
        return {40, 4, 40, 36};
    return {160, 1, 10, 10};
}

test_support::Key keyAt(int position, int keys, int columns, char plain, char shifted)
{
    test_support::Key key = {};
    key.id = position;
    key.text = std::string(1, static_cast<char>(plain + position % 26));
    key.keyCode = plain + position % 26;
    key.character = key.keyCode;
    key.left = (position + keys - 1) % keys;
    key.right = (position + 1) % keys;
    key.up = (position + keys - columns % keys) % keys;
    key.down = (position + columns) % keys;
    key.shiftText = std::string(1, static_cast<char>(shifted + position % 26));
    key.shiftCharacter = shifted + position % 26;
    if (position == 0) {
        key.text = "Shift";
        key.shiftText = "Shift";
        key.isSpecial = true;
    }
    return key;
}

} // namespace

void writeLayout(test_support::LayoutFolder& folder, int keys, const std::string& name)
{
    const Grid grid = gridFor(keys);
    test_support::Catalogue catalogue = {{name},         grid.gap,        grid.gap,
                                         grid.cellWidth, grid.cellHeight, {}};
    std::vector<test_support::Key> defaultKeys;
    std::vector<test_support::Key> symbolKeys;
    for (int i = 0; i < keys; ++i) {
        catalogue.rects.push_back({i % grid.columns, i / grid.columns, 1, 1});
        defaultKeys.push_back(keyAt(i, keys, grid.columns, 'a', 'A'));
        symbolKeys.push_back(keyAt(i, keys, grid.columns, 'A', 'a'));
    }
    folder.writeCatalogue(asJson(catalogue));
    folder.writeKeyMap(name, asJson(defaultKeys, symbolKeys));
}

} // namespace bench
