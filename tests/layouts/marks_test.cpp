// Where combining marks stand on their keys, measured from drawn pixels.
#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

#include <gtest/gtest.h>

#include "shipped.h"
#include "test_picture.h"
#include "text.h"

using namespace layouts;
using test_support::Picture;

namespace
{

constexpr uint32_t kKeyFill = 0xFF323232;
constexpr int kBevel = 2;             // pixels at each side
constexpr int kCaptionHeight = 64;    // pixels above each face
constexpr double kOffCentre = 3;      // pixels
constexpr double kMostOutside = 0.05; // of 1

struct Area {
    int left;
    int top;
    int right; // behind the last column
    int bottom;
};

Area areaOf(const Catalogue& catalogue, size_t key, size_t face)
{
    const Cell& cell = catalogue.cells[key];
    const Cell& last = catalogue.cells.back();
    const int pitchX = catalogue.gapX + catalogue.cellWidth;
    const int pitchY = catalogue.gapY + catalogue.cellHeight;
    const int height = (last.row + last.height) * pitchY + catalogue.gapY;
    const int left = catalogue.gapX + cell.column * pitchX;
    const int top = static_cast<int>(face) * (kCaptionHeight + height) + kCaptionHeight +
                    catalogue.gapY + cell.row * pitchY;
    return {left + kBevel, top + kBevel, left + keyWidth(catalogue, cell) - kBevel,
            top + keyHeight(catalogue, cell) - kBevel};
}

// The box around what is not the key itself; its right end is before its left one for nothing.
Area inkIn(const Picture& picture, const Area& key)
{
    Area ink = {key.right, key.bottom, key.left, key.top};
    for (int y = key.top; y < key.bottom; ++y)
        for (int x = key.left; x < key.right; ++x) {
            const size_t at = static_cast<size_t>(y) * static_cast<size_t>(picture.width) +
                              static_cast<size_t>(x);
            if (picture.pixels[at] == kKeyFill)
                continue;
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                   std::max(ink.bottom, y + 1)};
        }
    return ink;
}

Picture previewOf(const std::string& layout)
{
    const TemporaryFolder folder;
    const std::string file = folder.path("layout.png");
    const std::string command = std::string(LAYOUTS_COMMAND) + " preview " + layout + " -o " + file;
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return test_support::readPng(file);
}

struct DrawnMark {
    std::string layout;
    std::string mark;
    size_t key;
    size_t face;
};

// Each mark once for each font.
std::vector<DrawnMark> marks()
{
    std::vector<DrawnMark> marks;
    std::set<std::pair<std::string, std::string>> seen;
    for (const Language& language : languages()) {
        const KeyMap keyMap = shippedKeyMap(language.name);
        for (size_t face = 0; face < 4; ++face) {
            const std::vector<Key>& keys = keysOf(keyMap, kFaces[face]);
            for (size_t i = 0; i < keys.size(); ++i) {
                const std::string text = delivered(legendOf(keys[i], kFaces[face]));
                if (isMark(text) && seen.emplace(language.font, text).second)
                    marks.push_back({language.name, text, i, face});
            }
        }
    }
    return marks;
}

TEST(Marks, StandInTheMiddleOfTheirKeys)
{
    const Catalogue catalogue = shippedCatalogue();
    const std::vector<DrawnMark> all = marks();
    ASSERT_GT(all.size(), 200u);
    size_t off = 0;
    std::string which;
    std::string drawn;
    Picture picture;
    for (const DrawnMark& mark : all) {
        if (drawn != mark.layout)
            picture = previewOf(drawn = mark.layout);
        const Area key = areaOf(catalogue, mark.key, mark.face);
        const Area ink = inkIn(picture, key);
        const std::string name = mark.layout + " " + describe(mark.mark);
        ASSERT_LT(ink.left, ink.right) << name << " cannot be seen";
        EXPECT_TRUE(ink.left > key.left && ink.right < key.right && ink.top > key.top &&
                    ink.bottom < key.bottom)
            << name << " reaches its key's edge";
        const double offset = std::abs((ink.left + ink.right) / 2.0 - (key.left + key.right) / 2.0);
        if (offset > kOffCentre) {
            ++off;
            which += " " + name + "(" + std::to_string(static_cast<int>(offset)) + ")";
        }
    }
    EXPECT_LE(static_cast<double>(off), kMostOutside * static_cast<double>(all.size()))
        << off << " of " << all.size() << ":" << which;
}

} // namespace
