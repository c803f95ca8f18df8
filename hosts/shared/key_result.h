#ifndef KEY_RESULT_H
#define KEY_RESULT_H

#include <cstdint>
#include <string>

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
    Ignore, // Tab: there is no other field to go to
};

KeyAction keyAction(int32_t keyCode);

// The text that a key with KeyAction::Insert delivers: the character by its code point, or the
// key's text where that is more than one (".com").
std::string keyText(int32_t character, const std::string& text);

// Does to the line what the key result says; submitting leaves the line as it is.
KeyAction applyKeyResult(int32_t keyCode, int32_t character, const std::string& text,
                         TextLine& line);

} // namespace host

#endif
