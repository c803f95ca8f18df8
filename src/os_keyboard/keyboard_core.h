#ifndef KEYBOARD_CORE_H
#define KEYBOARD_CORE_H

#include <cstdint>
#include <string>
#include <vector>

#include <directfb.h>

#include "keyboard_types.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

class KeyBoardUI;
class LanguageParser;

// The keyboard as its host sees it: started when a text field wants input, then fed with the
// remote control's keys. One thread; nothing is reported to the caller but by result codes and
// log lines. All cores of a process share one window.
class KeyBoardCore
{
public:
    // The font is the file named by the environment variable VIRTUAL_KEYBOARD_FONT_PATH, or the
    // television's own.
    KeyBoardCore();
    ~KeyBoardCore();
    KeyBoardCore(const KeyBoardCore&) = delete;
    KeyBoardCore& operator=(const KeyBoardCore&) = delete;

    // Text input begins: the first start builds the window and shows the first layout with the
    // focus on key 0, a later one shows the keyboard as it was. dfb is lent for the core's life.
    // The keyboard opens a window of its own; the surface is not drawn on.
    void OnIMEStart(IDirectFB* dfb, IDirectFBSurface* surface);

    // Text input ends: the window is destroyed. The next start begins at the first layout.
    void OnIMECancelled();

    void enter();
    void leave();
    void Show();
    void Hide();
    bool isShow();
    bool isKeyBoardEnable();

    // Pixels of the keyboard; those of the usual layout before the first start.
    int getWidth();
    int getHeight();

    void notifySysLanguage(std::string language);

    // Takes one key of the remote control, as the browser's key event code: 13 OK, 37 left, 38
    // up, 39 right, 40 down. Returns 0 when the keyboard used it up, 1 when a key result is
    // ready, 2 when it did nothing with it (not started, hidden, no such key).
    int onKeyEvent(int keyCode);

    // The last key result, whole or its key code alone. It stays until the next one.
    void getKeyBoardButton(OsButton_t& out);
    int getKeyBoardButton();

    // The window alone; the keyboard's own state is not touched.
    void CreateDFBWindow(IDirectFB* dfb, IDirectFBSurface* surface);
    void HideDFBWindow();

    // Steps to the next layout, with Shift and Alt off; does not redraw.
    void onLayoutChanged();
    void updateKeyMap();
    int updateKeyBoardUI();

    // Focus. An id is a position in the key set; one outside it leaves the focus where it is.
    // Results: 1 done, 0 no renderer; for the moves 0 done, 2 no renderer.
    Button_t getTargetButtonByButtonId(int id);
    int FocusButtonChangedTo(int id);
    int sendFocusButtonToUI();
    int sendLockButtonToUI();
    int LeftMoveProc();
    int RightMoveProc();
    int UpMoveProc();
    int DownMoveProc();

    // OK on the focused key, and what it does on each kind of key. Results as of onKeyEvent.
    int EnterPressProc();
    int specialButtonHandle();
    int shiftButtonHandle();
    int altButtonHandle();
    int hideButtonHandle();
    int languageButtonHandle();
    int clearButtonHandle();
    bool setKeyBoardButton();

    // Keys drawn as locked.
    void removeLockButton(std::string text);
    void updateLockButton();

private:
    int moveFocus(const char* procedure, int32_t neighbour);
    void refreshAfterUnlock(const char* handler);
    void releaseKeyboard();

    LanguageParser* m_parser; // owned, from start to cancel
    KeyBoardUI* m_ui;         // owned, from start to cancel
    Button_t m_focus_button;
    OsButton_t m_button;
    std::vector<Button_t> m_lock_buttons;
    std::vector<Button_t> m_key_map; // the renderer paints from this list
    std::vector<std::string> m_layout_names;
    bool m_shift_mode;
    bool m_shift_lock;
    bool m_alt_mode;
    bool m_keyboard_status;
    bool m_is_show;
    std::string m_layout_name;
    uint32_t m_layout_index; // the next change takes this name
    std::string m_font_path;
};

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
