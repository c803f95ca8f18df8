// What a host embeds: the keyboard.
#ifndef KEYBOARD_CORE_H
#define KEYBOARD_CORE_H

#include <cstdint>
#include <string>
#include <vector>

#include <directfb.h>

#include "keyboard_constants.h"
#include "keyboard_types.h"

namespace velmora
{
namespace browser
{
namespace vkb
{

class KeyBoardUI;
class LanguageParser;

/// The keyboard as its host sees it: started when a text field wants input, then fed with the
/// remote control's keys.
///
/// One thread, the host's; nothing runs beside it. No operation throws or returns an error of its
/// own: what goes wrong is a line in the log. A DirectFB call that is needed for drawing and fails
/// ends the process through DirectFBErrorFatal; what the JSON library throws for a layout file
/// with values of impossible types passes through. All cores of a process share one window on the
/// primary layer, at kWindowX, kWindowY and as large as the catalogue says.
class KeyBoardCore
{
public:
    /// \name What a host calls
    /// Start when a text field wants input; feed each remote key; on answer 1 collect the key
    /// result; hide or cancel when the field is left.
    /// @{

    /// The font is the file named by the environment variable kFontVariable; without it,
    /// kDefaultFont, and an error line says so. Nothing is opened yet.
    KeyBoardCore();

    /// Does what OnIMECancelled does. The host deletes the core that it made.
    ~KeyBoardCore();
    KeyBoardCore(const KeyBoardCore&) = delete;
    KeyBoardCore& operator=(const KeyBoardCore&) = delete;

    /// Text input begins. The first start reads the layouts, opens the window and shows the first
    /// layout with the focus on key 0; a later one shows the keyboard as it was. Ask
    /// isKeyBoardEnable whether it worked: without layouts or window the keyboard is not started,
    /// and the next call tries anew.
    /// \param dfb lent until the cancel; the host never releases it while a core is started.
    /// \param surface the page's own; not used, the keyboard draws on its window.
    void OnIMEStart(IDirectFB* dfb, IDirectFBSurface* surface);

    /// Whether the keyboard is started, shown or not.
    bool isKeyBoardEnable();

    /// Takes one key of the remote control and redraws what it changes. Every code is logged.
    /// \param keyCode a RemoteKeyCode; any other code is not handled.
    /// \return a KeyAnswer: 0 used up by the keyboard; 1 a key result is ready for
    /// getKeyBoardButton; 2 not handled: not started, hidden, another code, or a special key that
    /// is none.
    int onKeyEvent(int keyCode);

    /// Copies the last key result. It stays until the next one, and is all zero and empty before
    /// the first. Its code is logged.
    void getKeyBoardButton(OsButton_t& out);

    /// Shows the keyboard with the focus where it was, or hides it by making its window's pixels
    /// transparent. Hidden, it stays started and answers every key with 2. Without a renderer both
    /// only log an error line.
    void Show();
    void Hide(); ///< See Show.

    /// Whether the keyboard is shown: true from a start or Show until a Hide, whoever asked for
    /// it; also the layout's own hide key ends it.
    bool isShow();

    /// Text input ends: the window is destroyed, renderer and layouts are deleted. The next start
    /// begins at the first layout. isShow keeps its value.
    void OnIMECancelled();

    /// @}
    /// \name What a host may ask besides
    /// @{

    /// The key code alone of the last key result; 0 before the first.
    int getKeyBoardButton();

    /// The current layout's name, as the catalogue writes it; empty before the first start. The
    /// string lives as long as the core and changes with the layout. Logs nothing.
    const std::string& currentLayout() const { return m_layout_name; }

    /// Size of the keyboard in pixels, from the catalogue; 805 by 255 and an error line while the
    /// keyboard is not started.
    int getWidth();
    int getHeight(); ///< See getWidth.

    /// For hosts that call it on leaving a text field; only logs. Use Hide or OnIMECancelled.
    void leave();

    /// For hosts that tell the system's language; does nothing, the viewer chooses the layout.
    void notifySysLanguage(std::string language);

