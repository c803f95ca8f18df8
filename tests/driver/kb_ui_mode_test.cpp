// The kbui mode from outside. Each command: its log lines, what it asks of the renderer and its
// pauses, in order, and the figure of its time line (see kb_mode_test.cpp). Then the interactive
// loop.

#include <map>

#include <gmock/gmock.h>

#include "driver_run.h"

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

// How much of the renderer's work shows: its repainting has the level 5000.
enum Detail { Off, On };

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

const Lines kHide = {"ui hide called", "ui clear called "}; // shown before
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
    return show(detail) + Lines{"usleep 100000"} + kHide;
}

// The lines of a run before its command: arguments, start of the renderer.
Lines start(const std::string& command, const std::string& parameter, int arguments = 4)
{
    return {mainLine(56, "argc:" + std::to_string(arguments)),
            mainLine(arguments == 4 ? 79 : 73, "mod:kbui"),
            kbUiLine("kb_ui_test", "cmd:" + command + ",param:" + parameter),
            "ui KeyBoardUI called (800/600)",
            "ui clear called ",
            "ui setLayoutData called lines;19",
            "ui setLayoutData font-height:37"};
}

// A command's own function, its label in the time line, and what is announced before it starts.
struct Command {
    const char* function;
    const char* label;
    const char* announcement;
};

const std::map<std::string, Command> kCommands = {
    {"draw", {"kb_ui_test_draw", "test_draw", nullptr}},
    {"hide", {"kb_ui_test_hide", "test hide", nullptr}},
    {"show", {"kb_ui_test_show", "test show", nullptr}},
    {"loop-showhide", {"kb_ui_test_loop_showhide", "test loop showhidew", nullptr}},
    {"loop-draw", {"kb_ui_test_loop_draw", "test loop-draw", nullptr}},
    {"loop-focus", {"kb_ui_test_loop_focus", "test loop_focus", "test loop_focus"}},
    {"press", {"", "test press", "test press"}},
    {"lock", {"", "lock press", "lock press"}},
};

// A command that ends the process behind these lines of its own.
Lines ended(const std::string& name, const Lines& messages)
{
    const Command& command = kCommands.at(name);
    Lines lines;
    if (command.announcement != nullptr)
        lines = {kbUiLine("handle_tests", std::string("=======>") + command.announcement + " ")};
    lines.push_back("clock");
    for (const std::string& message : messages)
        lines.push_back(kbUiLine(command.function, message));
    return lines;
}

// One that runs to its end, with its time line.
Lines done(const std::string& name, const Lines& messages, const Lines& steps,
           int milliseconds = 1000)
{
    return ended(name, messages) + steps +
           Lines{"clock",
                 kbUiLine("handle_tests", std::string("=======>") + kCommands.at(name).label +
                                              " using:" + std::to_string(milliseconds) + " ms")};
}

Lines loopDraw(int count)
{
    return done("loop-draw", {"param:" + std::to_string(count)}, count * draw(Off));
}

Lines loopFocus(const std::string& parameter, int count, const Lines& passes, int milliseconds)
{
    return done("loop-focus", {"param:" + parameter, "param:" + std::to_string(count)}, passes,
                milliseconds);
}

test_process::Command uiCommand(const TestPlace& place, Detail detail, const Lines& arguments)
{
    test_process::Command command = driverCommand(place, Lines{"kbui"} + arguments);
    if (detail == On)
        command.environment["CSP_DEBUG_LEVEL"] = "5000";
    return command;
}

const char kNoNumber[] = "invalid_argument";

std::string level(Detail detail)
{
    return detail == On ? "5000" : "";
}

Run script(const char* name, Detail detail, const std::string& command,
           const std::string& parameter, const Lines& steps, const char* error = "")
{
    const Lines words = {"kbui", command, parameter};
    return {name, words, "", start(command, parameter) + steps, error, level(detail)};
}

