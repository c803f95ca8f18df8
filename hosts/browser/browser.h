// A browser as a television has it: page, keyboard and remote control together.
#ifndef HOSTS_BROWSER_BROWSER_H
#define HOSTS_BROWSER_BROWSER_H

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "composer.h"
#include "keyboard_host.h"
#include "remote_keys.h"
#include "screen.h"

#include "engine.h"
#include "input_method.h"
#include "page_input.h"
#include "page_window.h"
#include "panel.h"
#include "waits.h"

namespace host
{

struct PageQuestion;

// What has the focus in the page, as field_watch.js tells it.
struct PageFocus {
    std::string frame;
    int serial = 0;   // another number for each element of the frame
    std::string kind; // text, closed, toggle, select, frame, other, none
    bool password = false;
    bool address = false; // of a page or a mailbox, or a number
};

bool isSame(const PageFocus& a, const PageFocus& b);

// A television's browser: one page, the keyboard above it, and a remote control.
class Browser
{
public:
    struct Setup {
        std::string font; // empty: there is none, and so no keyboard
        bool sandbox = true;
        std::function<void()> end;                        // the viewer leaves
        std::function<void(const std::string&)> complain; // in a line for standard error
        std::function<void()> shown;                      // another picture of the page; or null
    };

    // screen and model are lent; a model without layouts is a browser without a keyboard.
    Browser(const Screen& screen, const KeyboardModel& model, Setup setup);

    // From now on pages show no caret, whose blinking makes each recording another one.
    void hideCaret();

    void open(const std::string& url);
    void reload();

    // In the history; on the first page the browser ends.
    void goBack();

    // One press of the remote control. isHeld: the key was down before, so this is a repetition.
    void press(const RemoteKey& key, bool isHeld = false);

    // Calls back once the page has handled the presses before; whenShown also waits until what
    // came of them is on the screen.
    void whenHandled(std::function<void()> done);
    void whenShown(std::function<void()> done);

    // Calls back once the page that is loaded next is complete, or has failed.
    void whenLoaded(std::function<void()> done);

    // Calls back with the text that the page or its open dialog shows; empty while the page cannot
    // answer.
    void pageText(std::function<void(const std::string&)> done);

    bool keyboardIsShown() { return m_keyboard.isShown(); }
    const KeyboardState& keyboardState() const { return m_keyboard.state(); }

    // What there is to choose; without candidates when there is nothing, or no keyboard.
    input_methods::Answer candidates() const;

    // Where what is typed goes into the page: an input method takes its place between.
    PageInput& input() { return m_input; }
    WebKitWebView* view() const { return m_engine.view(); }

private:
    void connect();
    void takeMessage(JSCValue* message);
    void takeFocus(const PageFocus& focus, bool isTop, bool isGone);
    void takeLoad(WebKitLoadEvent event);
    void takeCommit();
    bool takeFailure(const std::string& url, const GError& error);
    void takeTermination();
    bool takeDialog(WebKitScriptDialog* dialog);
    bool takeMenu(WebKitOptionMenu* menu);

    bool fieldIsEntered() const;
    input_methods::Field fieldKind() const;
    void enterField(input_methods::Field kind);
    void dropWord();
    void follow();
    void showKeyboard();
    void hideKeyboard();
    enum class Caret { Same, Moved };
    void makeRoom(Caret news, bool mayScroll);
    void giveRoomBack();
    void ask(const PageQuestion& asked);
    void load(std::string url);
    void tell(const std::string& title, const std::string& text, const std::string& label,
              const std::string& url);

    bool pressOnKeyboard(const RemoteKey& key);
    void give(const KeyboardHost::Answer& answer);
    void giveToLine(const KeyboardHost::Answer& answer);
    void pressOnPanel(const RemoteKey& key);
    void pressOnPage(int keyCode);
    void openMenu();
    void pressInField(int keyCode);

    Setup m_setup;
    bool m_has_keyboard;
    PageWindow m_window;
    std::unique_ptr<Composer> m_composer; // null without a keyboard
    KeyboardHost m_keyboard;
    Engine m_engine;
    InputMethod m_method;
    PageInput m_input;
    std::unique_ptr<Panel> m_panel; // null without a font
    PageFocus m_focus;
    PageFocus m_shown_for; // the field that the keyboard was last shown for
    bool m_engine_focused = false;
    CaretArea m_caret = {};
    bool m_has_room = false; // the page made room for the keyboard
    int m_bar_room = 0;      // pixels of it for candidates
    Waits m_waits;
    std::vector<std::function<void()>> m_load_waits;
    std::string m_preedit; // what the page was last told is being composed
    input_methods::Field m_field_kind = input_methods::Field::Text;
    std::string m_notice_link; // where OK leads from a notice of ours; empty: no notice is shown
    int m_changes = 0;         // of who gets the keys: page, keyboard, panel
    int m_changes_before = 0;  // when the key that is down now was pressed
};

} // namespace host

#endif
