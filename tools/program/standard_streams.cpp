// Tells a standard stream that was closed from one that a library has opened since.
#include "standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace
{

bool input_was_open = false;
bool output_was_open = false;

void look()
{
    input_was_open = ::fcntl(STDIN_FILENO, F_GETFD) != -1;
    output_was_open = ::fcntl(STDOUT_FILENO, F_GETFD) != -1;
}

// Before any library's own start: DirectFB's keeps a copy of standard error, which takes the place
// of a closed standard input, which then looks like a terminal, or of a closed standard output.
__attribute__((section(".preinit_array"), used)) void (*const kLookFirst)() = look;

} // namespace

namespace program
{

bool startedWithInput()
{
    return input_was_open;
}

bool startedWithOutput()
{
    return output_was_open;
}

} // namespace program
