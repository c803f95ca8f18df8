#ifndef TESTS_DRIVER_TEST_PLACE_H
#define TESTS_DRIVER_TEST_PLACE_H

#include <string>
#include <vector>

#include "layout_folder.h"

// A place of its own for one test: what the driver sees at the fixed paths. At first the fonts of
// both modes, a catalogue of the layouts with these names, and the key maps of "One" and "Two".
//
// On their keyboard every key tells where it is: 5 rows of 16 keys, wrapping in both directions, so
// that the key that a script ends on can be worked out by hand. Special keys stand where the
// scripts expect them: hide at row 0, column 0, language at 0,1, ClearAll at 0,2, Alt at 2,0, Shift
// at 3,0. Every other key's text is the layout's name, a "d", "D", "s" or "S" (default, default
// shifted, symbol, symbol shifted) and its number, 16 * row + column. Its key code is 33 and its
// number, a printable character; in the symbol set 256 more, so that the low 8 bits are the same.
class TestPlace : public test_support::LayoutFolder
{
public:
    explicit TestPlace(const std::vector<std::string>& names = {"One", "Two"});
};

#endif
