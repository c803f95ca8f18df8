// The driver's entry: arguments, usage texts, the display it opens and closes.

#include <sstream>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "row.h"

using namespace transcript;
using namespace test_process;
using namespace testing;

namespace
{

const int kExitOfMinusOne = 255;

// A display that is not told to be quiet says that it starts.
Result runTalking(const Lines& words)
{
    const TestPlace place;
    Command command = driverCommand(place, words);
    command.environment["DFBARGS"] = "system=dummy,mode=1920x1080,no-cursor";
    return run(command);
}

Lines traceOf(const std::string& output)
{
    Lines lines;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        if (line.rfind("dfb ", 0) == 0)
            lines.push_back(line);
    return lines;
}

const std::string kUiUsage =
    logLine("main_test.cpp", 42, "printusage_ui",
            "\n\t bin kbui cmd cmd-params\n"
            "\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | loop-focus | more ] \n"
            "\t\tex. test-bin kbui loop-showhide 10\n"
            "\t IF cmd = more,enter loop input mode\n");

std::string generalUsage(int count)
{
    return mainLine(56, "argc:" + std::to_string(count)) + "\n" +
           logLine("main_test.cpp", 17, "printusage",
                   "\n\t Usage: bin  [kbui,kb] | cmd |  xxx \n\t\tex.test-bin kbui show A\n\n");
}

std::string head(int count, int line, const std::string& mode)
{
    return mainLine(56, "argc:" + std::to_string(count)) + "\n" + mainLine(line, "mod:" + mode) +
           "\n";
}

} // namespace

struct Refused : test_support::Row {
    Lines words;
    std::string printed;
};

const Refused kRefused[] = {
    {"NoArguments", {}, generalUsage(1)},
    {"FiveArguments", {"kb", "left", "3", "4"}, generalUsage(5)},
    {"SevenArguments", {"kb", "left", "3", "4", "5", "6"}, generalUsage(7)},
    {"DirectFBOptionsCount", {"kb", "left", "3", "--dfb:no-cursor"}, generalUsage(5)},
    {"LoneKb", {"kb"}, head(2, 61, "kb") + kbUsage("main_test.cpp", 34, "printusage_kb")},
    {"LoneKbui", {"kbui"}, head(2, 61, "kbui") + kUiUsage},
};

using EntryUsage = TestWithParam<Refused>;

TEST_P(EntryUsage, IsPrintedWithoutTouchingTheDisplay)
{
    const Result result = runTalking(GetParam().words);
    EXPECT_EQ(result.out, GetParam().printed);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exitStatus, kExitOfMinusOne);
}

INSTANTIATE_TEST_SUITE_P(Arguments, EntryUsage, ValuesIn(kRefused), test_support::RowName());

TEST(Entry, UnknownModeOpensTheDisplayAndRunsNoTest)
{
    for (const std::string mode : {"xyz", "KB", "Kbui", "kbu", "kb ", ""}) {
        const Result result = runTalking({mode});
        EXPECT_EQ(result.out, head(2, 61, mode));
        EXPECT_THAT(result.err, HasSubstr("DirectFB")) << "the display does not say that it starts";
        EXPECT_EQ(result.exitStatus, 0);
    }
    EXPECT_EQ(runTalking({"xyz", "show"}).out, head(3, 73, "xyz"));
    EXPECT_EQ(runTalking({"xyz", "left", "3"}).out, head(4, 79, "xyz"));
}

TEST(Entry, WindowIsOpenedStepByStepThenClosed)
{
    TestPlace place;
    const Result result = run(driverCommandTraced(place, {"xyz"}));
    EXPECT_THAT(traceOf(result.out),
                ElementsAre("dfb DirectFBInit 2", "dfb DirectFBInit left 2", "dfb DirectFBCreate",
                            "dfb GetDisplayLayer 0", "dfb SetCooperativeLevel 2",
                            "dfb CreateWindow flags 0x237 caps 3 size 800x600 at 100,100 stacking "
                            "1; not flagged: format 0x00418C04 surface caps 0x15",
                            "dfb SetCooperativeLevel 2", "dfb GetSurface", "dfb SetOpacity 255",
                            "dfb RequestFocus", "dfb RaiseToTop", "dfb layer Release",
                            "dfb dfb Release"));
    EXPECT_EQ(result.exitStatus, 0);
}

