// The records of a layout's keys and of a key result.
#ifndef KEYBOARD_TYPES_H
#define KEYBOARD_TYPES_H

#include <cstdint>
#include <string>

namespace velmora
{
namespace browser
{
namespace vkb
{

/// A rectangle in one of two units: grid columns and rows in the catalogue's key position
/// table, pixels of the keyboard's own surface in a Button_t. Values are never clamped; what
/// does not fit into 16 bits has lost its upper bits.
struct Rect_t {
    int16_t positionX; ///< left edge
    int16_t positionY; ///< top edge
    int16_t width;     ///< in the same unit
    int16_t height;    ///< in the same unit
};

/// One key of one face of a layout. A key's plain and shifted faces are two records in two
/// vectors, so nothing here chooses between two labels.
///
/// The neighbours, like id itself, are used as positions in the key's vector; a layout file
/// therefore numbers its keys from 0 in file order. A position outside the vector means that
/// there is no neighbour on that side.
struct Button_t {
    std::string text;     ///< UTF-8; drawn on the key and handed to the host
    Rect_t rect;          ///< pixels
    int32_t id;           ///< the key's own position
    bool isSpecial;       ///< works the keyboard itself; text tells in which way
    bool isLanguage;      ///< on a special key of no known text: the next layout
    int32_t keyCode;      ///< the browser's key event code; negative: the key yields nothing
    int32_t character;    ///< Unicode code point; 0 where text is not one
    int32_t left_button;  ///< position of the key to the left
    int32_t right_button; ///< position of the key to the right
    int32_t up_button;    ///< position of the key above
    int32_t down_button;  ///< position of the key below
};

/// A key result: what the host delivers to the page for one press.
struct OsButton_t {
    int32_t keyCode;   ///< the browser's key event code
    int32_t modifier;  ///< 0, or 2 when Shift was active
    int32_t character; ///< Unicode code point; 0 where text is not one
    std::string text;  ///< UTF-8
};

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
