#include "key_result.h"

#include <unistr.h>

#include "keyboard_constants.h"
#include "text_line.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

struct ActionOfCode {
    EditKeyCode keyCode;
    KeyAction action;
};

const ActionOfCode kActions[] = {
    {KeyCodeBack, KeyAction::EraseBefore},    {KeyCodeTab, KeyAction::NextField},
    {KeyCodeClearAll, KeyAction::Clear},      {KeyCodeEnter, KeyAction::Submit},
    {KeyCodeCaretLeft, KeyAction::CaretLeft}, {KeyCodeCaretRight, KeyAction::CaretRight},
    {KeyCodeDelete, KeyAction::EraseAfter},
};

} // namespace

KeyAction keyAction(int32_t keyCode)
{
    for (const ActionOfCode& entry : kActions)
        if (entry.keyCode == keyCode)
            return entry.action;
    return KeyAction::Insert;
}

std::string keyText(int32_t character, const std::string& text)
{
    if (character <= 0)
        return text;
    uint8_t utf8[6];
    const int length = u8_uctomb(utf8, static_cast<ucs4_t>(character), sizeof utf8);
    return length > 0 ? std::string(reinterpret_cast<const char*>(utf8), size_t(length)) : text;
}

Edit editOf(const OsButton_t& result)
{
    Edit edit = {keyAction(result.keyCode), "", result.keyCode, result.modifier == kShiftModifier};
    if (edit.action == KeyAction::Insert)
        edit.text = keyText(result.character, result.text);
    return edit;
}

void applyEdit(const Edit& edit, TextLine& line)
{
    switch (edit.action) {
    case KeyAction::Insert:
        line.insert(edit.text);
        break;
    case KeyAction::EraseBefore:
        line.eraseBefore();
        break;
    case KeyAction::EraseAfter:
        line.eraseAfter();
        break;
    case KeyAction::Clear:
        line.clear();
        break;
    case KeyAction::CaretLeft:
        line.moveLeft();
        break;
    case KeyAction::CaretRight:
        line.moveRight();
        break;
    case KeyAction::Submit:
    case KeyAction::NextField:
        break;
    }
}

} // namespace host
