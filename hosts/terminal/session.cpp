#include "session.h"

#include <algorithm>

#include "key_result.h"

namespace host
{

using velmora::browser::vkb::Button_t;

namespace
{

const char kShownHint[] = "Arrows move, Enter presses, Esc hides the keyboard, Ctrl-C leaves";
const char kHiddenHint[] = "Enter shows the keyboard, Esc leaves without the text";

std::string nameOf(const Button_t& key)
{
    return key.text == " " ? "space" : key.text;
}

Picture below(const Picture& upper, const Picture& lower)
{
    Picture both = upper;
    both.height += lower.height;
    both.rgba.insert(both.rgba.end(), lower.rgba.begin(), lower.rgba.end());
    return both;
}

} // namespace

Session::Session(const Screen& screen, KeyboardHost& keyboard, const KeyboardModel& model,
                 TerminalView* view, Recorder* recorder, const std::string& font)
    : m_screen(screen), m_keyboard(keyboard), m_model(model), m_view(view), m_recorder(recorder),
      m_field(screen.directFB(), font, "Your name")
{
}

Session::Progress Session::press(Press press, int milliseconds)
{
    const KeyboardHost::Answer answer = m_keyboard.press(press);
    applyAnswer(answer, m_line);
    record(milliseconds);
    return answer.submits() ? Progress::Submitted : Progress::Goes;
}

// A digit chooses, as the remote control's does; other characters come behind the word.
void Session::type(const std::string& character)
{
    const bool isDigit = character.size() == 1 && character[0] >= '1' && character[0] <= '9';
    if (isDigit && m_keyboard.candidatesHeight() > 0)
        return applyAnswer(m_keyboard.press(character[0]), m_line);
    applyAnswer(m_keyboard.finishWord(), m_line);
    m_line.insert(character);
}

void Session::eraseBefore()
{
    applyAnswer(m_keyboard.finishWord(), m_line);
    m_line.eraseBefore();
}

void Session::hideKeyboard()
{
    applyAnswer(m_keyboard.hide(), m_line);
}

void Session::draw()
{
    if (m_view == nullptr)
        return;
    Picture picture;
    TextLine shown = m_line;
    shown.insert(m_keyboard.preedit());
    Scene scene = {&shown, status(), kHiddenHint, nullptr, {}};
    if (m_keyboard.isShown()) {
        picture = m_keyboard.picture();
        const std::string candidates = m_keyboard.candidates();
        scene.hint = candidates.empty() ? kShownHint : candidates;
        scene.keyboard = &picture;
        scene.labels = labels();
    }
    m_view->draw(scene);
}

void Session::record(int milliseconds)
{
    if (m_recorder == nullptr)
        return;
    const Picture keyboard = m_keyboard.picture();
    // All pictures are as high as the highest.
    const int above = m_keyboard.candidatesRoom() - m_keyboard.candidatesHeight();
    IDirectFBSurface* page = m_screen.createSurface(keyboard.width, TextField::kHeight + above);
    page->Clear(page, 0, 0, 0, 0xFF);
    m_field.draw(page, m_line, above, true, m_keyboard.preedit());
    const Picture field = pictureOf(page);
    page->Release(page);
    m_recorder->add(below(field, keyboard), milliseconds);
}

std::string Session::status() const
{
    const KeyboardState& state = m_keyboard.state();
    const Button_t* key = m_model.focused(state);
    std::string status = m_model.layouts()[state.layout].name;
    if (state.shift == Shift::Once)
        status += ", Shift";
    if (state.shift == Shift::Locked)
        status += ", Shift locked";
    if (state.alt)
        status += ", Alt";
    if (key != nullptr)
        status += ", on: " + nameOf(*key);
    return status;
}

std::vector<Label> Session::labels() const
{
    const Button_t* focused = m_model.focused(m_keyboard.state());
    std::vector<Label> labels;
    for (const Button_t& key : m_model.face(m_keyboard.state()))
        labels.push_back({key.rect.positionX, key.rect.positionY + m_keyboard.candidatesHeight(),
                          key.rect.width, key.rect.height, key.text, &key == focused});
    return labels;
}

} // namespace host
