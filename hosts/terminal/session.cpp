#include "session.h"

#include <algorithm>

#include "key_result.h"

namespace host
{

using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::OsButton_t;

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

Session::Session(KeyboardHost& keyboard, const KeyboardModel& model, TerminalView* view,
                 Recorder* recorder, const std::string& font)
    : m_keyboard(keyboard), m_model(model), m_view(view), m_recorder(recorder),
      m_field(keyboard.screen().directFB(), font, "Your name")
{
}

Session::Progress Session::press(Press press, int milliseconds)
{
    OsButton_t result = {};
    const bool ready = m_keyboard.press(press, result);
    if (m_keyboard.isShown())
        m_state = m_model.after(m_state, press).state;

    Progress progress = Progress::Goes;
    if (ready &&
        applyKeyResult(result.keyCode, result.character, result.text, m_line) == KeyAction::Submit)
        progress = Progress::Submitted;
    draw();
    record(milliseconds);
    return progress;
}

void Session::hideKeyboard()
{
    m_keyboard.hide();
    draw();
}

void Session::showKeyboard()
{
    m_keyboard.show();
    draw();
}

void Session::draw()
{
    if (m_view == nullptr)
        return;
    Picture picture;
    Scene scene = {&m_line, status(), kHiddenHint, nullptr, {}};
    if (m_keyboard.isShown()) {
        picture = m_keyboard.picture();
        scene.hint = kShownHint;
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
    IDirectFBSurface* page = m_keyboard.screen().createSurface(keyboard.width, TextField::kHeight);
    page->Clear(page, 0, 0, 0, 0xFF);
    m_field.draw(page, m_line, 0, true);
    const Picture field = pictureOf(page);
    page->Release(page);
    m_recorder->add(below(field, keyboard), milliseconds);
}

std::string Session::status() const
{
    const Button_t* key = m_model.focused(m_state);
    std::string status = m_model.layouts()[m_state.layout].name;
    if (m_state.shift == Shift::Once)
        status += ", Shift";
    if (m_state.shift == Shift::Locked)
        status += ", Shift locked";
    if (m_state.alt)
        status += ", Alt";
    if (key != nullptr)
        status += ", on: " + nameOf(*key);
    return status;
}

std::vector<Label> Session::labels() const
{
    const Button_t* focused = m_model.focused(m_state);
    std::vector<Label> labels;
    for (const Button_t& key : m_model.face(m_state))
        labels.push_back({key.rect.positionX, key.rect.positionY, key.rect.width, key.rect.height,
                          key.text, &key == focused});
    return labels;
}

} // namespace host
