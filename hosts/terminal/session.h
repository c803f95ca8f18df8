#ifndef HOSTS_TERMINAL_SESSION_H
#define HOSTS_TERMINAL_SESSION_H

#include <chrono>
#include <memory>
#include <string>

#include "text_field.h"
#include "text_line.h"

#include "keyboard_host.h"
#include "keyboard_model.h"
#include "recorder.h"
#include "terminal_view.h"

namespace host
{

// One text field with its keyboard, from the first press to the submitted or given up text.
class Session
{
public:
    enum class Progress { Goes, Submitted };

    // Everything is lent; view and recorder may be null.
    Session(const Screen& screen, KeyboardHost& keyboard, const KeyboardModel& model,
            TerminalView* view, Recorder* recorder, const std::string& font);

    // milliseconds: how long what this press shows stays, for the recording.
    Progress press(Press press, int milliseconds);

    // What a computer's keyboard does to the line.
    void type(const std::string& character);
    void eraseBefore();

    void hideKeyboard();
    void showKeyboard() { m_keyboard.show(); }

    // Shows what the calls before have changed.
    void draw();
    void record(int milliseconds);

    const std::string& text() const { return m_line.text(); }

private:
    std::string status() const;
    std::vector<Label> labels() const;

    const Screen& m_screen;
    KeyboardHost& m_keyboard;
    const KeyboardModel& m_model;
    TerminalView* m_view;
    Recorder* m_recorder;
    TextField m_field;
    TextLine m_line;
};

} // namespace host

#endif
