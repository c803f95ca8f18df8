// The page's form: one field, its keyboard, and what the remote control's keys do to them.
#ifndef HOSTS_SCREEN_FORM_H
#define HOSTS_SCREEN_FORM_H

#include <string>

#include "keyboard_host.h"
#include "text_line.h"

#include "page.h"
#include "remote_keys.h"

namespace host
{

class Form
{
public:
    enum class Progress { Goes, Submitted, Left };

    // All lent.
    Form(const Screen& screen, const KeyboardModel& model, const std::string& font);

    // False when there are no layouts.
    bool hasKeyboard();

    // A key of the remote control goes down and up.
    Progress press(const RemoteKey& key);
    void release();

    // The keyboard goes; a submitted name is greeted.
    void end(Progress progress);

    const std::string& text() const { return m_line.text(); }

private:
    Progress whileTyping(const RemoteKey& key);

    Page m_page;
    Composer m_composer;
    KeyboardHost m_keyboard;
    TextLine m_line;
};

} // namespace host

#endif
