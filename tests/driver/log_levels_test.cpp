// Every line of the driver has the level 4000: shown at that threshold and gone below it.

#include <regex>
#include <set>

#include <gmock/gmock.h>

#include "driver_run.h"

namespace
{

struct Run {
    const char* name;
    std::vector<std::string> arguments;
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

// Shown beside the test's name.
void PrintTo(const Run& run, std::ostream* stream)
{
    *stream << run.name;
}

class DriverLines : public testing::TestWithParam<Run>
{
protected:
    // Where in the driver's sources the lines come from that are shown at this threshold.
    std::set<std::string> statementsShownAt(const char* threshold)
    {
        TestPlace place;
        place.putGridLayouts();
        place.putFonts();
        test_process::Command command = driverCommand(place, GetParam().arguments);
        command.environment["CSP_DEBUG_LEVEL"] = threshold;
        const std::string out = test_process::run(command, GetParam().input).out;

        static const std::regex place_of_line(R"(\[B-LOG\] ((main|kb|kb_ui)_test\.cpp:\d+:\w+))");
        return {std::sregex_token_iterator(out.begin(), out.end(), place_of_line, 1),
                std::sregex_token_iterator()};
    }
};

TEST_P(DriverLines, HaveTheLevelOfATrace)
{
    EXPECT_THAT(statementsShownAt("4000"), testing::SizeIs(GetParam().statements));
    EXPECT_THAT(statementsShownAt("3999"), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, DriverLines, testing::ValuesIn(kRuns),
                         [](const testing::TestParamInfo<Run>& run) { return run.param.name; });

} // namespace
