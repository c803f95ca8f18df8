// The one way in which every host here uses the keyboard.
#include "keyboard_host.h"

#include "keyboard_constants.h"

#include "text_line.h"

namespace host
{

using namespace velmora::browser::vkb;

KeyboardHost::KeyboardHost(const Screen& screen, const KeyboardModel* model, Composer* composer)
    : m_screen(screen), m_model(model), m_composer(composer)
{
}

bool KeyboardHost::show()
{
    if (!m_core.isKeyBoardEnable())
        m_state = KeyboardState();
    m_core.OnIMEStart(m_screen.directFB(), nullptr); // a page's surface; the keyboard leaves it be
    if (m_composer != nullptr && m_core.isKeyBoardEnable())
        m_composer->setLayout(m_core.currentLayout());
    return m_core.isKeyBoardEnable();
}

KeyboardHost::Answer KeyboardHost::hide()
{
    if (isShown())
        m_core.Hide();
    return finishWord();
}

KeyboardHost::Answer KeyboardHost::finishWord()
{
    Answer answer;
    if (m_composer != nullptr)
        compose(m_composer->finish(), answer);
    return answer;
}

void KeyboardHost::end()
{
    if (m_composer != nullptr)
        m_composer->enterField(input_methods::Field::Text); // nothing is composed any more
    m_core.OnIMECancelled();
}

KeyboardHost::Answer KeyboardHost::press(int keyCode)
{
    Answer answer;
    if (isShown() && pressAmongCandidates(keyCode, answer)) {
        answer.taken = true;
        return answer;
    }
    const int handling = m_core.onKeyEvent(keyCode);
    answer.taken = handling != AnswerNotHandled;
    if (!answer.taken)
        return answer;
    if (m_model != nullptr)
        m_state = m_model->after(m_state, static_cast<Press>(keyCode)).state;
    if (handling == AnswerKeyResult)
        takeResult(answer);
    if (m_composer != nullptr) // the key may have been the language's or the one that hides
        compose(isShown() ? m_composer->setLayout(m_core.currentLayout()) : m_composer->finish(),
                answer);
    return answer;
}

bool KeyboardHost::pressAmongCandidates(int keyCode, Answer& answer)
{
    if (m_composer == nullptr || !m_composer->offers())
        return false;
    if (keyCode >= '1' && keyCode <= '9') { // the remote control's, by the browser's codes
        compose(m_composer->choose(keyCode - '0'), answer);
        return true;
    }
    if (keyCode > RemoteDown)
        return false; // of the page, such as the colours
    if (m_composer->isInBar()) {
        compose(m_composer->pressInBar(keyCode), answer);
        return true;
    }
    if (keyCode != RemoteUp || m_model == nullptr || !m_model->isInTopRow(m_state))
        return false;
    m_composer->enterBar();
    return true;
}

void KeyboardHost::takeResult(Answer& answer)
{
    OsButton_t result = {};
    m_core.getKeyBoardButton(result);
    Composed composed;
    if (m_composer != nullptr && m_composer->offers() && result.keyCode == KeyCodeTab) {
        m_composer->enterBar();
        composed.used = true;
    } else if (m_composer != nullptr) {
        composed = m_composer->feed(result);
    }
    compose(composed, answer);
    if (composed.used)
        return;
    answer.hasEdit = true;
    answer.edit = editOf(result);
}

void KeyboardHost::compose(const Composed& composed, Answer& answer)
{
    answer.takeBack += composed.takeBack;
    answer.text += composed.commit;
}

bool KeyboardHost::leaveCandidates()
{
    if (m_composer == nullptr || !m_composer->isInBar())
        return false;
    m_composer->leaveBar();
    return true;
}

std::string KeyboardHost::candidates() const
{
    if (m_composer == nullptr || !m_composer->offers())
        return "";
    const input_methods::Answer& shown = m_composer->shown();
    std::string words = shown.hasPrevious ? "<" : "";
    for (size_t i = 0; i < shown.candidates.size(); ++i) {
        const bool hasFocus = static_cast<int>(i) == m_composer->focus();
        words += (words.empty() ? "" : "  ") + std::to_string(i + 1) + " " + (hasFocus ? "[" : "") +
                 shown.candidates[i] + (hasFocus ? "]" : "");
    }
    return words + (shown.hasNext ? "  >" : "");
}

int KeyboardHost::candidatesHeight() const
{
    return m_composer != nullptr && m_composer->offers() ? CandidateBar::kHeight : 0;
}

int KeyboardHost::candidatesRoomNow() const
{
    return m_composer != nullptr && m_composer->mayOffer(m_core.currentLayout())
               ? CandidateBar::kHeight
               : 0;
}

int KeyboardHost::candidatesRoom() const
{
    if (m_composer == nullptr || m_model == nullptr)
        return 0;
    for (const Layout& layout : m_model->layouts())
        if (m_composer->mayOffer(layout.name))
            return CandidateBar::kHeight;
    return 0;
}

Picture KeyboardHost::picture()
{
    return m_screen.picture({kWindowX, kWindowY - candidatesHeight(), m_core.getWidth(),
                             m_core.getHeight() + candidatesHeight()});
}

void applyAnswer(const KeyboardHost::Answer& answer, TextLine& line)
{
    for (int i = 0; i < answer.takeBack; ++i)
        line.eraseBefore();
    line.insert(answer.text);
    if (answer.hasEdit)
        applyEdit(answer.edit, line);
}

} // namespace host
