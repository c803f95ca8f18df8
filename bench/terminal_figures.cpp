// Prints what a press takes on a terminal, until its picture is there, as rows for bench/run.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

#include "pseudo_terminal.h"

namespace
{

using Clock = std::chrono::steady_clock;

const int kPresses = 101;
const double kMostMilliseconds = 40;
constexpr std::chrono::seconds kIdle(2);

const char* const kArrows[] = {"\033[C", "\033[C", "\033[B", "\033[D", "\033[A"};
const char kDrawn[] = "\033[?25h"; // what every picture ends with

struct Kind {
    const char* name;
    const char* term;
};

const Kind kKinds[] = {
    {"symbols", "xterm-256color"},
    {"sixel", "xterm-256color"},
    {"kitty", "xterm-kitty"},
};

[[noreturn]] void fail(const std::string& why)
{
    std::fprintf(stderr, "terminal_figures: %s\n", why.c_str());
    std::exit(1);
}

// Processor time of all the process's threads.
double milliseconds(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string word;
    double ticks = 0;
    for (int field = 1; field <= 15 && file >> word; ++field)
        if (field >= 14)
            ticks += std::atof(word.c_str());
    return ticks * 1000 / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

void measure(const Kind& kind)
{
    PseudoTerminal terminal(std::string("exec '" TERMINAL_HOST "' --picture ") + kind.name,
                            {{"TERM", kind.term}, {"COLORTERM", "truecolor"}, {"TMUX", ""}});
    terminal.resize(150, 45, 10, 20);
    if (!terminal.waitFor("Arrows move") || !terminal.waitFor(kDrawn))
        fail(std::string("no picture of the kind ") + kind.name);
    std::vector<double> times;
    for (int press = 0; press < kPresses; ++press) {
        const Clock::time_point from = Clock::now();
        terminal.send(kArrows[press % std::size(kArrows)]);
        if (!terminal.waitFor(kDrawn))
            fail("no picture after a press");
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - from).count());
    }
    const double before = milliseconds(terminal.foreground());
    std::this_thread::sleep_for(kIdle);
    const double idle = milliseconds(terminal.foreground()) - before;
    terminal.send("\003");
    if (!terminal.waitForEnd())
        fail("the host did not end");

    std::sort(times.begin(), times.end());
    std::printf(
        "terminal, %s\t%.1f\t%.0f\tms\tfrom an arrow to its whole picture at 150 by 45, median of "
        "%d; 95 per cent within %.1f, all within %.1f\n",
        kind.name, times[times.size() / 2], kMostMilliseconds, kPresses,
        times[times.size() * 95 / 100], times.back());
    std::printf("terminal, %s, idle\t%.0f\t0\tms\tprocessor time in %lld s without a key\n",
                kind.name, idle, static_cast<long long>(kIdle.count()));
}

} // namespace

int main()
{
    for (const Kind& kind : kKinds)
        measure(kind);
    return 0;
}
