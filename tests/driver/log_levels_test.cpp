// Every line of the driver has the level 4000: shown at that threshold and gone below it. What is
// left then are the pauses, and the first reading of the clock: the figure is not asked for.

#include <regex>
#include <set>

#include <gmock/gmock.h>

#include "driver_run.h"

using namespace transcript;

namespace
{

struct Written : test_support::Row {
    Lines arguments;
    std::string input;
    size_t statements; // that write a line
    Lines left;
    int exitStatus = 0;
};

const Lines kClock = {"clock"};
const Lines kShowHide = {"clock", "usleep 100000"};
const Lines kFocus = kClock + 19 * Lines{"usleep 200000"};
const Lines kPress = {"clock", "sleep 1"};

// Taken together, they write every line of the driver but one: "Failed to hide VKB".
const Written kRuns[] = {
    {"GeneralUsage", {}, "", 2, {}, 255},
    {"KbUsage", {"kb"}, "", 3, {}, 255},
    {"RendererUsage", {"kbui"}, "", 3, {}, 255},
    {"KbCommand", {"kb", "left", "1"}, "", 7, {"clock", "usleep 500000"}},
    {"KbLoop",
     {"kb", "more"},
     "getkey\nhide\nshow\nquit \n",
     15,
     3 * kClock + 3 * Lines{"usleep 500000"} + Lines{"sleep 2"}},
    {"RendererCommand", {"kbui", "draw", ""}, "", 5, kClock},
    {"RendererLoop",
     {"kbui", "more"},
     "draw\nshow\nhide\nloop-showhide 1\nloop-draw 1\nloop-focus 1\npress\nlock\nquit\n",
     15,
     3 * kClock + kShowHide + kClock + kFocus + kPress + kClock},
};

using DriverLines = testing::TestWithParam<Written>;

test_process::Result runAt(const char* threshold, const Written& run)
{
    const TestPlace place;
    test_process::Command command = driverCommand(place, run.arguments);
    command.environment["CSP_DEBUG_LEVEL"] = threshold;
    return test_process::run(command, run.input);
}

// Where in the driver's sources the lines come from.
std::set<std::string> statementsIn(const std::string& out)
{
    static const std::regex kPlaceOfLine(R"(\[B-LOG\] ((main|kb|kb_ui)_test\.cpp:\d+:\w+))");
    return {std::sregex_token_iterator(out.begin(), out.end(), kPlaceOfLine, 1),
            std::sregex_token_iterator()};
}

TEST_P(DriverLines, HaveTheLevelOfATrace)
{
    EXPECT_THAT(statementsIn(runAt("4000", GetParam()).out),
                testing::SizeIs(GetParam().statements));
    const test_process::Result below = runAt("3999", GetParam());
    EXPECT_EQ(reduce(below.out), GetParam().left);
    EXPECT_EQ(below.err, "");
    EXPECT_EQ(below.exitStatus, GetParam().exitStatus);
}

INSTANTIATE_TEST_SUITE_P(All, DriverLines, testing::ValuesIn(kRuns), test_support::RowName());

} // namespace
