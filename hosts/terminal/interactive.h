#ifndef INTERACTIVE_H
#define INTERACTIVE_H

#include "session.h"
#include "terminal_mode.h"
#include "terminal_view.h"

namespace host
{

// Lets the user type until the text is submitted (true) or given up (false). keys: a descriptor
// of the terminal that keys come from.
bool typeByHand(int keys, TerminalMode& mode, TerminalView& view, KeyboardHost& keyboard,
                Session& session);

} // namespace host

#endif
