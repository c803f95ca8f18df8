#include "keyboard_host.h"

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

// The size that the keyboard's place is made for; the dummy system has no display.
const Screen::Option kScreenOptions[] = {
    {"system", "dummy"},    {"mode", "1920x1080"},      {"quiet", nullptr},
    {"no-cursor", nullptr}, {"no-sighandler", nullptr}, {"no-deinit-check", nullptr},
    {nullptr, nullptr},
};

} // namespace

KeyboardHost::KeyboardHost() : m_screen(kScreenOptions) {}

bool KeyboardHost::start()
{
    m_core.OnIMEStart(m_screen.directFB(), nullptr); // a page's surface; the keyboard leaves it be
    return m_core.isKeyBoardEnable();
}

void KeyboardHost::cancel()
{
    m_core.OnIMECancelled();
}

bool KeyboardHost::press(Press press, OsButton_t& result)
{
    if (m_core.onKeyEvent(static_cast<int>(press)) != AnswerKeyResult)
        return false;
    m_core.getKeyBoardButton(result);
    return true;
}

Picture KeyboardHost::picture()
{
    return m_screen.picture({kWindowX, kWindowY, m_core.getWidth(), m_core.getHeight()});
}

} // namespace host
