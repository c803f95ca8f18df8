#ifndef TOOLS_LAYOUTS_FORMAT_CATALOGUE_H
#define TOOLS_LAYOUTS_FORMAT_CATALOGUE_H

#include <cstddef>
#include <string>
#include <vector>

#include <json/forwards.h>

namespace layouts
{

// One key's place on the grid, in columns and rows.
struct Cell {
    int column;
    int row;
    int width;
    int height;
};

// The catalogue of a layout set: which layouts there are and where their keys lie.
struct Catalogue {
    std::vector<std::string> names;
    int gapX; // pixels
    int gapY;
    int cellWidth;
    int cellHeight;
    std::vector<Cell> cells; // cell i places the i-th key of every key map
};

// Pixels that a key leaves to its label.
int keyWidth(const Catalogue& catalogue, const Cell& cell);
int keyHeight(const Catalogue& catalogue, const Cell& cell);

// Throws std::runtime_error when the file is missing or is no catalogue.
Catalogue readCatalogue(const std::string& file);
Catalogue catalogueOf(const Json::Value& root); // of a file that its schema allows
std::string writeCatalogue(const Catalogue& catalogue);

struct Neighbours {
    int left;
    int right;
    int up;
    int down;
};

// Left and right wrap inside a row, up and down inside a column. Up and down lead to the key
// that lies above or below the key's own centre; where that is the line between two keys, to
// the one with the nearer centre, then to the left one.
std::vector<Neighbours> neighbours(const std::vector<Cell>& cells);

} // namespace layouts

#endif
