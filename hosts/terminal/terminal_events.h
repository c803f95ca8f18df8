#ifndef HOSTS_TERMINAL_TERMINAL_EVENTS_H
#define HOSTS_TERMINAL_TERMINAL_EVENTS_H

#include <vector>

#include "key_parser.h"
#include "terminal_mode.h"

namespace host
{

// What comes from the terminal, in order: keys, answers, and notices to draw again.
class TerminalEvents
{
public:
    static constexpr int kForEver = -1;

    // terminal: a descriptor of the terminal; both lent.
    TerminalEvents(int terminal, TerminalMode& mode) : m_terminal(terminal), m_mode(mode) {}

    // Waits so many milliseconds at most, or kForEver. Empty when nothing came; it may return
    // earlier with nothing.
    std::vector<Input> wait(int milliseconds);

private:
    int m_terminal;
    TerminalMode& m_mode;
    KeyParser m_parser;
};

} // namespace host

#endif
