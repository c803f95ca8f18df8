#ifndef HOSTS_SHARED_KEY_RESULT_H
#define HOSTS_SHARED_KEY_RESULT_H

#include <cstdint>
#include <string>

#include "keyboard_types.h"

namespace host
{

class TextLine;

// What a key result means to a text field.
enum class KeyAction {
    Insert,
    EraseBefore,
    EraseAfter,
    Submit,
    Clear,
    CaretLeft,
    CaretRight,
    NextField,
};

KeyAction keyAction(int32_t keyCode);

// The text that a key with KeyAction::Insert delivers: the character by its code point, or the
// key's text where that is more than one (".com").
std::string keyText(int32_t character, const std::string& text);

// What a key result asks the host to do with its field.
struct Edit {
    KeyAction action;
    std::string text; // UTF-8, with KeyAction::Insert
    int32_t keyCode;  // the browser's key event code
    bool shift;       // Shift was on
};

Edit editOf(const velmora::browser::vkb::OsButton_t& result);

// Does it to a line that stands alone: there is no other field to go to, and submitting leaves the
// line as it is.
void applyEdit(const Edit& edit, TextLine& line);

} // namespace host

#endif