const Run kScripts[] = {
    script("Draw", On, "draw", "", done("draw", {"called"}, draw(On))),
    // Nothing is painted yet, so there is nothing to hide.
    script("Hide", On, "hide", "", done("hide", {"called"}, kHideHidden)),
    script("Show", On, "show", "", done("show", {"called"}, show(On))),
    script("LoopShowHide", On, "loop-showhide", "3",
           done("loop-showhide", {"param:3"}, 3 * showHide(On), 300)),
    script("LoopDraw", On, "loop-draw", "2", done("loop-draw", {"param:2"}, 2 * draw(On))),
    script("LoopFocus", On, "loop-focus", "1", loopFocus("1", 1, focusPass(On), 3800)),
    script("Press", On, "press", "",
           done("press", {},
                setFocus(On) + paintedKey(kPressedKey) + Lines{"sleep 1"} +
                    paintedKey(kPressedKey) + setFocus(On),
                2000)),
    script("Lock", On, "lock", "", done("lock", {}, kLock)),
    // Counts.
    script("LoopDrawWithZeroDrawsNothing", On, "loop-draw", "0", loopDraw(0)),
    script("LoopShowHideWithANegativeCountDrawsNothing", On, "loop-showhide", "-3",
           done("loop-showhide", {"param:-3"}, {}, 1000)),
    script("LoopDrawHasNoUpperBound", Off, "loop-draw", "60", loopDraw(60)),
    script("EmptyParameterMeansFive", Off, "loop-draw", "", loopDraw(5)),
    script("EmptyParameterMeansFivePasses", Off, "loop-focus", "",
           loopFocus("", 5, 5 * focusPass(Off), 20000)),
    script("LoopFocusAboveFiftyRunsFiftyPasses", Off, "loop-focus", "80",
           loopFocus("80", 80, 50 * focusPass(Off), 191000)),
    script("LoopFocusBelowZeroRunsFiftyPasses", Off, "loop-focus", "-1",
           loopFocus("-1", -1, 50 * focusPass(Off), 191000)),
    script("LoopFocusWithZeroRunsNoPass", On, "loop-focus", "0", loopFocus("0", 0, {}, 1000)),
    script("TextBehindTheNumberIsIgnored", Off, "loop-focus", " 2 passes",
           loopFocus(" 2 passes", 2, 2 * focusPass(Off), 7600)),
    script("AWordEndsTheProcess", Off, "loop-draw", "abc", {"clock"}, kNoNumber),
    script("BlanksEndTheProcess", Off, "loop-draw", "   ", {"clock"}, kNoNumber),
    script("ASignEndsTheProcess", Off, "loop-draw", "-", {"clock"}, kNoNumber),
    script("AboveTheHighestIntEndsTheProcess", Off, "loop-focus", "2147483648",
           ended("loop-focus", {"param:2147483648"}), "out_of_range"),
    {"ThreeArgumentsHaveAnEmptyParameter",
     {"kbui", "loop-showhide"},
     "",
     start("loop-showhide", "", 3) + done("loop-showhide", {"param:5"}, 5 * showHide(Off), 500)},
};

INSTANTIATE_TEST_SUITE_P(KbUiCommand, DriverRun, testing::ValuesIn(kScripts), RowName());

TEST(KbUi, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Draw", "draw ", "left", "quit"})
        expectRun({"", {"kbui", command, "3"}, "", start(command, "3"), "", level(On)});
}

