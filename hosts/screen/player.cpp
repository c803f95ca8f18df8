// Plays presses, each with a rest, so that a viewer can follow them.
#include "player.h"

#include <chrono>
#include <thread>

#include "keyboard_constants.h"
#include "picture.h"

namespace host
{

using velmora::browser::vkb::RemoteOk;

namespace
{

// In milliseconds.
const int kRestAtStart = 1600;
const int kRestWithKeyboard = 900;
const int kArrowLit = 170;
const int kArrowDark = 90;
const int kOkLit = 380;
const int kOkDark = 320;
const int kRestAtEnd = 3000;

// The words, the field, the keyboard and the remote control; half as large, which is as wide as a
// column of text on a web page.
Picture recorded(const Screen& screen)
{
    return halved(screen.picture({254, 200, 1660, 880}));
}

} // namespace

Player::Player(Form& form, const Screen& screen, const std::vector<std::string>& files)
    : m_form(form), m_screen(screen)
{
    for (const std::string& file : files)
        m_recorders.push_back(makeRecorder(file, RecorderColours::All));
}

Form::Progress Player::play(const Plan& plan)
{
    show(kRestAtStart);
    press({RemoteKey::ForKeyboard, RemoteOk}, kOkLit, kRestWithKeyboard);
    Form::Progress progress = Form::Progress::Goes;
    for (const Press each : plan.presses) {
        const bool isOk = each == Press::Ok;
        progress = press({RemoteKey::ForKeyboard, static_cast<int>(each)},
                         isOk ? kOkLit : kArrowLit, isOk ? kOkDark : kArrowDark);
    }
    m_form.end(progress);
    show(kRestAtEnd);
    for (const std::unique_ptr<Recorder>& recorder : m_recorders)
        recorder->finish();
    return progress;
}

Form::Progress Player::press(const RemoteKey& key, int litMilliseconds, int darkMilliseconds)
{
    const Form::Progress progress = m_form.press(key);
    show(litMilliseconds);
    m_form.release();
    show(darkMilliseconds);
    return progress;
}

void Player::show(int milliseconds)
{
    if (m_recorders.empty()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
        return;
    }
    const Picture picture = recorded(m_screen);
    for (const std::unique_ptr<Recorder>& recorder : m_recorders)
        recorder->add(picture, milliseconds);
}

} // namespace host
