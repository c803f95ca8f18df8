// The numbers and names that the keyboard shares with its host: remote keys, answers, key codes of
// results, the window's place, the font's variable, the layout files' folder.
#ifndef KEYBOARD_CONSTANTS_H
#define KEYBOARD_CONSTANTS_H

#include <cstdint>

namespace velmora
{
namespace browser
{
namespace vkb
{

/// What onKeyEvent takes: the browser's key event codes of the remote control's keys.
enum RemoteKeyCode : int32_t {
    RemoteOk = 13,
    RemoteLeft = 37,
    RemoteUp = 38,
    RemoteRight = 39,
    RemoteDown = 40,
};

/// What onKeyEvent and the handlers behind it answer.
enum KeyAnswer : int32_t {
    AnswerConsumed = 0,   ///< used up by the keyboard
    AnswerKeyResult = 1,  ///< a key result is ready for getKeyBoardButton
    AnswerNotHandled = 2, ///< the key is the host's
};

/// Key codes of key results that edit the field instead of adding text, as the shipped layouts
/// give them: the browser's key event codes.
enum EditKeyCode : int32_t {
    KeyCodeBack = 8,
    KeyCodeTab = 9,
    KeyCodeClearAll = 12, ///< empty the whole field
    KeyCodeEnter = 13,
    KeyCodeCaretLeft = 37,
    KeyCodeCaretRight = 39,
    KeyCodeDelete = 46,
};

/// A key result's modifier while Shift is on, for one key or locked; otherwise 0.
const int32_t kShiftModifier = 2;

/// Upper left corner of the keyboard's window, in pixels of the screen.
const int kWindowX = 600;
const int kWindowY = 600; ///< See kWindowX.

/// The environment variable that names the font file, and the file without it.
const char* const kFontVariable = "VIRTUAL_KEYBOARD_FONT_PATH";
const char* const kDefaultFont = "/usr/local/opt/font/TarvoL2700.ttf"; ///< See kFontVariable.

/// Where the layout files lie: the catalogue and one key map for each layout name.
#define VKB_LAYOUT_FOLDER "/usr/local/opt/nerovista/resources/oskeyboard_config"
const char* const kLayoutFolder = VKB_LAYOUT_FOLDER; ///< See VKB_LAYOUT_FOLDER.
const char* const kCatalogueFile = VKB_LAYOUT_FOLDER "/Language_Name.json"; ///< The layouts' names.
const char* const kKeyMapPrefix = VKB_LAYOUT_FOLDER "/Language_"; ///< A name and ".json" follow.

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
