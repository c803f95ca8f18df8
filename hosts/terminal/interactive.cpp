#include "interactive.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

#include "key_parser.h"

namespace host
{

namespace
{

const int kEscapeWait = 100; // milliseconds: a slow line may bring a sequence in pieces
const int kForEver = -1;
const int kFrameMilliseconds = 300; // of a recording by hand

enum class End { None, Submitted, GivenUp };

Press pressOf(Input input)
{
    switch (input) {
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

End whileHidden(Input input, Session& session)
{
    if (input == Input::Escape)
        return End::GivenUp;
    if (input == Input::Ok)
        session.showKeyboard();
    return End::None;
}

End handle(Input input, TerminalView& view, KeyboardHost& keyboard, Session& session)
{
    if (input == Input::EndOfInput)
        return End::GivenUp;
    if (input == Input::SixelAnswer) {
        view.sixelIsPossible();
        view.forget();
        session.draw();
        return End::None;
    }
    if (!keyboard.isShown())
        return whileHidden(input, session);
    if (input == Input::Escape) {
        session.hideKeyboard();
        return End::None;
    }
    const bool submitted =
        session.press(pressOf(input), kFrameMilliseconds) == Session::Progress::Submitted;
    return submitted ? End::Submitted : End::None;
}

} // namespace

bool typeByHand(int keys, TerminalMode& mode, TerminalView& view, KeyboardHost& keyboard,
                Session& session)
{
    KeyParser parser;
    view.askForSixel();
    session.draw();
    session.record(kFrameMilliseconds);

    pollfd sources[] = {{keys, POLLIN, 0}, {mode.redrawDescriptor(), POLLIN, 0}};
    while (true) {
        const int ready = ::poll(sources, 2, parser.waiting() ? kEscapeWait : kForEver);
        if (ready < 0 && errno != EINTR)
            return false;
        if (mode.takeRedraw()) {
            view.forget();
            session.draw();
        }

        std::vector<Input> inputs;
        if (ready == 0)
            inputs = parser.idle();
        if (ready > 0 && sources[0].revents != 0) {
            char bytes[256];
            const ssize_t count = ::read(keys, bytes, sizeof bytes);
            if (count <= 0)
                return false; // the terminal is gone
            inputs = parser.feed(std::string(bytes, static_cast<size_t>(count)));
        }
        for (const Input input : inputs) {
            const End end = handle(input, view, keyboard, session);
            if (end != End::None)
                return end == End::Submitted;
        }
    }
}

} // namespace host
