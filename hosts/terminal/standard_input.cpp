#include "standard_input.h"

#include <fcntl.h>
#include <unistd.h>

namespace
{

bool was_open = false;

void look()
{
    was_open = ::fcntl(STDIN_FILENO, F_GETFD) != -1;
}

// Before any library's own start: DirectFB's keeps a copy of standard error, which takes the place
// of a closed standard input and then looks like a terminal.
__attribute__((section(".preinit_array"), used)) void (*const kLookFirst)() = look;

} // namespace

namespace host
{

bool startedWithInput()
{
    return was_open;
}

} // namespace host
