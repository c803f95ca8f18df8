// The one way in which every host here uses the keyboard.
#include "keyboard_host.h"

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;

KeyboardHost::KeyboardHost(const Screen& screen, const KeyboardModel* model)
    : m_screen(screen), m_model(model)
{
}

bool KeyboardHost::show()
{
    if (!m_core.isKeyBoardEnable())
        m_state = KeyboardState();
    m_core.OnIMEStart(m_screen.directFB(), nullptr); // a page's surface; the keyboard leaves it be
    return m_core.isKeyBoardEnable();
}

void KeyboardHost::hide()
{
    if (isShown())
        m_core.Hide();
}

void KeyboardHost::end()
{
    m_core.OnIMECancelled();
}

KeyboardHost::Answer KeyboardHost::press(int keyCode)
{
    Answer answer;
    const int handling = m_core.onKeyEvent(keyCode);
    answer.taken = handling != AnswerNotHandled;
    if (!answer.taken)
        return answer;
    if (m_model != nullptr)
        m_state = m_model->after(m_state, static_cast<Press>(keyCode)).state;
    if (handling == AnswerKeyResult) {
        OsButton_t result = {};
        m_core.getKeyBoardButton(result);
        answer.hasEdit = true;
        answer.edit = editOf(result);
    }
    return answer;
}

Picture KeyboardHost::picture()
{
    return m_screen.picture({kWindowX, kWindowY, m_core.getWidth(), m_core.getHeight()});
}

} // namespace host
