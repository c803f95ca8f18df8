// What stands at each place of the grid.
#include "positions.h"

#include <cctype>

#include "text.h"

namespace layouts
{

const std::vector<Position>& positions()
{
    static const std::vector<Position> kTable = {
        {Role::Special, "", "Hide", "Hide", 27, 0},
        {Role::Language, "", "", "", 0, 0},
        {Role::Special, "", "ClearAll", "ClearAll", 12, 0},
        {Role::Printing, "TLDE", "`", "~", 192, 0},
        {Role::Printing, "AE01", "1", "!", 49, 0},
        {Role::Printing, "AE02", "2", "@", 50, 0},
        {Role::Printing, "AE03", "3", "#", 51, 0},
        {Role::Printing, "AE04", "4", "$", 52, 0},
        {Role::Printing, "AE05", "5", "%", 53, 0},
        {Role::Printing, "AE06", "6", "^", 54, 0},
        {Role::Printing, "AE07", "7", "&", 55, 0},
        {Role::Printing, "AE08", "8", "*", 56, 0},
        {Role::Printing, "AE09", "9", "(", 57, 0},
        {Role::Printing, "AE10", "0", ")", 48, 0},
        {Role::Printing, "AE11", "-", "_", 189, 0},
        {Role::Printing, "AE12", "=", "+", 187, 0},

        {Role::Fixed, "", "Tab", "Tab", 9, 9},
        {Role::Printing, "AD01", "q", "Q", 81, 0},
        {Role::Printing, "AD02", "w", "W", 87, 0},
        {Role::Printing, "AD03", "e", "E", 69, 0},
        {Role::Printing, "AD04", "r", "R", 82, 0},
        {Role::Printing, "AD05", "t", "T", 84, 0},
        {Role::Printing, "AD06", "y", "Y", 89, 0},
        {Role::Printing, "AD07", "u", "U", 85, 0},
        {Role::Printing, "AD08", "i", "I", 73, 0},
        {Role::Printing, "AD09", "o", "O", 79, 0},
        {Role::Printing, "AD10", "p", "P", 80, 0},
        {Role::Printing, "AD11", "[", "{", 219, 0},
        {Role::Printing, "AD12", "]", "}", 221, 0},
        {Role::Fixed, "", "Back", "Back", 8, 8},

        {Role::Special, "", "Alt", "Alt", 18, 0},
        {Role::Printing, "AC01", "a", "A", 65, 0},
        {Role::Printing, "AC02", "s", "S", 83, 0},
        {Role::Printing, "AC03", "d", "D", 68, 0},
        {Role::Printing, "AC04", "f", "F", 70, 0},
        {Role::Printing, "AC05", "g", "G", 71, 0},
        {Role::Printing, "AC06", "h", "H", 72, 0},
        {Role::Printing, "AC07", "j", "J", 74, 0},
        {Role::Printing, "AC08", "k", "K", 75, 0},
        {Role::Printing, "AC09", "l", "L", 76, 0},
        {Role::Printing, "AC10", ";", ":", 186, 0},
        {Role::Printing, "AC11", "'", "\"", 222, 0},
        {Role::Printing, "BKSL", "\\", "|", 220, 0},
        {Role::Fixed, "", "Enter", "Enter", 13, 13},

        {Role::Special, "", "Shift", "Shift", 16, 0},
        // A US keyboard lacks this key; European ones carry less and greater there.
        {Role::Printing, "LSGT", "", "", 226, 0},
        {Role::Printing, "AB01", "z", "Z", 90, 0},
        {Role::Printing, "AB02", "x", "X", 88, 0},
        {Role::Printing, "AB03", "c", "C", 67, 0},
        {Role::Printing, "AB04", "v", "V", 86, 0},
        {Role::Printing, "AB05", "b", "B", 66, 0},
        {Role::Printing, "AB06", "n", "N", 78, 0},
        {Role::Printing, "AB07", "m", "M", 77, 0},
        {Role::Printing, "AB08", ",", "<", 188, 0},
        {Role::Printing, "AB09", ".", ">", 190, 0},
        {Role::Printing, "AB10", "/", "?", 191, 0},
        {Role::Web, "", "", "", 0, 0},
        {Role::Fixed, "", "Del", "Del", 46, 127},

        {Role::Web, "", "", "", 0, 0},
        {Role::Web, "", "", "", 0, 0},
        {Role::Web, "", "", "", 0, 0},
        {Role::Fixed, "", ".com", ".org", 190, 0},
        {Role::Fixed, "", " ", " ", 32, 32},
        {Role::Web, "", "", "", 0, 0},
        {Role::Web, "", "", "", 0, 0},
        // They move the caret; the arrow is a label, not a character to be typed.
        {Role::Fixed, "", "\u2190", "\u2190", 37, 0},
        {Role::Fixed, "", "\u2192", "\u2192", 39, 0},
    };
    return kTable;
}

size_t positionOf(const std::string& xkbName)
{
    size_t i = 0;
    while (i < positions().size() && positions()[i].xkbName != xkbName)
        ++i;
    return i;
}

size_t spaceBarPosition()
{
    size_t i = 0;
    while (positions()[i].keyCode != ' ')
        ++i;
    return i;
}

size_t digitPosition(const std::string& digit)
{
    const int value = digitValue(digit);
    size_t i = 0;
    while (i < positions().size() && positions()[i].keyCode != '0' + value)
        ++i;
    return i;
}

bool isLetterKey(size_t i)
{
    const Position& position = positions()[i];
    return position.role == Role::Printing && position.keyCode >= 'A' && position.keyCode <= 'Z';
}

int32_t usKeyCode(char character)
{
    const char plain = static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    for (const Position& position : positions())
        if (position.role == Role::Printing &&
            (position.text[0] == plain || position.shiftedText[0] == character))
            return position.keyCode;
    return 0;
}

} // namespace layouts
