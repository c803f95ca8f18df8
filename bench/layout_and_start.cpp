// Times of reading a layout and of starting, each beside the time of the same work by JsonCpp or
// DirectFB alone. Log lines go to standard output, so the results go to a file:
// --benchmark_out=FILE.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <json/json.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "Language_Parser.h"
#include "bench_layout.h"
#include "report_fd.h"

using test_support::LayoutFolder;
using velmora::browser::vkb::LanguageParser;

namespace
{

void loadByKeyboard(benchmark::State& state)
{
    LayoutFolder folder;
    bench::writeLayout(folder, static_cast<int>(state.range(0)));
    LanguageParser parser;
    std::string name = bench::kLayoutName;
    parser.onLayoutchanged(name);

    for (auto _ : state) {
        if (!parser.ParseCurrentLayoutKeyMaps())
            state.SkipWithError("the layout was not read");
    }
    if (parser.getKeyMap(name, true, true).size() != static_cast<size_t>(state.range(0)))
        state.SkipWithError("keys are missing");
}

void loadByReaderAlone(benchmark::State& state)
{
    LayoutFolder folder;
    bench::writeLayout(folder, static_cast<int>(state.range(0)));
    const std::string path = LayoutFolder::keyMapPath(bench::kLayoutName);

    for (auto _ : state) {
        std::ifstream file(path, std::ios::in | std::ios::binary);
        Json::Value root;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations" // the reader of the keyboard
        Json::Reader reader;
        if (!reader.parse(file, root, true))
            state.SkipWithError("the layout was not read");
#pragma GCC diagnostic pop
        benchmark::DoNotOptimize(root);
    }
}

struct Start {
    double secondsUntilShown = 0; // 0: it was never shown
    long residentKiB = 0;
    long residentBeforeArrows = 0;
    long residentAfterArrows = 0;
    std::vector<std::string> calls; // the drawing calls, where they were asked for
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
    double milliseconds = std::numeric_limits<double>::infinity();
    double residentKiB = std::numeric_limits<double>::infinity();

    // Returns whether there is something to add.
    bool add(const Start& one)
    {
        if (one.secondsUntilShown <= 0 || one.residentKiB <= 0)
            return false;
        milliseconds = std::min(milliseconds, 1000 * one.secondsUntilShown);
        residentKiB = std::min(residentKiB, static_cast<double>(one.residentKiB));
        return true;
    }
};

// The keyboard and its DirectFB calls alone, run by run, each of them first in every second pair.
void startInTurn(benchmark::State& state)
{
    LayoutFolder folder;
    bench::writeLayout(folder, 70);
    const std::vector<std::string> calls = start(START_KEYBOARD, {"calls"}).calls;
    if (calls.empty() || calls != start(START_CALLS, {"calls"}).calls) {
        state.SkipWithError("start_calls draws something else than the keyboard's start");
        return;
    }

    Least keyboard;
    Least alone;
    bool keyboardFirst = true;
    for (auto _ : state) {
        const bool started =
            keyboardFirst ? keyboard.add(start(START_KEYBOARD)) && alone.add(start(START_CALLS))
                          : alone.add(start(START_CALLS)) && keyboard.add(start(START_KEYBOARD));
        if (!started) {
            state.SkipWithError("a program did not come up");
            return;
        }
        keyboardFirst = !keyboardFirst;
    }
    state.counters["calls"] = static_cast<double>(calls.size());
    state.counters["keyboard_ms"] = keyboard.milliseconds;
    state.counters["alone_ms"] = alone.milliseconds;
    state.counters["keyboard_KiB"] = keyboard.residentKiB;
    state.counters["alone_KiB"] = alone.residentKiB;
}

// Few keys, as the drawing takes nearly all of an arrow key's time.
void pressArrows(benchmark::State& state)
{
    LayoutFolder folder;
    bench::writeLayout(folder, 4);
    for (auto _ : state) {
        const Start one = start(START_KEYBOARD, {std::to_string(state.range(0))});
        if (one.residentBeforeArrows <= 0 || one.residentAfterArrows <= 0) {
            state.SkipWithError("the program did not come to its end");
            break;
        }
        state.counters["before_KiB"] = static_cast<double>(one.residentBeforeArrows);
        state.counters["after_KiB"] = static_cast<double>(one.residentAfterArrows);
    }
}

} // namespace

BENCHMARK(loadByKeyboard)->Arg(70)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadByReaderAlone)->Arg(70)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(startInTurn)->Iterations(61)->Unit(benchmark::kMillisecond);
BENCHMARK(pressArrows)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
