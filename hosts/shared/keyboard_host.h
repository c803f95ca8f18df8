// The one way in which every host here uses the keyboard.
#ifndef HOSTS_SHARED_KEYBOARD_HOST_H
#define HOSTS_SHARED_KEYBOARD_HOST_H

#include <string>

#include "keyboard_core.h"

#include "composer.h"
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
    // All lent. With the model of the installed layouts the keyboard's state is followed; with a
    // composer, languages that compose or convert are typed.
    explicit KeyboardHost(const Screen& screen, const KeyboardModel* model = nullptr,
                          Composer* composer = nullptr);

    // A field is entered: the keyboard is shown, with the focus where it was. Returns false when
    // there are no layouts to start with.
    bool show();

    // What became of a key. The field gets it in this order: so many characters before the caret
    // go, text comes in, then the edit.
    struct Answer {
        bool taken = false; // false: the page gets the key
        int takeBack = 0;   // code points
        std::string text;   // composed, UTF-8
        bool hasEdit = false;
        Edit edit = {};

        bool changesField() const { return takeBack > 0 || !text.empty() || hasEdit; }
        bool submits() const { return hasEdit && edit.action == KeyAction::Submit; }
    };

    // The field is left; the keyboard takes no keys until it is shown again. What is being
    // composed goes into the field.
    Answer hide();

    // The word that is being composed goes into the field.
    Answer finishWord();

    // Text input is over. The next show begins at the first layout.
    void end();

    bool isShown() { return m_core.isKeyBoardEnable() && m_core.isShow(); }

    // keyCode: the browser's key event code of the remote control's key.
    Answer press(int keyCode);
    Answer press(Press key) { return press(static_cast<int>(key)); }

    // The remote control's Back: takes the focus out of the candidates. Returns false, and does
    // nothing, when it is not there.
    bool leaveCandidates();

    // What is being composed, for the field to show at its caret.
    std::string preedit() const { return m_composer == nullptr ? "" : m_composer->preedit(); }

    // What there is to choose, in words: "1 A  2 [B]", with brackets around the focus; or empty.
    std::string candidates() const;

    // Where the keyboard is now; needs the model.
    const KeyboardState& state() const { return m_state; }

    // The keyboard as a viewer sees it, with the candidates above it: so many pixels of height.
    Picture picture();
    int candidatesHeight() const;

    // The most that it will be in the layout that is shown, and in any layout of the model.
    int candidatesRoomNow() const;
    int candidatesRoom() const;

private:
    void compose(const Composed& composed, Answer& answer);
    bool pressAmongCandidates(int keyCode, Answer& answer);
    void takeResult(Answer& answer);

    const Screen& m_screen;
    const KeyboardModel* m_model;
    Composer* m_composer;
    velmora::browser::vkb::KeyBoardCore m_core;
    KeyboardState m_state;
};

class TextLine;

// Does to a line what the answer says.
void applyAnswer(const KeyboardHost::Answer& answer, TextLine& line);

} // namespace host

#endif
