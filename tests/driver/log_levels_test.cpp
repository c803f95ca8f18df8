// Every line of the driver has the level 4000: shown at that threshold and gone below it.

#include <regex>
#include <set>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "row.h"

namespace
{

struct Run : test_support::Row {
    transcript::Lines arguments;
    std::string input;
    size_t statements; // that write a line
};

// Taken together, they write every line of the driver but one: "Failed to hide VKB".
const Run kRuns[] = {
    {"GeneralUsage", {}, "", 2},
    {"KbUsage", {"kb"}, "", 3},
    {"RendererUsage", {"kbui"}, "", 3},
    {"KbCommand", {"kb", "left", "1"}, "", 7},
    {"KbLoop", {"kb", "more"}, "getkey\nhide\nshow\nquit \n", 15},
    {"RendererCommand", {"kbui", "draw", ""}, "", 5},
    {"RendererLoop",
     {"kbui", "more"},
     "draw\nshow\nhide\nloop-showhide 1\nloop-draw 1\nloop-focus 1\npress\nlock\nquit\n",
     15},
};

class DriverLines : public testing::TestWithParam<Run>
{
protected:
    // Where in the driver's sources the lines come from that are shown at this threshold.
    std::set<std::string> statementsShownAt(const char* threshold)
    {
        const TestPlace place;
        test_process::Command command = driverCommand(place, GetParam().arguments);
        command.environment["CSP_DEBUG_LEVEL"] = threshold;
        const std::string out = test_process::run(command, GetParam().input).out;

        static const std::regex kPlaceOfLine(R"(\[B-LOG\] ((main|kb|kb_ui)_test\.cpp:\d+:\w+))");
        return {std::sregex_token_iterator(out.begin(), out.end(), kPlaceOfLine, 1),
                std::sregex_token_iterator()};
    }
};

TEST_P(DriverLines, HaveTheLevelOfATrace)
{
    EXPECT_THAT(statementsShownAt("4000"), testing::SizeIs(GetParam().statements));
    EXPECT_THAT(statementsShownAt("3999"), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, DriverLines, testing::ValuesIn(kRuns), test_support::RowName());

// What is left are the pauses, and the first reading of the clock: the figure is not asked for.
TEST(DriverLog, SwitchedOffPrintsNothingAndExitsTheSame)
{
    const struct {
        transcript::Lines arguments;
        const char* printed;
        int exitStatus;
    } runs[] = {
        {{}, "", 255},
        {{"kb"}, "", 255},
        {{"kbui"}, "", 255},
        {{"a", "b", "c", "d"}, "", 255},
        {{"kb", "left", "2"}, "clock\nusleep 500000\nusleep 500000\n", 0},
        {{"kbui", "press"}, "clock\nsleep 1\n", 0},
    };
    for (const auto& run : runs) {
        const TestPlace place;
        test_process::Command command = driverCommand(place, run.arguments);
        command.environment["CSP_DEBUG_LEVEL"] = "0";
        const test_process::Result result = test_process::run(command);
        EXPECT_EQ(result.out, run.printed);
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitStatus, run.exitStatus);
    }
}

} // namespace
