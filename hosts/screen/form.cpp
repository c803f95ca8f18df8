// Leads keys to the field's keyboard while it is shown, else to the page.
#include "form.h"

#include "keyboard_constants.h"

namespace host
{

Form::Form(const Screen& screen, const KeyboardModel& model, const std::string& font)
    : m_page(screen, font), m_composer(screen, font, inputSettings("screen_host")),
      m_keyboard(screen, &model, &m_composer)
{
    m_page.draw(m_line, false, "");
}

bool Form::hasKeyboard()
{
    const bool has = m_keyboard.show();
    m_keyboard.hide();
    return has;
}

Form::Progress Form::press(const RemoteKey& key)
{
    m_page.showPressed(key);
    if (m_keyboard.isShown())
        return whileTyping(key);
    if (key.meaning == RemoteKey::Back)
        return Progress::Left;
    if (key.keyCode == velmora::browser::vkb::RemoteOk) {
        m_keyboard.show();
        m_page.draw(m_line, true, "");
    }
    return Progress::Goes;
}

void Form::release()
{
    m_page.showPressed({RemoteKey::Other, 0});
}

void Form::end(Progress progress)
{
    m_keyboard.end();
    if (progress == Progress::Submitted)
        m_page.greet(m_line.text());
}

Form::Progress Form::whileTyping(const RemoteKey& key)
{
    KeyboardHost::Answer answer;
    const std::string composed = m_keyboard.preedit();
    if (key.meaning == RemoteKey::Back && !m_keyboard.leaveCandidates())
        answer = m_keyboard.hide();
    const bool mayChoose = key.meaning == RemoteKey::ForPage && m_keyboard.candidatesHeight() > 0;
    if (key.meaning == RemoteKey::ForKeyboard || mayChoose)
        answer = m_keyboard.press(key.keyCode);
    applyAnswer(answer, m_line);
    if (answer.changesField() || composed != m_keyboard.preedit() || !m_keyboard.isShown())
        m_page.draw(m_line, m_keyboard.isShown(), m_keyboard.preedit());
    return answer.submits() ? Progress::Submitted : Progress::Goes;
}

} // namespace host
