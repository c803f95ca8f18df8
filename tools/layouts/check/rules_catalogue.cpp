// Rules about the catalogue: names and grid.
#include "rules.h"

#include <algorithm>
#include <cstdint>
#include <set>

#include "catalogue.h"
#include "json_file.h"
#include "keyboard_constants.h"
#include "layout_set.h"

namespace layouts
{
namespace
{

using velmora::browser::vkb::kWindowX;
using velmora::browser::vkb::kWindowY;

// Pixels are kept in 16 bits.
constexpr int64_t kLastPixel = INT16_MAX;

std::string cellPath(size_t i)
{
    return "RectValue[" + std::to_string(i) + "]";
}

std::string size(int64_t width, int64_t height)
{
    return std::to_string(width) + " by " + std::to_string(height);
}

int64_t right(const Cell& cell)
{
    return int64_t(cell.column) + cell.width;
}
int64_t bottom(const Cell& cell)
{
    return int64_t(cell.row) + cell.height;
}

bool isEmpty(const Cell& cell)
{
    return cell.width < 1 || cell.height < 1;
}

bool overlap(const Cell& a, const Cell& b)
{
    return a.column < right(b) && b.column < right(a) && a.row < bottom(b) && b.row < bottom(a);
}

class Grid
{
public:
    Grid(const Catalogue& catalogue, Findings& findings)
        : m_catalogue(catalogue), m_cells(catalogue.cells),
          m_pitch_x(int64_t(catalogue.gapX) + catalogue.cellWidth),
          m_pitch_y(int64_t(catalogue.gapY) + catalogue.cellHeight), m_findings(findings)
    {
    }

    int64_t width() const { return right(m_cells.back()) * m_pitch_x + m_catalogue.gapX; }
    int64_t height() const { return bottom(m_cells.back()) * m_pitch_y + m_catalogue.gapY; }

    // Each cell alone. Returns whether the grid makes sense as a whole.
    bool checkCells()
    {
        bool sound = true;
        for (size_t i = 0; i < m_cells.size(); ++i)
            sound = checkCell(i) && sound;
        return sound;
    }

    void checkLast()
    {
        const auto furthest = [&](int64_t (*edge)(const Cell&)) {
            return edge(
                *std::max_element(m_cells.begin(), m_cells.end(),
                                  [&](const Cell& a, const Cell& b) { return edge(a) < edge(b); }));
        };
        const Cell& last = m_cells.back();
        if (right(last) == furthest(right) && bottom(last) == furthest(bottom))
            return;
        add(m_cells.size() - 1,
            "a place that ends at column " + std::to_string(right(last)) + " and row " +
                std::to_string(bottom(last)),
            "the bottom-right one, ending at column " + std::to_string(furthest(right)) +
                " and row " + std::to_string(furthest(bottom)) +
                ", as the keyboard takes its size from the last place",
            "last");
    }

    void checkOverlaps()
    {
        for (size_t j = 1; j < m_cells.size(); ++j)
            for (size_t i = 0; i < j; ++i)
                if (overlap(m_cells[i], m_cells[j]))
                    add(j, "a place that overlaps " + cellPath(i), "a place of its own", "overlap");
    }

private:
    bool checkCell(size_t i)
    {
        const Cell& cell = m_cells[i];
        if (isEmpty(cell)) {
            add(i, size(cell.width, cell.height) + " cells",
                "at least 1 by 1, as a key of no size ends the program", "size");
            return false;
        }
        const int64_t x = right(cell) * m_pitch_x + m_catalogue.gapX;
        const int64_t y = bottom(cell) * m_pitch_y + m_catalogue.gapY;
        if (x > kLastPixel || y > kLastPixel) {
            add(i, "a key that ends at pixel " + std::to_string(x) + ", " + std::to_string(y),
                "none beyond " + std::to_string(kLastPixel), "pixels");
            return false;
        }
        if (!isEmpty(m_cells.back()) && cell.width > right(m_cells.back())) {
            add(i, "a key of " + std::to_string(cell.width) + " columns",
                "none wider than the keyboard's " + std::to_string(right(m_cells.back())) +
                    " columns",
                "wide");
            return false;
        }
        return true;
    }

    void add(size_t cell, const std::string& found, const std::string& expected,
             const std::string& rule)
    {
        m_findings.push_back({kCatalogueName, cellPath(cell), found, expected, rule});
    }

    const Catalogue& m_catalogue;
    const std::vector<Cell>& m_cells;
    const int64_t m_pitch_x; // pixels
    const int64_t m_pitch_y;
    Findings& m_findings;
};

} // namespace

std::set<std::string> checkNames(const Catalogue& catalogue, Findings& findings)
{
    std::set<std::string> names;
    for (size_t i = 0; i < catalogue.names.size(); ++i) {
        const std::string& name = catalogue.names[i];
        const std::string where = "language[" + std::to_string(i) + "]";
        if (!isLayoutName(name))
            findings.push_back({kCatalogueName, where, quoted(name),
                                "the middle of a file name, as in Language_English.json, without "
                                "\"/\" and \"..\", and not \"Name\"",
                                "name"});
        else if (!names.insert(name).second)
            findings.push_back(
                {kCatalogueName, where, quoted(name) + " again", "each layout once", "twice"});
    }
    return names;
}

void checkGrid(const Catalogue& catalogue, int screenWidth, int screenHeight, Findings& findings)
{
    Grid grid(catalogue, findings);
    if (!grid.checkCells())
        return;
    grid.checkLast();
    grid.checkOverlaps();
    const int64_t roomX = std::max(int64_t(0), int64_t(screenWidth) - kWindowX);
    const int64_t roomY = std::max(int64_t(0), int64_t(screenHeight) - kWindowY);
    if (grid.width() > roomX || grid.height() > roomY)
        findings.push_back({kCatalogueName, "Rect",
                            "a keyboard of " + size(grid.width(), grid.height()) + " pixels",
                            "at most " + size(roomX, roomY) + ", what a screen of " +
                                size(screenWidth, screenHeight) + " has right of and below " +
                                std::to_string(kWindowX) + ", " + std::to_string(kWindowY),
                            "screen"});
}

} // namespace layouts
