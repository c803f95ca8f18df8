#include "soak_layouts.h"

namespace
{

const int kColumns = 4;
const int kGap = 4;
const int kCellWidth = 20;
const int kCellHeight = 16;
const char* const kNames[] = {"One", "Two", "Three"};

enum Kind { Plain, Special, Language };

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
        keys.push_back({i, sketch.text, sketch.kind != Plain, sketch.kind == Language,
                        sketch.keyCode, 1000 + sketch.keyCode, (i + count - 1) % count,
                        (i + 1) % count, i - kColumns, i + kColumns, sketch.shiftText,
                        2000 + sketch.keyCode});
    }
    return keys;
}

} // namespace

std::vector<LayoutKeys> soakLayouts()
{
    const LayoutKeys one = {keysFrom({{"a", "A", Plain, 65},
                                      {"Shift", "Shift", Special, 16},
                                      {"b", "B", Plain, 66},
                                      {"Alt", "Alt", Special, 18},
                                      {"EN", "EN", Language, 0},
                                      {"dead", "DEAD", Plain, -1},
                                      {"Hide", "Hide", Special, 27},
                                      {"ClearAll", "ClearAll", Special, 46}}),
                            keysFrom({{"1", "!", Plain, 49},
                                      {"Shift", "Shift", Special, 16},
                                      {"2", "NULL", Plain, 50},
                                      {"Alt", "Alt", Special, 18},
                                      {"EN", "EN", Language, 0}})};
    const LayoutKeys two = {keysFrom({{"alt", "alt", Special, 18},
                                      {"\xC3\xA4", "\xC3\x84", Plain, 228},
                                      {"shift", "shift", Special, 16},
                                      {"DE", "de", Language, 0},
                                      {"hide", "hide", Special, 27},
                                      {"clearall", "clearall", Special, 46}}),
                            keysFrom({{"alt", "alt", Special, 18},
                                      {"NULL", "NULL", Plain, 0},
                                      {"shift", "shift", Special, 16},
                                      {"DE", "de", Language, 0},
                                      {"a label longer than a short string", "x", Plain, 120},
                                      {"clearall", "clearall", Special, 46},
                                      {"SHIFT", "SHIFT", Special, 16}})};
    const LayoutKeys three = {keysFrom({{"FR", "FR", Language, 0},
                                        {"Shift", "shift", Special, 16},
                                        {"Alt", "alt", Special, 18},
                                        {"q", "Q", Plain, 81},
                                        {"what", "what", Special, 1},
                                        {"Shift", "Shift", Special, 16}}),
                              keysFrom({{"FR", "FR", Language, 0}, {"9", "9", Plain, 57}})};
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

velmora::browser::vkb::Rect_t soakRect(int position)
{
    return {static_cast<int16_t>(kGap + position % kColumns * (kCellWidth + kGap)),
            static_cast<int16_t>(kGap + position / kColumns * (kCellHeight + kGap)), kCellWidth,
            kCellHeight};
}
