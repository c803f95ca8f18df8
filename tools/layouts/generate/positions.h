#ifndef TOOLS_LAYOUTS_GENERATE_POSITIONS_H
#define TOOLS_LAYOUTS_GENERATE_POSITIONS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace layouts
{

// What stands at each position of the grid.
enum class Role {
    Printing, // a key that a computer keyboard has, too; the language decides what it types
    Web,      // useful characters of web addresses; what the language does not need
    Special,  // works the keyboard itself
    Language,
    Fixed, // types the same in every layout
};

struct Position {
    Role role;
    const char* xkbName;     // printing keys: the key's name in the keyboard database
    const char* text;        // fixed keys: the label; printing keys: what a US keyboard types
    const char* shiftedText; // the same with Shift
    int32_t keyCode;         // the browser's key event code, on a US keyboard
    int32_t character;       // fixed and special keys: the code point delivered
};

// In the order of the grid: row by row, from the left.
const std::vector<Position>& positions();

// The position of the key with this name in the keyboard database, of the space bar, and of the
// key where a US keyboard has the digit of the same value; positions().size() if there is none.
size_t positionOf(const std::string& xkbName);
size_t spaceBarPosition();
size_t digitPosition(const std::string& digit);

// Whether a US keyboard has a letter there.
bool isLetterKey(size_t i);

// The code of the US key that types an ASCII character; 0 if there is none.
int32_t usKeyCode(char character);

} // namespace layouts

#endif