// Without its font the renderer paints no key; a frame and a repaint of none are all there is.
TEST(KbUiWithoutAFont, PaintsNothing)
{
    TestPlace place;
    place.removeFonts();
    for (const std::string command : {"draw", "show", "lock", "loop-focus"}) {
        const Result result = test_process::run(uiCommand(place, On, {command, "1"}));
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
    place.removeFonts();
    const Result result = test_process::run(driverCommand(place, {"kbui", "press"}));
    const std::string call =
        "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,DSTF_TOPCENTER)";
    EXPECT_EQ(result.err.find("directfb do: '" + call + "' failed!\n"), 0u) << result.err;
    EXPECT_THAT(result.err, HasSubstr("[" + call + "]"));
    EXPECT_THAT(result.out, Not(HasSubstr("test press using")));
    EXPECT_EQ(result.signal, 0);
    EXPECT_NE(result.exitStatus, 0);
}

const std::string kUsage = kbUiLine(
    "kb_ui_test", "usage:\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | loop-focus ] ");
const std::string kPrompt = kbUiLine("get_inputs", "=>pls input cmd  [parames]");
const Lines kMore = {"kbui", "more"};
const Lines kLoopStart = start("more", "", 3) + Lines{kUsage};

// The pass that ends the loop: prompt and echo.
Lines lastPass(const std::string& command, const std::string& parameter)
{
    return {kPrompt, kbUiLine("kb_ui_test", "=>cmd:[" + command + "] [" + parameter + "] ")};
}

const Lines kQuit = lastPass("quit", "null");

// Any other one: also what the line did, and the usage.
Lines pass(const std::string& command, const std::string& parameter, const Lines& did = {})
{
    return lastPass(command, parameter) + did + Lines{kUsage};
}

// Lines that are typed, and behind them "quit".
Run session(const char* name, Detail detail, const std::string& input, const Lines& passes)
{
    return {name, kMore, input + "quit\n", kLoopStart + passes + kQuit, "", level(detail)};
}

const Run kSessions[] = {
    session("QuitAloneEndsIt", Off, "", {}),
    session("QuitInTheParameterDoesNotEndIt", Off, "unknown quit\n quit\nQUIT\n",
            pass("unknown", "quit") + pass("", "quit") + pass("QUIT", "null")),
    session("ShowTwicePaintsOnce", On, "show\nshow\n",
            pass("show", "null", done("show", {"called"}, show(On))) +
                pass("show", "null", done("show", {"called"}, {"ui show called "}))),
    session("HideAfterDrawClearsTheWindowOnce", On, "draw\nhide\nhide\n",
            pass("draw", "null", done("draw", {"called"}, draw(On))) +
                pass("hide", "null", done("hide", {"called"}, kHide)) +
                pass("hide", "null", done("hide", {"called"}, kHideHidden))),
    session("LockedKeyStaysSunkenInEveryStepOfLoopFocus", On, "lock\nloop-focus 1\n",
            pass("lock", "null", done("lock", {}, kLock)) +
                pass("loop-focus", "1", loopFocus("1", 1, focusPass(On, {kLockedKey}), 3800))),
    session("SeveralBlanksBeforeTheParameterAreSkipped", Off, "loop-draw    7\n",
            pass("loop-draw", "7", loopDraw(7))),
    session("InnerAndTrailingBlanksOfTheParameterAreKept", Off, "unknown  a  b  \nunknown   \n",
            pass("unknown", "a  b  ") + pass("unknown", "   ")),
    session("ParameterOfOnePassIsForgottenInTheNext", Off, "loop-draw 2\nloop-draw\n",
            pass("loop-draw", "2", loopDraw(2)) + pass("loop-draw", "null", loopDraw(5))),
    session("UnknownCommandIsEchoedAndIgnored", Off, "left 3\nmore\n",
            pass("left", "3") + pass("more", "null")),
    session("EmptyLineIsEchoedAndRunsNothing", Off, "\n draw\n",
            pass("", "null") + pass("", "draw")),
    {"CommandThatContainsQuitEndsIt", kMore, "xquity 3\n", kLoopStart + lastPass("xquity", "3")},
    {"QuitWithABlankEndsIt", kMore, "quit \n", kLoopStart + lastPass("quit", " ")},
    // A count of nothing but blanks is a parameter, and no number.
    {"BlankCountEndsTheProcess", kMore, "loop-draw  \nquit\n",
     kLoopStart + lastPass("loop-draw", "  ") + Lines{"clock"}, kNoNumber},
    {"ParameterOfTheCommandLineIsIgnored",
     {"kbui", "more", "2"},
     "loop-draw\nquit\n",
     start("more", "2") + Lines{kUsage} + pass("loop-draw", "null", loopDraw(5)) + kQuit},
};

INSTANTIATE_TEST_SUITE_P(KbUiLoop, DriverRun, testing::ValuesIn(kSessions), RowName());

TEST(KbUiLoopEnd, UsageIsFollowedByAnEmptyLine)
{
    const TestPlace place;
    const Result result = test_process::run(uiCommand(place, Off, {"more"}), "unknown\nquit\n");
    EXPECT_EQ(test_process::countOf("kb_ui_test(): usage:\t =>cmd:[show|hide|draw | "
                                    "loop-showhide |loop-draw | loop-focus ] \n\n[B-LOG]",
                                    result.out),
              2);
}

TEST(KbUiLoopEnd, EndOfInputKeepsPrompting)
{
    const TestPlace place;
    expectEndlessLoop(uiCommand(place, Off, {"more"}), "hide",
                      "get_inputs(): =>pls input cmd  [parames]\n",
                      kLoopStart + pass("hide", "null", done("hide", {"called"}, kHideHidden)) +
                          48 * pass("", "null"));
}

} // namespace
