#ifndef HOSTS_TERMINAL_PROGRESS_H
#define HOSTS_TERMINAL_PROGRESS_H

#include <chrono>
#include <cstddef>

namespace host
{

// Says on standard error how far a long row of presses is: after each interval, on a terminal in
// one line that goes at the end.
class Progress
{
public:
    explicit Progress(size_t presses, std::chrono::milliseconds interval = std::chrono::seconds(1));
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Before each press.
    void step();

private:
    using Clock = std::chrono::steady_clock;

    size_t m_presses;
    size_t m_done = 0;
    std::chrono::milliseconds m_interval;
    Clock::time_point m_next;
    bool m_on_terminal;
    bool m_shown = false;
};

} // namespace host

#endif
