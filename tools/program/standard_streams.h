#ifndef TOOLS_PROGRAM_STANDARD_STREAMS_H
#define TOOLS_PROGRAM_STANDARD_STREAMS_H

namespace program
{

// Whether standard input and standard output were open when the program started.
bool startedWithInput();
bool startedWithOutput();

} // namespace program

#endif
