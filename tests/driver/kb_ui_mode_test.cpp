// The kbui mode from outside. Each command: its log lines, what it asks of the renderer and its
// pauses, in order, and the figure of its time line (see kb_mode_test.cpp). Then the interactive
// loop.

#include <map>

#include <gmock/gmock.h>

#include "mode.h"

using namespace transcript;
using test_process::Result;
using test_support::RowName;
using testing::HasSubstr;
using testing::Not;

namespace
{

// x, y, width, height and text of each test key.
const std::vector<std::string> kKeys = {
    "0/0-40/40-a",
    "50/0-40/40-b",
    "100/0-40/40-c",
    "150/0-40/40-d",
    "200/0-40/40-e",
    "250/0-40/40-f",
    "0/50-40/40-g",
    "50/50-40/40-h",
    "100/50-40/40-i",
    "150/50-40/40-j",
    "200/50-40/40-k",
    "250/50-40/40-l",
    "0/100-40/40-m",
    "50/100-80/40-n",
    "140/100-150/40-space",
    "0/150-90/40-Shift",
    "100/150-90/40-.com",
    "200/150-90/40-Enter",
    "0/200-90/40-\xE4\xBD\xA0\xE5\xA5\xBD",
};
const int kTestKeys = 19;
const size_t kPressedKey = 3;
const size_t kLockedKey = 15;

// How much of the renderer's work shows: its repainting has a level of its own.
enum Detail { Off, On };
const char kDetail[] = "5000";

Lines paintedKey(size_t key)
{
    return {"ui drawElement [" + kKeys[key] + "] "};
}

// A repaint of all keys, and of these locked ones after them.
Lines draw(Detail detail, const std::vector<size_t>& locked = {})
{
    if (detail == Off)
        return {"ui clear called "};
    Lines lines = {"ui draw called", "ui clear called "};
    for (size_t key = 0; key < kKeys.size(); ++key)
        lines = lines + paintedKey(key);
    for (const size_t key : locked)
        lines = lines + paintedKey(key);
    return lines + Lines{"ui draw done"};
}

Lines show(Detail detail) // hidden before
{
    return Lines{"ui show called "} + draw(detail);
}

const Lines kHideShown = {"ui hide called", "ui clear called "}; // shown before
const Lines kHideHidden = {"ui hide called"};

Lines setFocus(Detail detail, const std::vector<size_t>& locked = {})
{
    return Lines{"ui setfocus called "} + draw(detail, locked);
}

const Lines kLock = Lines{"ui setLocked called "} + draw(On, {kLockedKey});

Lines focusPass(Detail detail, const std::vector<size_t>& locked = {})
{
    return kTestKeys * (setFocus(detail, locked) + Lines{"usleep 200000"});
}

Lines showHide(Detail detail)
{
    return show(detail) + Lines{"usleep 100000"} + kHideShown;
}

const std::map<std::string, DriverCommand> kCommands = {
    {"draw", {0, "kb_ui_test_draw", false, 0, "test_draw"}},
    {"hide", {0, "kb_ui_test_hide", false, 0, "test hide"}},
    {"show", {0, "kb_ui_test_show", false, 0, "test show"}},
    {"loop-showhide", {0, "", false, 0, "test loop showhidew"}},
    {"loop-draw", {0, "", false, 0, "test loop-draw"}},
    {"loop-focus", {0, "kb_ui_test_loop_focus", true, 0, "test loop_focus", true}},
    {"press", {0, "", false, 0, "test press", true}},
    {"lock", {0, "", false, 0, "lock press", true}},
};

const std::string kUsage = kbUiLine(
    "kb_ui_test", "usage:\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | loop-focus ] ");
const std::string kPrompt = kbUiLine("get_inputs", "=>pls input cmd  [parames]");
const Lines kStarted = {"ui KeyBoardUI called (800/600)", "ui clear called ",
                        "ui setLayoutData called lines;19", "ui setLayoutData font-height:37"};
const Mode kKbUi = {"kbui", "kb_ui_test", "handle_tests", kCommands, 0,
                    0,      kStarted,     kPrompt,        kUsage,    kUsage};

// The line of a loop that names its count.
Lines counted(const std::string& loop, int count)
{
    return {kbUiLine("kb_ui_test_loop_" + loop, "param:" + std::to_string(count))};
}

Lines loopDraw(int count, Detail detail)
{
    return counted("draw", count) + count * draw(detail);
}

const char kNoNumber[] = "invalid_argument";

const Script kScripts[] = {
    {"Draw", "draw", "", draw(On), 1000},
    // Nothing is painted yet, so there is nothing to hide.
    {"Hide", "hide", "", kHideHidden, 1000},
    {"Show", "show", "", show(On), 1000},
    {"LoopShowHide", "loop-showhide", "3", counted("showhide", 3) + 3 * showHide(On), 300},
    {"LoopDraw", "loop-draw", "2", loopDraw(2, On), 1000},
    {"LoopFocus", "loop-focus", "1", counted("focus", 1) + focusPass(On), 3800},
    {"Press", "press", "",
     setFocus(On) + paintedKey(kPressedKey) + Lines{"sleep 1"} + paintedKey(kPressedKey) +
         setFocus(On),
     2000},
    {"Lock", "lock", "", kLock, 1000},
};

INSTANTIATE_TEST_SUITE_P(KbUiCommand, DriverRun, testing::ValuesIn(kKbUi.runs(kScripts, kDetail)),
                         RowName());

// At the default level: there would be many lines of keys.
const Script kCounts[] = {
    {"LoopDrawWithZeroDrawsNothing", "loop-draw", "0", loopDraw(0, Off), 1000},
    {"LoopShowHideWithANegativeCountDrawsNothing", "loop-showhide", "-3", counted("showhide", -3),
     1000},
    {"LoopDrawHasNoUpperBound", "loop-draw", "60", loopDraw(60, Off), 1000},
    {"EmptyParameterMeansFive", "loop-draw", "", loopDraw(5, Off), 1000},
    {"EmptyParameterMeansFivePasses", "loop-focus", "", counted("focus", 5) + 5 * focusPass(Off),
     20000},
    {"ThreeArgumentsHaveAnEmptyParameter", "loop-showhide", "null",
     counted("showhide", 5) + 5 * showHide(Off), 500},
    {"LoopFocusAboveFiftyRunsFiftyPasses", "loop-focus", "80",
     counted("focus", 80) + 50 * focusPass(Off), 191000},
    {"LoopFocusBelowZeroRunsFiftyPasses", "loop-focus", "-1",
     counted("focus", -1) + 50 * focusPass(Off), 191000},
    {"LoopFocusWithZeroRunsNoPass", "loop-focus", "0", counted("focus", 0), 1000},
    {"TextBehindTheNumberIsIgnored", "loop-focus", " 2 passes",
     counted("focus", 2) + 2 * focusPass(Off), 7600},
    {"AWordEndsTheProcess", "loop-draw", "abc", {}, 0, kNoNumber},
    {"BlanksEndTheProcess", "loop-draw", "   ", {}, 0, kNoNumber},
    {"ASignEndsTheProcess", "loop-draw", "-", {}, 0, kNoNumber},
    {"AboveTheHighestIntEndsTheProcess", "loop-focus", "2147483648", {}, 0, "out_of_range"},
};

INSTANTIATE_TEST_SUITE_P(KbUiCount, DriverRun, testing::ValuesIn(kKbUi.runs(kCounts)), RowName());

TEST(KbUi, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Draw", "draw ", "left", "quit"})
        expectRun(kKbUi.run(Script{"", command, "3"}));
}

// Without its font the renderer paints no key; a frame and a repaint of none are all there is.
TEST(KbUiWithoutAFont, PaintsNothing)
{
    TestPlace place;
    place.removeFile("/opt/font/TarvoL2700.ttf");
    for (const std::string command : {"draw", "show", "lock", "loop-focus"}) {
        test_process::Command driver = driverCommand(place, {"kbui", command, "1"});
        driver.environment["CSP_DEBUG_LEVEL"] = kDetail;
        const Result result = test_process::run(driver);
        EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font file is not exist !!!\n"));
        EXPECT_THAT(result.out, HasSubstr("draw(): called\n"));
        EXPECT_THAT(result.out, Not(HasSubstr("drawElement")));
        EXPECT_THAT(result.out, Not(HasSubstr("draw(): done")));
        EXPECT_THAT(result.out, HasSubstr(" ms\n"));
        EXPECT_EQ(result.exitStatus, 0);
    }
}

TEST(KbUiWithoutAFont, PressEndsTheProcessThroughItsText)
{
    TestPlace place;
    place.removeFile("/opt/font/TarvoL2700.ttf");
    const Result result = test_process::run(driverCommand(place, {"kbui", "press"}));
    const std::string call =
        "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,DSTF_TOPCENTER)";
    EXPECT_EQ(result.err.find("directfb do: '" + call + "' failed!\n"), 0u) << result.err;
    EXPECT_THAT(result.err, HasSubstr("[" + call + "]"));
    EXPECT_THAT(result.out, Not(HasSubstr("test press using")));
    EXPECT_EQ(result.signal, 0);
    EXPECT_NE(result.exitStatus, 0);
}

const Pass kQuit = {"quit", "quit", "null"};
const Pass kDraw = {"draw", "draw", "null", draw(On), 1000};
const Pass kLoopDraw = {"loop-draw", "loop-draw", "null", loopDraw(5, On), 1000};
const Pass kShow = {"show", "show", "null", show(On), 1000};
const Pass kShowShown = {"show", "show", "null", {"ui show called "}, 1000};
const Pass kHide = {"hide", "hide", "null", kHideShown, 1000};
const Pass kHideAgain = {"hide", "hide", "null", kHideHidden, 1000};
const Lines kFocusBesideALock = counted("focus", 1) + focusPass(On, {kLockedKey});

const Session kSessions[] = {
    {"QuitAloneEndsIt", {kQuit}},
    {"QuitInTheParameterDoesNotEndIt",
     {{"unknown quit", "unknown", "quit"}, {" quit", "", "quit"}, {"QUIT", "QUIT", "null"}, kQuit}},
    {"CommandThatContainsQuitEndsIt", {{"xquity 3", "xquity", "3"}}},
    {"QuitWithABlankEndsIt", {{"quit ", "quit", " "}}},
    {"ShowTwicePaintsOnce", {kShow, kShowShown, kQuit}},
    {"HideAfterDrawClearsTheWindowOnce", {kDraw, kHide, kHideAgain, kQuit}},
    {"LockedKeyStaysSunkenInEveryStepOfLoopFocus",
     {{"lock", "lock", "null", kLock, 1000},
      {"loop-focus 1", "loop-focus", "1", kFocusBesideALock, 3800},
      kQuit}},
    {"SeveralBlanksBeforeTheParameterAreSkipped",
     {{"loop-draw    7", "loop-draw", "7", loopDraw(7, On), 1000}, kQuit}},
    {"InnerAndTrailingBlanksOfTheParameterAreKept",
     {{"unknown  a  b  ", "unknown", "a  b  "}, {"unknown   ", "unknown", "   "}, kQuit}},
    {"ParameterOfOnePassIsForgottenInTheNext",
     {{"loop-draw 2", "loop-draw", "2", loopDraw(2, On), 1000}, kLoopDraw, kQuit}},
    {"UnknownCommandIsEchoedAndIgnored",
     {{"left 3", "left", "3"}, {"more", "more", "null"}, kQuit}},
    {"EmptyLineIsEchoedAndRunsNothing", {{"", "", "null"}, {" draw", "", "draw"}, kQuit}},
    // A count of nothing but blanks is a parameter, and no number.
    {"BlankCountEndsTheProcess", {{"loop-draw  ", "loop-draw", "  "}}, kNoNumber},
    {"ParameterOfTheCommandLineIsIgnored", {kLoopDraw, kQuit}, "", "2"},
};

INSTANTIATE_TEST_SUITE_P(KbUiLoop, DriverRun, testing::ValuesIn(kKbUi.runs(kSessions, kDetail)),
                         RowName());

TEST(KbUiLoopEnd, UsageIsFollowedByAnEmptyLine)
{
    const TestPlace place;
    const Result result =
        test_process::run(driverCommand(place, {"kbui", "more"}), "unknown\nquit\n");
    EXPECT_EQ(test_process::countOf("kb_ui_test(): usage:\t =>cmd:[show|hide|draw | "
                                    "loop-showhide |loop-draw | loop-focus ] \n\n[B-LOG]",
                                    result.out),
              2);
}

TEST(KbUiLoopEnd, EndOfInputKeepsPrompting)
{
    kKbUi.expectEndlessLoop(kHideAgain);
}

} // namespace
