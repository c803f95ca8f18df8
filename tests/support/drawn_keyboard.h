#ifndef TESTS_SUPPORT_DRAWN_KEYBOARD_H
#define TESTS_SUPPORT_DRAWN_KEYBOARD_H

#include <string>
#include <vector>

#include "keyboard_types.h"
#include "trace.h"

namespace test_support
{

// What a viewer sees after the last repaint in a trace of the recording display.
struct DrawnKeyboard {
    enum Window { Untouched, Hidden, Painted } window = Untouched;
    std::vector<std::string> keys;   // labels, in the order of their drawing
    std::vector<std::string> sunken; // drawn over them
    velmora::browser::vkb::Rect_t frame = {0, 0, 0, 0};
};

DrawnKeyboard drawnKeyboard(const Lines& trace);

} // namespace test_support

#endif
