// The line of progress on standard error.
#include "progress.h"

#include <cstdio>

#include <unistd.h>

namespace host
{

Progress::Progress(size_t presses, std::chrono::milliseconds interval)
    : m_presses(presses), m_interval(interval), m_next(Clock::now() + interval),
      m_on_terminal(::isatty(STDERR_FILENO) != 0)
{
}

Progress::~Progress()
{
    if (m_shown && m_on_terminal)
        std::fputs("\r\033[K", stderr);
}

void Progress::step()
{
    ++m_done;
    if (Clock::now() < m_next)
        return;
    m_next += m_interval;
    m_shown = true;
    std::fprintf(stderr,
                 m_on_terminal ? "\rterminal_host: press %zu of %zu"
                               : "terminal_host: press %zu of %zu\n",
                 m_done, m_presses);
}

} // namespace host
