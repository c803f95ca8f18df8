// Waits for the terminal's keys and the process's notices at once.
#include "terminal_events.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace host
{

namespace
{

const int kEscapeWait = 100; // milliseconds: a slow line may bring a sequence in pieces

} // namespace

std::vector<Input> TerminalEvents::wait(int milliseconds)
{
    const bool isBrief = milliseconds >= 0 && milliseconds < kEscapeWait;
    pollfd sources[] = {{m_terminal, POLLIN, 0}, {m_mode.redrawDescriptor(), POLLIN, 0}};
    const int ready =
        ::poll(sources, 2, m_parser.waiting() && !isBrief ? kEscapeWait : milliseconds);
    if (ready < 0 && errno != EINTR)
        return {Input::EndOfInput};

    std::vector<Input> inputs;
    if (m_mode.takeRedraw())
        inputs.emplace_back(Input::Redraw);
    if (ready == 0 && !isBrief)
        return m_parser.idle();
    if (ready <= 0 || sources[0].revents == 0)
        return inputs;
    char bytes[4096];
    const ssize_t count = ::read(m_terminal, bytes, sizeof bytes);
    if (count < 0 && errno == EINTR)
        return inputs;
    if (count <= 0) {
        inputs.emplace_back(Input::EndOfInput);
        return inputs;
    }
    for (Input& input : m_parser.feed(std::string(bytes, static_cast<size_t>(count))))
        inputs.push_back(std::move(input));
    return inputs;
}

} // namespace host