TEST(Entry, WaitsForOneCharacterBeforeItReleasesTheDisplay)
{
    TestPlace place;
    Process driver(driverCommandTraced(place, {"xyz"}));
    ASSERT_TRUE(driver.waitForOutput("dfb RaiseToTop\n"));
    EXPECT_FALSE(driver.waitForOutput("dfb layer Release\n", 1, Milliseconds(300)));
    ASSERT_TRUE(driver.write("\n"));
    EXPECT_TRUE(driver.waitForOutput("dfb dfb Release\n"));
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.result().exitStatus, 0);
}

TEST(Entry, DirectFBOptionsCountAsArguments)
{
    TestPlace place;
    // Three arguments for the choice of the mode, two of them left once DirectFB took its own.
    const Result result = run(driverCommandTraced(place, {"kb", "--dfb:no-cursor"}));
    EXPECT_THAT(reduce(result.out), Contains(mainLine(56, "argc:3")));
    EXPECT_THAT(reduce(result.out), Contains(mainLine(73, "mod:kb")));
    EXPECT_THAT(reduce(result.out), Contains(kbLine(307, "kb_test", "cmd:--dfb:no-cursor,param:")));
    EXPECT_THAT(result.out, HasSubstr("dfb DirectFBInit 3\ndfb DirectFBInit left 2\n"));
    EXPECT_EQ(result.exitStatus, 0);
}

struct DisplayCall : test_support::Row {
    const char* call; // and how many times it was called
    int number;
    const char* text; // printed when it fails
};

// In the order in which the driver makes them.
const DisplayCall kDisplayCalls[] = {
    {"DirectFBInit1", "DirectFBInit", 1, "DirectFBInit(&argc, &argv)"},
    {"DirectFBCreate1", "DirectFBCreate", 1, "DirectFBCreate(&dfb)"},
    {"GetDisplayLayer1", "GetDisplayLayer", 1, "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer)"},
    {"SetCooperativeLevel1", "SetCooperativeLevel", 1,
     "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)"},
    {"CreateWindow1", "CreateWindow", 1, "layer->CreateWindow( layer, &win_desc, &window )"},
    {"SetCooperativeLevel2", "SetCooperativeLevel", 2,
     "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)"},
    {"GetSurface1", "GetSurface", 1, "window->GetSurface(window,&surface)"},
    {"SetOpacity1", "SetOpacity", 1, "window->SetOpacity(window, 0xFF)"},
    {"RequestFocus1", "RequestFocus", 1, "window->RequestFocus(window)"},
    {"RaiseToTop1", "RaiseToTop", 1, "window->RaiseToTop(window)"},
};

using EntryFailure = TestWithParam<DisplayCall>;

TEST_P(EntryFailure, EndsTheProcessWithTheCallsText)
{
    const DisplayCall& call = GetParam();
    TestPlace place;
    const Result result = run(driverCommandTraced(place, {"kbui", "show"}, call.call, call.number));

    const std::string line = std::string("directfb do: '") + call.text + "' failed!\n";
    EXPECT_EQ(result.err.find(line), 0u) << result.err;
    EXPECT_THAT(result.err.substr(line.size()), HasSubstr(std::string("[") + call.text + "]"))
        << "DirectFBErrorFatal reports the same text";
    ASSERT_FALSE(traceOf(result.out).empty());
    EXPECT_THAT(traceOf(result.out).back(), HasSubstr(call.call)) << "nothing follows it";
    EXPECT_THAT(result.out, Not(HasSubstr("kb_ui_test.cpp"))) << "no test runs";
    EXPECT_EQ(result.signal, 0);
    EXPECT_NE(result.exitStatus, 0);
}

INSTANTIATE_TEST_SUITE_P(Calls, EntryFailure, ValuesIn(kDisplayCalls), test_support::RowName());
