#include "driver_run.h"

#include <csignal>
#include <cstdlib>

#include <gmock/gmock.h>

using namespace transcript;
using test_process::Command;
using test_process::Result;

namespace
{

// DirectFB's own handling of signals stays out of it: under an emulator it can hang in an abort.
const char* const kDisplay = "system=dummy,mode=1920x1080,quiet,no-cursor,no-sighandler";

// Another build of the driver can be put in its place: the fault tests do.
std::string driverProgram()
{
    const char* other = std::getenv("VKB_TEST_OTHER_DRIVER");
    return other != nullptr && *other != '\0' ? other : VKB_TEST_DRIVER;
}

} // namespace

Command driverCommandInRealTime(const TestPlace& place, const Lines& arguments)
{
    Command command;
    command.words = Lines{driverProgram()} + arguments;
    command.environment = {{"DFBARGS", kDisplay},
                           {"LD_PRELOAD", VKB_TEST_SEAMS " " VKB_TEST_DIRECTFB_SEAMS},
                           {"VKB_TEST_ROOT", place.root()}};
    return command;
}

Command driverCommand(const TestPlace& place, const Lines& arguments)
{
    Command command = driverCommandInRealTime(place, arguments);
    command.environment["VKB_TEST_SLEEPS"] = "/dev/stdout";
    command.environment["VKB_TEST_CLOCK"] = "1";
    return command;
}

Command driverCommandTraced(const TestPlace& place, const Lines& arguments,
                            const std::string& failing_call, int number)
{
    Command command = driverCommand(place, arguments);
    command.environment["VKB_TEST_TRACE"] = "1";
    if (!failing_call.empty())
        command.environment["VKB_TEST_FAIL"] = failing_call + " " + std::to_string(number);
    return command;
}

TEST_P(DriverRun, PrintsTheseLines)
{
    expectRun(GetParam());
}

Result expectRun(const Run& run, const TestPlace& place)
{
    Command command = driverCommand(place, run.arguments);
    if (!run.level.empty())
        command.environment["CSP_DEBUG_LEVEL"] = run.level;
    Result result = test_process::run(command, run.input);
    EXPECT_EQ(text(reduce(result.out)), text(run.expected));
    if (run.error.empty()) {
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitStatus, 0);
    } else {
        EXPECT_THAT(result.err, testing::HasSubstr(run.error));
        EXPECT_EQ(result.signal, SIGABRT);
    }
    return result;
}
