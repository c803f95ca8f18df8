#ifndef TESTS_DRIVER_GRID_LAYOUT_H
#define TESTS_DRIVER_GRID_LAYOUT_H

#include <string>
#include <vector>

// A keyboard for tests on which every key tells where it is: 5 rows of 16 keys, wrapping in both
// directions, so that the key that a script ends on can be worked out by hand.
//
// Special keys stand where the scripts expect them: hide at row 0, column 0, language at 0,1,
// ClearAll at 0,2, Alt at 2,0, Shift at 3,0. Every other key's text is the layout's name, a "d",
// "D", "s" or "S" (default, default shifted, symbol, symbol shifted) and its number, 16 * row +
// column. Its key code is 33 and its number, a printable character; in the symbol set 256 more,
// so that the low 8 bits are the same.
namespace grid_layout
{

const int kRows = 5;
const int kColumns = 16;

// The two files' contents.
std::string catalogue(const std::vector<std::string>& names);
std::string keyMap(const std::string& layout);

} // namespace grid_layout

#endif
