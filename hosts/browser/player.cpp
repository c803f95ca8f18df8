// Plays the steps of a session.
#include "player.h"

#include <algorithm>
#include <utility>

#include <glib.h>

#include "png_recorder.h"

namespace host
{

using velmora::browser::vkb::Button_t;

namespace
{

const unsigned kLookAgain = 20;     // milliseconds between two looks at an awaited state
const int kPressMilliseconds = 240; // of a recording
const int kOkMilliseconds = 700;
const int kStateMilliseconds = 1000;
const int kLastMilliseconds = 3000;
const size_t kMostFound = 200; // bytes of a page's text in a message

struct KeyMeaning {
    const char* name;
    int keyCode;
};

// Keys whose labels differ between the layouts.
const KeyMeaning kMeanings[] = {
    {"Back", 8},  {"Tab", 9},    {"ClearAll", 12}, {"Enter", 13},
    {"Left", 37}, {"Right", 39}, {"Del", 46},      {"Hide", 27},
};

bool isKey(const Button_t& key, const std::string& name)
{
    if (name == "Language")
        return key.isSpecial && key.isLanguage;
    if (key.text == name)
        return true;
    for (const KeyMeaning& meaning : kMeanings)
        if (name == meaning.name && key.keyCode == meaning.keyCode)
            return true;
    return false;
}

const char* textOf(const char* text)
{
    return text == nullptr ? "" : text;
}

} // namespace

Player::Player(const Surroundings& surroundings, std::vector<Step> steps, int patience,
               std::function<void(const std::string&)> done)
    : m_with(surroundings), m_steps(std::move(steps)), m_patience(patience), m_done(std::move(done))
{
}

void Player::start()
{
    next();
}

void Player::next()
{
    if (m_next == m_steps.size()) {
        show(kLastMilliseconds, [this] { m_done(""); });
        return;
    }
    ++m_turn;
    m_awaited = "the page to take it";
    m_found = [] { return std::string("no answer of the page"); };
    m_is_there = nullptr;
    bePatient();
    begin(m_steps[m_next++]);
}

// From now on, for one press or one state.
void Player::bePatient()
{
    if (m_alarm != 0)
        g_source_remove(m_alarm);
    m_alarm = g_timeout_add_seconds(
        static_cast<unsigned>(m_patience),
        [](gpointer data) -> gboolean {
            Player& player = *static_cast<Player*>(data);
            player.m_alarm = 0;
            player.fail(player.m_awaited, player.m_found());
            return G_SOURCE_REMOVE;
        },
        this);
}

void Player::finishStep()
{
    g_source_remove(std::exchange(m_alarm, 0U));
    next();
}

void Player::fail(const std::string& awaited, const std::string& found)
{
    if (m_alarm != 0)
        g_source_remove(std::exchange(m_alarm, 0U));
    ++m_turn;
    m_is_there = nullptr;
    const Step& step = m_steps[m_next - 1];
    m_done(step.where + ": '" + step.words + "': awaited " + awaited + ", found " + found);
}

void Player::begin(const Step& step)
{
    Browser& browser = m_with.browser;
    switch (step.kind) {
    case StepKind::Press:
        press(step.text, step.count);
        break;
    case StepKind::Type:
        type(planComposing(m_with.model, Spelling(m_with.model), browser.keyboardState(), step.text,
                           PlanEnd::Text),
             [this] { finishStep(); });
        break;
    case StepKind::Key:
        type(planKey(m_with.model, browser.keyboardState(),
                     [&step](const Button_t& key) { return isKey(key, step.text); }),
             [this] { finishStep(); });
        break;
    case StepKind::Choose:
        choose();
        break;
    case StepKind::WaitKeyboard: {
        const bool shown = step.text == "shown";
        m_awaited = "the keyboard " + step.text;
        await([&browser, shown] { return browser.keyboardIsShown() == shown; },
              [shown] { return std::string(shown ? "it hidden" : "it shown"); });
        break;
    }
    case StepKind::WaitTitle:
        m_awaited = "a title with '" + step.text + "'";
        await(
            [&browser, &step] {
                const std::string title = textOf(webkit_web_view_get_title(browser.view()));
                return title.find(step.text) != std::string::npos;
            },
            [&browser] {
                return "'" + std::string(textOf(webkit_web_view_get_title(browser.view()))) + "'";
            });
        break;
    case StepKind::WaitPage:
        m_awaited = "a page with '" + step.text + "'";
        m_page_text.clear();
        await(
            [this, &step] {
                const bool isThere = m_page_text.find(step.text) != std::string::npos;
                if (!isThere)
                    askForText();
                return isThere;
            },
            [this] { return "'" + m_page_text.substr(0, kMostFound) + "'"; });
        break;
    case StepKind::Picture:
        show(0, [this] { takePicture(); });
        break;
    case StepKind::Reload:
        load([&browser] { browser.reload(); });
        break;
    case StepKind::Back:
        load([&browser] { browser.goBack(); });
        break;
    }
}

// Does what loads a page, and goes on when it is there.
void Player::load(const std::function<void()>& begin)
{
    m_awaited = "the page";
    const unsigned turn = m_turn;
    m_with.browser.whenLoaded([this, turn] {
        if (turn == m_turn)
            show(kPressMilliseconds, [this] { finishStep(); });
    });
    begin();
}

void Player::press(const std::string& key, int count)
{
    if (count == 0) {
        finishStep();
        return;
    }
    bePatient();
    press(remoteKey(key));
    show(kPressMilliseconds, [this, key, count] { press(key, count - 1); });
}

void Player::press(const RemoteKey& key)
{
    if (m_with.recording != nullptr)
        m_with.recording->press(key);
    m_with.browser.press(key);
}

// Takes the candidate by its digit, behind as many pages as it takes.
void Player::choose()
{
    const std::string& wanted = m_steps[m_next - 1].text;
    const input_methods::Answer shown = m_with.browser.candidates();
    const auto found = std::find(shown.candidates.begin(), shown.candidates.end(), wanted);
    if (found != shown.candidates.end()) {
        press(std::to_string(found - shown.candidates.begin() + 1), 1);
        return;
    }
    if (!shown.hasNext) {
        fail("a candidate '" + wanted + "'",
             shown.candidates.empty() ? "none" : "the last, '" + shown.candidates.back() + "'");
        return;
    }
    type(planKey(m_with.model, m_with.browser.keyboardState(),
                 [](const Button_t& key) { return isKey(key, "Right"); }),
         [this] { choose(); });
}

void Player::type(const Plan& plan, std::function<void()> then)
{
    if (!m_with.browser.keyboardIsShown()) {
        fail("a keyboard to type with", "it hidden");
        return;
    }
    if (!plan.possible) {
        fail("keys that can do it", plan.obstacle.empty() ? "no such key in the layouts"
                                                          : "none for '" + plan.obstacle + "'");
        return;
    }
    std::vector<Press> presses = plan.presses;
    std::reverse(presses.begin(), presses.end());
    play(std::move(presses), std::move(then));
}

// presses: the next one last.
void Player::play(std::vector<Press> presses, std::function<void()> then)
{
    if (presses.empty()) {
        then();
        return;
    }
    if (!m_with.browser.keyboardIsShown()) {
        fail("the keyboard until all is typed",
             "it hidden " + std::to_string(presses.size()) + " presses before the end");
        return;
    }
    bePatient();
    press(RemoteKey{RemoteKey::ForKeyboard, static_cast<int>(presses.back())});
    const bool isOk = presses.back() == Press::Ok;
    presses.pop_back();
    show(isOk ? kOkMilliseconds : kPressMilliseconds,
         [this, presses, then] { play(presses, then); });
}

// Goes on when what was pressed has arrived; with a recording when it can also be seen.
void Player::show(int milliseconds, std::function<void()> then)
{
    const unsigned turn = m_turn;
    const bool isSeen = m_with.recording != nullptr || milliseconds == 0;
    auto goOn = [this, turn, milliseconds, then] {
        if (turn != m_turn)
            return;
        if (m_with.recording != nullptr && milliseconds > 0)
            m_with.recording->add(milliseconds);
        then();
    };
    if (isSeen)
        m_with.browser.whenShown(goOn);
    else
        m_with.browser.whenHandled(goOn);
}

void Player::await(std::function<bool()> isThere, std::function<std::string()> found)
{
    m_is_there = std::move(isThere);
    m_found = std::move(found);
    check();
}

void Player::check()
{
    if (!m_is_there)
        return;
    if (m_is_there()) {
        m_is_there = nullptr;
        show(kStateMilliseconds, [this] { finishStep(); });
        return;
    }
    g_timeout_add(
        kLookAgain,
        [](gpointer player) -> gboolean {
            static_cast<Player*>(player)->check();
            return G_SOURCE_REMOVE;
        },
        this);
}

void Player::askForText()
{
    const unsigned turn = m_turn;
    m_with.browser.pageText([this, turn](const std::string& text) {
        if (turn == m_turn)
            m_page_text = text;
    });
}

void Player::takePicture()
{
    writePng(m_steps[m_next - 1].text, wholeScreen(m_with.screen));
    finishStep();
}

} // namespace host
