#ifndef HOSTS_TERMINAL_STANDARD_INPUT_H
#define HOSTS_TERMINAL_STANDARD_INPUT_H

namespace host
{

// Whether standard input and standard output were open when the program started.
bool startedWithInput();
bool startedWithOutput();

} // namespace host

#endif
