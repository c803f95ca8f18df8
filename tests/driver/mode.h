#ifndef TESTS_DRIVER_MODE_H
#define TESTS_DRIVER_MODE_H

#include <map>
#include <string>
#include <vector>

#include "driver_run.h"

// What a command prints: a first line, where it has a function for it, and a time line.
struct DriverCommand {
    int line;
    const char* function;
    bool counts; // the first line shows the parameter
    int timeLine;
    const char* label;
    bool isAnnounced = false; // by its label, before the clock starts
};

// A run of one command; "null" is a parameter that is not given. The figure of the time line is 0
// where the process ends before it, by this error.
struct Script : test_support::Row {
    std::string command, parameter;
    transcript::Lines steps = {};
    int milliseconds = 0;
    const char* error = "";
};

// A line that is typed in the loop, its echo, and what its command does.
struct Pass {
    std::string typed, command, parameter;
    transcript::Lines steps = {};
    int milliseconds = 0;
};

// A run of the loop, which its last line ends.
struct Session : test_support::Row {
    std::vector<Pass> passes;
    const char* error = "";
    std::string parameter = "null"; // of the command line
};

// A mode of the driver: what its runs print around what the commands do.
struct Mode {
    std::string name;
    std::string source;  // of its lines, without ".cpp"; their function has the same name
    std::string handler; // the function of time lines
    std::map<std::string, DriverCommand> commands;
    int commandLine, echoLine;
    transcript::Lines started; // by the keyboard or the renderer
    std::string prompt, firstUsage, usage;

    Run run(const Script& script) const;
    Run run(const Session& session) const;

    template <class Rows> std::vector<Run> runs(const Rows& rows, const char* level = "") const
    {
        std::vector<Run> runs;
        for (const auto& row : rows) {
            runs.push_back(run(row));
            runs.back().level = level;
        }
        return runs;
    }

    // Behind this line the input ends. The loop goes on: it never ends by itself.
    void expectEndlessLoop(const Pass& typed) const;

private:
    std::string line(int number, const std::string& function, const std::string& message) const;
    transcript::Lines done(const std::string& command, const std::string& parameter,
                           const transcript::Lines& steps, int milliseconds) const;
};

#endif
