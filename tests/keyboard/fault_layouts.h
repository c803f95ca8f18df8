#ifndef TESTS_KEYBOARD_FAULT_LAYOUTS_H
#define TESTS_KEYBOARD_FAULT_LAYOUTS_H

#include <string>
#include <vector>

#include "layout_folder.h"

// Two layouts, "One" and "Two", of the same five keys: the language key, a letter, Shift, Alt and
// another letter, in a ring from left to right. The letters of a set all carry its mark.
extern const char* const kLayouts[2];
extern const int kKeys;

std::vector<test_support::Key> keysMarked(const std::string& mark, int count = kKeys);
std::string keyMapText(const std::string& mark, int count = kKeys);
std::string catalogueText();

// All files in good order.
void writeGoodFiles(test_support::LayoutFolder& folder);

#endif