    /// Puts the focused key in the place of the last locked one; does not redraw. The keyboard
    /// itself does not use it.
    void updateLockButton();

    /// Makes the window transparent and puts it lowest. For started keyboards only; the keyboard's
    /// own state is not touched, so that CreateDFBWindow brings it back as it was.
    void HideDFBWindow();

    /// @}
    /// \name Steps of a start and of a layout change
    /// Part of the calls above; no host needs them.
    /// @{

    /// Opens the window unless there is one, and makes it opaque and topmost; part of OnIMEStart.
    /// The window belongs to the process and goes with the cancel. A failing GetDisplayLayer ends
    /// the process; a window that cannot be made is left out.
    /// \param dfb lent for the call.
    /// \param surface not used.
    void CreateDFBWindow(IDirectFB* dfb, IDirectFBSurface* surface);

    /// The second half of the first start, after window and renderer: layouts, first layout, focus
    /// on key 0. To be called between OnIMEStart and OnIMECancelled only. Logs "Read language name
    /// error! " when there is no layout.
    void enter();

    /// Steps to the next layout's keys, the first one behind the last, with Shift and Alt off and
    /// nothing locked. Does not redraw. For started keyboards only.
    void onLayoutChanged();

    /// Takes the keys of layout, Shift and Alt as they are now and hands them to the renderer.
    /// Does not redraw. Without renderer or layouts it only logs an error line.
    void updateKeyMap();

    /// updateKeyMap, a full redraw and the focus again. For started keyboards only.
    /// \return as of FocusButtonChangedTo.
    int updateKeyBoardUI();

    /// @}
    /// \name Steps of a focus move
    /// @{

    /// Makes the key at this position the focused one, without drawing.
    /// \param id a position in the key set; one outside it changes nothing and logs an error line.
    /// \return a copy of the key that is focused now.
    Button_t getTargetButtonByButtonId(int id);

    /// Moves the focus and redraws, locked keys before the focus frame.
    /// \param id as of getTargetButtonByButtonId.
    /// \return 1, or 0 and an error line without a renderer.
    int FocusButtonChangedTo(int id);

    /// Redraws with the focus frame on the focused key. Result as of FocusButtonChangedTo.
    int sendFocusButtonToUI();

    /// Redraws with the locked keys and without a focus frame. Result as of FocusButtonChangedTo.
    int sendLockButtonToUI();

    /// Moves the focus to the focused key's neighbour. A side without a neighbour is handled too:
    /// the focus stays, an error line is logged, and the page does not get the key.
    /// \return 0, or 2 and an error line without a renderer.
    int LeftMoveProc();
    int RightMoveProc(); ///< See LeftMoveProc.
    int UpMoveProc();    ///< See LeftMoveProc.
    int DownMoveProc();  ///< See LeftMoveProc.

    /// @}
    /// \name Steps of a key press
    /// @{

    /// OK on the focused key. An ordinary key gives a key result and ends a Shift for one key; one
    /// with a negative code gives nothing.
    /// \return as of onKeyEvent.
    int EnterPressProc();

    /// OK on a focused special key, known by its text: "Shift", "Hide", "Alt" or "ClearAll", or the
    /// same in small letters; else by isLanguage. Logs an error line for one that is none of these.
    /// \return as of onKeyEvent.
    int specialButtonHandle();

    /// Shift goes from off to on for one key, to locked, to off. Always 0. For started keyboards
    /// only, as the three below.
    int shiftButtonHandle();
    int altButtonHandle();      ///< Alt goes on or off: the symbol set. Always 0.
    int hideButtonHandle();     ///< As Hide. Always 0.
    int languageButtonHandle(); ///< The next layout, the focus at the same position. Always 0.

    /// Makes the clear-all key's own codes the key result; the host clears its field. Shift for
    /// one key stays. Always 1.
    int clearButtonHandle();

    /// Makes the focused key the key result, with modifier 2 while Shift is on, and logs its code.
    /// Always true.
    bool setKeyBoardButton();

    /// Takes every key with exactly this text from those drawn as locked; does not redraw. Each is
    /// logged.
    void removeLockButton(std::string text);

    /// @}

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
