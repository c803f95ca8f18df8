#ifndef HOSTS_TERMINAL_INTERACTIVE_H
#define HOSTS_TERMINAL_INTERACTIVE_H

#include "keyboard_host.h"
#include "planner.h"
#include "session.h"
#include "terminal_events.h"
#include "terminal_view.h"

namespace host
{

enum class Outcome {
    Submitted,
    GivenUp,
    NotUtf8, // the terminal shows UTF-8 as something else
};

// The user's keys from the terminal until the text is submitted or given up.
Outcome typeByHand(TerminalEvents& events, TerminalView& view, KeyboardHost& keyboard,
                   Session& session);

// The plan's presses, this many milliseconds apart, on a terminal that shows them.
Outcome play(const Plan& plan, int delay, TerminalEvents& events, TerminalView& view,
             Session& session);

} // namespace host

#endif
