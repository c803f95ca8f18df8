#ifndef KEYBOARD_HOST_H
#define KEYBOARD_HOST_H

#include "keyboard_core.h"
#include "picture.h"
#include "screen.h"

#include "keyboard_model.h"

namespace host
{

// The keyboard embedded as a browser embeds it, on a screen that nobody needs to have.
class KeyboardHost
{
public:
    KeyboardHost();

    // Returns false when there are no layouts to start with.
    bool start();
    void cancel();

    // Feeds one key. Returns true when a key result is ready in result.
    bool press(Press press, velmora::browser::vkb::OsButton_t& result);

    void show() { m_core.Show(); }
    void hide() { m_core.Hide(); }
    bool isShown() { return m_core.isShow(); }

    // The keyboard as a viewer sees it.
    Picture picture();

    const Screen& screen() const { return m_screen; }

private:
    Screen m_screen;
    velmora::browser::vkb::KeyBoardCore m_core;
};

} // namespace host

#endif
