#include "layout_sample.h"

#include <cstdint>

namespace sample
{

using test_support::Catalogue;
using test_support::GridRect;
using test_support::Key;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::Rect_t;

Catalogue catalogue()
{
    Catalogue sample = {{"English", "German", "Greek"}, 4, 6, 60, 50, {}};
    for (int i = 0; i < kKeys; ++i)
        sample.rects.push_back({i % 4, i / 4, 1, 1});
    return sample;
}

std::vector<Key> inRows(const std::vector<Kind>& kinds)
{
    std::vector<Key> keys;
    const int count = static_cast<int>(kinds.size());
    for (int i = 0; i < count; ++i) {
        const Kind& kind = kinds[static_cast<size_t>(i)];
        keys.push_back({i, kind.text, kind.isSpecial, kind.isLanguage, kind.keyCode, kind.character,
                        i - 1, i + 1, i - 4, i + 4, kind.shiftText, kind.shiftCharacter});
    }
    return keys;
}

namespace
{

int16_t lowBits(int value)
{
    return static_cast<int16_t>(static_cast<uint16_t>(value));
}

Rect_t pixels(const Catalogue& catalogue, const GridRect& grid)
{
    const int pitchX = catalogue.gapX + catalogue.cellWidth;
    const int pitchY = catalogue.gapY + catalogue.cellHeight;
    return {lowBits(catalogue.gapX + grid.column * pitchX),
            lowBits(catalogue.gapY + grid.row * pitchY),
            lowBits(grid.columns * pitchX - catalogue.gapX),
            lowBits(grid.rows * pitchY - catalogue.gapY)};
}

std::string label(const std::string& text)
{
    return text == "NULL" ? "" : text;
}

} // namespace

std::vector<Key> keySet(const std::string& layout, bool alt)
{
    const Kind letter = {"a", false, false, 65, 97, "A", 65};
    const Kind digit = {"1", false, false, 49, 49, "!", 33};
    return inRows({alt ? digit : letter,
                   {"Shift", true, false, 16, 0, "Shift", 0},
                   {"Alt", true, false, 18, 0, "Alt", 0},
                   {layout.c_str(), true, true, 0, 0, layout.c_str(), 0},
                   {"ClearAll", true, false, 46, 127, "ClearAll", 127},
                   {"Hide", true, false, 27, 0, "Hide", 0},
                   {"Fn", true, false, 99, 0, "Fn", 0},
                   {"mute", false, false, -1, 0, "MUTE", 0}});
}

void writeLayouts(test_support::LayoutFolder& folder)
{
    folder.writeCatalogue(asJson(catalogue()));
    for (const std::string& layout : catalogue().names)
        folder.writeKeyMap(layout, asJson(keySet(layout), keySet(layout, true)));
}

std::vector<Button_t> buttons(const std::vector<Key>& keys, bool shifted)
{
    const Catalogue grid = catalogue();
    std::vector<Button_t> made;
    for (size_t i = 0; i < keys.size(); ++i) {
        const Key& key = keys[i];
        made.push_back({label(shifted ? key.shiftText : key.text), pixels(grid, grid.rects[i]),
                        key.id, key.isSpecial, key.isLanguage, key.keyCode,
                        shifted ? key.shiftCharacter : key.character, key.left, key.right, key.up,
                        key.down});
    }
    return made;
}

} // namespace sample
