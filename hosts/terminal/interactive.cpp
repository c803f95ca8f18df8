// The two ways to type on a terminal: by hand, and by a plan that is shown.
#include "interactive.h"

#include <chrono>
#include <optional>

namespace host
{

namespace
{

const int kAnswerWait = 250;        // milliseconds that a terminal has for its answers
const int kFrameMilliseconds = 300; // of a recording by hand

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

int millisecondsUntil(Clock::time_point time)
{
    const auto left = std::chrono::ceil<milliseconds>(time - Clock::now()).count();
    return left < 0 ? 0 : static_cast<int>(left);
}

// Asks the terminal what it can show. Returns the keys that came instead of an answer.
std::vector<Input> meet(TerminalEvents& events, TerminalView& view)
{
    const Clock::time_point end = Clock::now() + milliseconds(kAnswerWait);
    std::vector<Input> keys;
    view.ask();
    while (keys.empty() && millisecondsUntil(end) > 0) {
        for (const Input& input : events.wait(millisecondsUntil(end))) {
            view.learn(input);
            if (input.kind == Input::Attributes)
                return keys;
            if (input.kind != Input::CursorAt && input.kind != Input::SixelLimit)
                keys.push_back(input);
        }
    }
    return keys;
}

Press pressOf(Input::Kind kind)
{
    switch (kind) {
    case Input::Left:
        return Press::Left;
    case Input::Up:
        return Press::Up;
    case Input::Right:
        return Press::Right;
    case Input::Down:
        return Press::Down;
    default:
        return Press::Ok;
    }
}

// What a key does, unless typing goes on.
std::optional<Outcome> pressed(Input::Kind kind, KeyboardHost& keyboard, Session& session)
{
    const bool isShown = keyboard.isShown();
    if (kind == Input::Escape && !isShown)
        return Outcome::GivenUp;
    if (kind == Input::Escape && keyboard.leaveCandidates())
        return std::nullopt;
    if (kind == Input::Escape) {
        session.hideKeyboard();
    } else if (isShown) {
        if (session.press(pressOf(kind), kFrameMilliseconds) == Session::Progress::Submitted)
            return Outcome::Submitted;
    } else if (kind == Input::Ok) {
        session.showKeyboard();
    }
    return std::nullopt;
}

std::optional<Outcome> handle(const Input& input, TerminalView& view, KeyboardHost& keyboard,
                              Session& session)
{
    switch (input.kind) {
    case Input::EndOfInput:
        return Outcome::GivenUp;
    case Input::Redraw:
        view.forget();
        return std::nullopt;
    case Input::Attributes:
    case Input::SixelLimit:
    case Input::CursorAt:
        if (view.learn(input))
            view.forget();
        return std::nullopt;
    case Input::Text:
        session.type(input.text);
        return std::nullopt;
    case Input::EraseBefore:
        session.eraseBefore();
        return std::nullopt;
    default:
        return pressed(input.kind, keyboard, session);
    }
}

// Waits, and draws anew where that is asked for. Returns false when the terminal is gone.
bool watch(int delay, TerminalEvents& events, TerminalView& view, Session& session)
{
    const Clock::time_point end = Clock::now() + milliseconds(delay);
    while (millisecondsUntil(end) > 0) {
        for (const Input& input : events.wait(millisecondsUntil(end))) {
            if (input.kind == Input::EndOfInput)
                return false;
            if (input.kind == Input::Redraw || view.learn(input)) {
                view.forget();
                session.draw();
            }
        }
    }
    return true;
}

} // namespace

Outcome typeByHand(TerminalEvents& events, TerminalView& view, KeyboardHost& keyboard,
                   Session& session)
{
    std::vector<Input> inputs = meet(events, view);
    session.record(kFrameMilliseconds);
    while (view.showsUtf8()) {
        for (const Input& input : inputs)
            if (const std::optional<Outcome> outcome = handle(input, view, keyboard, session))
                return *outcome;
        // Keys that are there already are worked off before anything is shown.
        inputs = events.wait(0);
        if (!inputs.empty())
            continue;
        session.draw();
        inputs = events.wait(TerminalEvents::kForEver);
    }
    return Outcome::NotUtf8;
}

Outcome play(const Plan& plan, int delay, TerminalEvents& events, TerminalView& view,
             Session& session)
{
    const int kLastFrameMilliseconds = 2500; // of a recording: long enough to read the text
    meet(events, view);
    session.draw();
    session.record(delay);
    for (const Press& press : plan.presses) {
        if (!view.showsUtf8())
            return Outcome::NotUtf8;
        if (!watch(delay, events, view, session))
            return Outcome::GivenUp;
        const bool isLast = &press == &plan.presses.back();
        const Session::Progress progress =
            session.press(press, isLast ? kLastFrameMilliseconds : delay);
        session.draw();
        if (progress == Session::Progress::Submitted)
            return Outcome::Submitted;
    }
    return Outcome::GivenUp;
}

} // namespace host
