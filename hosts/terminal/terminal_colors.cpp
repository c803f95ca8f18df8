// Alone in its file, as the terminal database's header makes macros of many short words.
#include "terminal_colors.h"

#include <algorithm>

#include <curses.h>
#include <term.h>
#include <unistd.h>

namespace host
{

int terminalColors()
{
    int found = 0;
    if (setupterm(nullptr, STDERR_FILENO, &found) != OK)
        return -1;
    return std::max(0, tigetnum("colors"));
}

} // namespace host
