#ifndef HOSTS_TERMINAL_TERMINAL_COLORS_H
#define HOSTS_TERMINAL_TERMINAL_COLORS_H

namespace host
{

// How many colours the terminal database gives for the terminal that TERM names: 0 for none, -1
// when it does not know the terminal.
int terminalColors();

} // namespace host

#endif
