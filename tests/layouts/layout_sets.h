#ifndef TESTS_LAYOUTS_LAYOUT_SETS_H
#define TESTS_LAYOUTS_LAYOUT_SETS_H

#include <string>
#include <vector>

#include "layout_set.h"

// One set of bad_and_odd_sets.txt.
struct CheckedSet {
    std::string name;
    layouts::LayoutSet files;

    // What the command line would say; without a font, labels are not measured.
    std::string font;
    int screenWidth = 1920;
    int screenHeight = 1080;

    // The lines that the check must give; none for a set that is right.
    std::vector<std::string> findings;
};

// All sets, in the order of the file. Throws std::runtime_error naming the set and the line that
// makes no sense.
std::vector<CheckedSet> readCheckedSets();

#endif
