// Times of reading a layout and of starting, each beside the time of the bare thing. Log lines
// go to standard output, so the results go to a file: --benchmark_out=FILE.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
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

void loadByLibraryAlone(benchmark::State& state)
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
};

// Starts a program and reads what it reports, to its end.
Start start(const std::string& program, std::vector<std::string> arguments)
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
    char line[64];
    while (error == 0 && std::fgets(line, sizeof line, reports) != nullptr) {
        if (std::strcmp(line, "shown 1\n") == 0) {
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - before;
            result.secondsUntilShown = time.count();
        }
        std::sscanf(line, "resident %ld", &result.residentKiB);
        std::sscanf(line, "resident-before-arrows %ld", &result.residentBeforeArrows);
        std::sscanf(line, "resident-after-arrows %ld", &result.residentAfterArrows);
    }
    std::fclose(reports);
    if (error == 0)
        waitpid(child, nullptr, 0);
    return result;
}

void timeStarts(benchmark::State& state, const std::string& program,
                const std::vector<std::string>& arguments)
{
    LayoutFolder folder;
    bench::writeLayout(folder, 70);
    double resident = 0;
    for (auto _ : state) {
        const Start one = start(program, arguments);
        if (one.secondsUntilShown <= 0 || one.residentKiB <= 0) {
            state.SkipWithError("the program did not come up");
            break;
        }
        state.SetIterationTime(one.secondsUntilShown);
        resident += static_cast<double>(one.residentKiB);
    }
    state.counters["resident_KiB"] =
        benchmark::Counter(resident, benchmark::Counter::kAvgIterations);
}

void startKeyboard(benchmark::State& state)
{
    timeStarts(state, START_KEYBOARD, {});
}

// The window is as large as the keyboard's of 70 keys.
void startBare(benchmark::State& state)
{
    timeStarts(state, START_BARE, {"803", "255"});
}

void startCalls(benchmark::State& state)
{
    const char* font = std::getenv("VIRTUAL_KEYBOARD_FONT_PATH");
    timeStarts(state, START_BARE, {"803", "255", "70", font == nullptr ? "" : font});
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
BENCHMARK(loadByLibraryAlone)->Arg(70)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(startKeyboard)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(startCalls)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(startBare)->UseManualTime()->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(pressArrows)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
