#ifndef HOSTS_TERMINAL_CELLS_H
#define HOSTS_TERMINAL_CELLS_H

#include <string>

namespace host
{

// A terminal's character cell, in pixels.
struct CellSize {
    int width;
    int height;
};

// A size in cells.
struct CellArea {
    int columns;
    int rows;
};

// The sequence that moves the cursor; the first row and column are 1.
inline std::string cursorTo(int row, int column)
{
    return "\033[" + std::to_string(row) + ";" + std::to_string(column) + "H";
}

} // namespace host

#endif
