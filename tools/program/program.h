// What our programs have in common: the end of a command line that cannot be used, --version, and
// an output that does not get lost.
#ifndef TOOLS_PROGRAM_PROGRAM_H
#define TOOLS_PROGRAM_PROGRAM_H

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

#include <CLI/CLI.hpp>

#include "standard_streams.h"

namespace program
{

// The exit status after a fault in the options, and after anything else that keeps a program from
// doing its work.
const int kCannotRun = 2;

// Says it on standard error behind the program's name; returns kCannotRun.
inline int fail(const std::string& name, const std::string& message)
{
    std::fprintf(stderr, "%s: %s\n", name.c_str(), message.c_str());
    return kCannotRun;
}

// Writes what standard output has kept so far. Returns the status, or kCannotRun where something
// did not arrive, which it tells.
inline int flushOutput(const std::string& name, int status)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    std::clearerr(stdout);
    return fail(name, std::string("standard output: ") + std::strerror(errno));
}

// Reads the command line into the application, which has a name, and gets --version. Returns the
// exit status where the program ends with it: 0 after --help and --version, kCannotRun after a
// fault that it has told, or with standard output closed. Other exceptions than CLI11's are the
// caller's.
inline std::optional<int> readOptions(CLI::App& app, int argc, char** argv)
{
    const std::string name = app.get_name();
    if (!startedWithOutput())
        return fail(name, "standard output: is closed, expected a place for the text");
    app.set_version_flag("--version", name + " " VKB_VERSION, "Print the version and exit");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Error& error) {
        if (error.get_exit_code() == 0)
            return flushOutput(name, app.exit(error));
        return fail(name, std::string(error.what()) + "\n" + name + " --help lists the options");
    }
    return std::nullopt;
}

} // namespace program

#endif
