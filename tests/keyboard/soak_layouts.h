#ifndef TESTS_KEYBOARD_SOAK_LAYOUTS_H
#define TESTS_KEYBOARD_SOAK_LAYOUTS_H

#include <vector>

#include "keyboard_model.h"

// Three small layouts with every kind of key, among them the odd ones: keys that yield nothing,
// an unknown special key, the lower-case names of the special keys, neighbours that are not
// there, and symbol sets shorter than the default sets.
std::vector<LayoutKeys> soakLayouts();

// Writes them with the catalogue of the second sample.
void writeLayouts(test_support::LayoutFolder& folder, const std::vector<LayoutKeys>& layouts);

#endif
