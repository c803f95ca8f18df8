#ifndef STANDARD_INPUT_H
#define STANDARD_INPUT_H

namespace host
{

// Whether standard input was open when the program started.
bool startedWithInput();

} // namespace host

#endif
