// The line of progress on standard error.
#include "progress.h"

#include <cstdio>

#include <unistd.h>

namespace host
{

namespace
{

const std::chrono::seconds kInterval(1);

} // namespace

Progress::Progress(size_t presses)
    : m_presses(presses), m_next(Clock::now() + kInterval),
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
    m_next += kInterval;
    m_shown = true;
    std::fprintf(stderr,
                 m_on_terminal ? "\rterminal_host: press %zu of %zu"
                               : "terminal_host: press %zu of %zu\n",
                 m_done, m_presses);
}

} // namespace host
