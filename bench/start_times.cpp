// Time until the keyboard is shown and memory after that, beside a program that makes the same
// DirectFB calls; and memory after many arrow keys.
//
// Usage: start_times start PAIRS | start_times arrows COUNT    (rows on file descriptor 3)
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench_layout.h"
#include "report_fd.h"

using test_support::LayoutFolder;

namespace
{

const int kArrowRuns = 3;

[[noreturn]] void fail(const char* why)
{
    std::fprintf(stderr, "start_times: %s\n", why);
    std::exit(1);
}

struct Start {
    double secondsUntilShown = 0; // 0: it was never shown
    long residentKiB = 0;
    long residentBeforeArrows = 0;
    long residentAfterArrows = 0;
    std::vector<std::string> calls; // the drawing calls, where they were asked for

    long growthKiB() const { return residentAfterArrows - residentBeforeArrows; }
};

bool startsWith(const char* line, const char* word)
{
    return std::strncmp(line, word, std::strlen(word)) == 0;
}

// Starts a program and reads what it reports, to its end.
Start start(const std::string& program, std::vector<std::string> arguments = {})
{
    arguments.insert(arguments.begin(), program);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (std::string& argument : arguments)
        argv.push_back(&argument[0]);
    argv.push_back(nullptr);

    int ends[2];
    if (pipe(ends) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], bench::kReportFd);

    const auto before = std::chrono::steady_clock::now();
    pid_t child = -1;
    const int error = posix_spawn(&child, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);

    Start result;
    std::FILE* reports = fdopen(ends[0], "r");
    char line[128];
    while (error == 0 && std::fgets(line, sizeof line, reports) != nullptr) {
        if (std::strcmp(line, "shown 1\n") == 0) {
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - before;
            result.secondsUntilShown = time.count();
        }
        if (startsWith(line, "call "))
            result.calls.emplace_back(line);
        std::sscanf(line, "resident %ld", &result.residentKiB);
        std::sscanf(line, "resident-before-arrows %ld", &result.residentBeforeArrows);
        std::sscanf(line, "resident-after-arrows %ld", &result.residentAfterArrows);
    }
    std::fclose(reports);
    if (error == 0)
        waitpid(child, nullptr, 0);
    return result;
}

// The least of all runs: what others do on the machine only adds.
struct Least {
    double seconds = std::numeric_limits<double>::infinity();
    long residentKiB = std::numeric_limits<long>::max();

    void add(const Start& one)
    {
        if (one.secondsUntilShown <= 0 || one.residentKiB <= 0)
            fail("a program did not come up");
        seconds = std::min(seconds, one.secondsUntilShown);
        residentKiB = std::min(residentKiB, one.residentKiB);
    }
};

// The keyboard and its DirectFB calls alone, run by run, each of them first in every second pair.
void startInTurn(int pairs)
{
    LayoutFolder folder;
    bench::writeLayout(folder, 70);
    const std::vector<std::string> calls = start(START_KEYBOARD, {"calls"}).calls;
    if (calls.empty() || calls != start(START_CALLS, {"calls"}).calls)
        fail("start_calls draws something else than the keyboard's start");

    Least keyboard;
    Least alone;
    for (int pair = 0; pair < pairs; ++pair) {
        if (pair % 2 == 0)
            keyboard.add(start(START_KEYBOARD));
        alone.add(start(START_CALLS));
        if (pair % 2 != 0)
            keyboard.add(start(START_KEYBOARD));
    }
    const std::string runs = "; least of " + std::to_string(pairs);
    bench::figure("start", keyboard.seconds / alone.seconds, 1.08, "ratio",
                  std::to_string(std::lround(1e6 * keyboard.seconds)) +
                      " us to the first shown frame / " +
                      std::to_string(std::lround(1e6 * alone.seconds)) +
                      " us of a program that makes the same DirectFB calls" + runs + " in turn");
    bench::figure("memory after start",
                  static_cast<double>(keyboard.residentKiB - alone.residentKiB), 900, "KiB",
                  std::to_string(keyboard.residentKiB) + " KiB resident - " +
                      std::to_string(alone.residentKiB) + " KiB of that program" + runs);
}

// The run that grew least, as DirectFB's threads take more room the later they get a processor. Few
// keys, as the drawing takes nearly all of an arrow key's time.
void pressArrows(const char* count)
{
    LayoutFolder folder;
    bench::writeLayout(folder, 4);
    Start least;
    for (int run = 0; run < kArrowRuns; ++run) {
        const Start one = start(START_KEYBOARD, {count});
        if (one.residentBeforeArrows <= 0 || one.residentAfterArrows <= 0)
            fail("the program did not come to its end");
        if (run == 0 || one.growthKiB() < least.growthKiB())
            least = one;
    }
    bench::figure(
        std::string("memory after ") + count + " arrows", static_cast<double>(least.growthKiB()),
        64, "KiB",
        std::to_string(least.residentAfterArrows) + " KiB resident - " +
            std::to_string(least.residentBeforeArrows) +
            " KiB before, after start and 5,000 arrows in which DirectFB's threads have taken "
            "their own; least of " +
            std::to_string(kArrowRuns));
}

} // namespace

int main(int argc, char** argv)
{
    const std::string what = argc == 3 && std::atoi(argv[2]) > 0 ? argv[1] : "";
    if (what == "start")
        startInTurn(std::atoi(argv[2]));
    else if (what == "arrows")
        pressArrows(argv[2]);
    else
        fail("usage: start_times start PAIRS | start_times arrows COUNT");
}
