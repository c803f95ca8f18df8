// The one way in which every host here uses the keyboard.
#ifndef HOSTS_SHARED_KEYBOARD_HOST_H
#define HOSTS_SHARED_KEYBOARD_HOST_H

#include "keyboard_core.h"

#include "key_result.h"
#include "keyboard_model.h"
#include "picture.h"
#include "screen.h"

namespace host
{

// The keyboard as a host embeds it: started when a field is entered, fed with the remote control's
// keys, hidden when the field is left, ended when there is nothing more to type.
class KeyboardHost
{
public:
    // Both lent. With the model of the installed layouts the keyboard's state is followed.
    explicit KeyboardHost(const Screen& screen, const KeyboardModel* model = nullptr);

    // A field is entered: the keyboard is shown, with the focus where it was. Returns false when
    // there are no layouts to start with.
    bool show();

    // The field is left; the keyboard takes no keys until it is shown again.
    void hide();

    // Text input is over. The next show begins at the first layout.
    void end();

    bool isShown() { return m_core.isKeyBoardEnable() && m_core.isShow(); }

    // What became of a key.
    struct Answer {
        bool taken = false;   // false: the page gets the key
        bool hasEdit = false; // what to do with the field
        Edit edit = {};
    };

    // keyCode: the browser's key event code of the remote control's key.
    Answer press(int keyCode);
    Answer press(Press key) { return press(static_cast<int>(key)); }

    // Where the keyboard is now; needs the model.
    const KeyboardState& state() const { return m_state; }

    // The keyboard as a viewer sees it.
    Picture picture();

private:
    const Screen& m_screen;
    const KeyboardModel* m_model;
    velmora::browser::vkb::KeyBoardCore m_core;
    KeyboardState m_state;
};

} // namespace host

#endif
