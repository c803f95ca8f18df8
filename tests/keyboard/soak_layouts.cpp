#include "soak_layouts.h"

namespace
{

const int kColumns = 4;
const int kGap = 4;
const int kCellWidth = 20;
const int kCellHeight = 16;
const char* const kNames[] = {"One", "Two", "Three"};

enum Kind { PLAIN, SPECIAL, LANGUAGE };

struct Sketch {
    const char* text;
    const char* shiftText;
    Kind kind;
    int keyCode;
};

// Neighbours: round the set to the left and right; to the next row and the one before up and
// down, where that may be outside the set.
std::vector<Key> keysFrom(const std::vector<Sketch>& sketches)
{
    const int count = static_cast<int>(sketches.size());
    std::vector<Key> keys;
    for (int i = 0; i < count; ++i) {
        const Sketch& sketch = sketches[static_cast<size_t>(i)];
        Key key = {};
        key.id = i;
        key.text = sketch.text;
        key.shiftText = sketch.shiftText;
        key.isSpecial = sketch.kind != PLAIN;
        key.isLanguage = sketch.kind == LANGUAGE;
        key.keyCode = sketch.keyCode;
        key.character = 1000 + sketch.keyCode;
        key.shiftCharacter = 2000 + sketch.keyCode;
        key.left = (i + count - 1) % count;
        key.right = (i + 1) % count;
        key.up = i - kColumns;
        key.down = i + kColumns;
        keys.push_back(key);
    }
    return keys;
}

} // namespace

std::vector<LayoutKeys> soakLayouts()
{
    const LayoutKeys one = {keysFrom({{"a", "A", PLAIN, 65},
                                      {"Shift", "Shift", SPECIAL, 16},
                                      {"b", "B", PLAIN, 66},
                                      {"Alt", "Alt", SPECIAL, 18},
                                      {"EN", "EN", LANGUAGE, 0},
                                      {"dead", "DEAD", PLAIN, -1},
                                      {"Hide", "Hide", SPECIAL, 27},
                                      {"ClearAll", "ClearAll", SPECIAL, 46}}),
                            keysFrom({{"1", "!", PLAIN, 49},
                                      {"Shift", "Shift", SPECIAL, 16},
                                      {"2", "NULL", PLAIN, 50},
                                      {"Alt", "Alt", SPECIAL, 18},
                                      {"EN", "EN", LANGUAGE, 0}})};
    const LayoutKeys two = {keysFrom({{"alt", "alt", SPECIAL, 18},
                                      {"\xC3\xA4", "\xC3\x84", PLAIN, 228},
                                      {"shift", "shift", SPECIAL, 16},
                                      {"DE", "de", LANGUAGE, 0},
                                      {"hide", "hide", SPECIAL, 27},
                                      {"clearall", "clearall", SPECIAL, 46}}),
                            keysFrom({{"alt", "alt", SPECIAL, 18},
                                      {"NULL", "NULL", PLAIN, 0},
                                      {"shift", "shift", SPECIAL, 16},
                                      {"DE", "de", LANGUAGE, 0},
                                      {"a label longer than a short string", "x", PLAIN, 120},
                                      {"clearall", "clearall", SPECIAL, 46},
                                      {"SHIFT", "SHIFT", SPECIAL, 16}})};
    const LayoutKeys three = {keysFrom({{"FR", "FR", LANGUAGE, 0},
                                        {"Shift", "shift", SPECIAL, 16},
                                        {"Alt", "alt", SPECIAL, 18},
                                        {"q", "Q", PLAIN, 81},
                                        {"what", "what", SPECIAL, 1},
                                        {"Shift", "Shift", SPECIAL, 16}}),
                              keysFrom({{"FR", "FR", LANGUAGE, 0}, {"9", "9", PLAIN, 57}})};
    return {one, two, three};
}

void writeLayouts(test_support::LayoutFolder& folder, const std::vector<LayoutKeys>& layouts)
{
    test_support::Catalogue catalogue = {{}, kGap, kGap, kCellWidth, kCellHeight, {}};
    for (int i = 0; i < 2 * kColumns; ++i)
        catalogue.rects.push_back({i % kColumns, i / kColumns, 1, 1});
    for (size_t i = 0; i < layouts.size(); ++i) {
        catalogue.names.push_back(kNames[i]);
        folder.writeKeyMap(kNames[i], asJson(layouts[i].defaults, layouts[i].symbols));
    }
    folder.writeCatalogue(asJson(catalogue));
}

PixelRect soakRect(int position)
{
    return {kGap + position % kColumns * (kCellWidth + kGap),
            kGap + position / kColumns * (kCellHeight + kGap), kCellWidth, kCellHeight};
}
