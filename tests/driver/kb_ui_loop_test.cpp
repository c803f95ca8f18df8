// The interactive loop of the kbui mode: prompt, reading, echo, and how it ends.

#include <csignal>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "ui_script.h"

using namespace transcript;
using namespace ui_script;
using test_process::Process;
using test_process::Result;

namespace
{

const std::string kUsage = kbUiLine(
    "kb_ui_test", "usage:\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | loop-focus ] ");
const std::string kPrompt = kbUiLine("get_inputs", "=>pls input cmd  [parames]");

// One pass of the loop behind its usage line: prompt, echo, what the line did, usage.
Lines pass(const std::string& command, const std::string& parameter, const Lines& done = {})
{
    return Lines{kPrompt, kbUiLine("kb_ui_test", "=>cmd:[" + command + "] [" + parameter + "] ")} +
           done + Lines{kUsage};
}

Lines lastPass(const std::string& command, const std::string& parameter)
{
    return {kPrompt, kbUiLine("kb_ui_test", "=>cmd:[" + command + "] [" + parameter + "] ")};
}

test_process::Command loopCommand(TestPlace& place, Detail detail)
{
    place.putFonts();
    test_process::Command command = driverCommand(place, {"kbui", "more"});
    if (detail == Detail::ON)
        command.environment["CSP_DEBUG_LEVEL"] = "5000";
    return command;
}

void expectLoop(Detail detail, const std::string& input, const Lines& expected)
{
    TestPlace place;
    const Result result = test_process::run(loopCommand(place, detail), input);
    EXPECT_EQ(text(reduceWithRenderer(result.out)),
              text(start("more", "", 3) + Lines{kUsage} + expected));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exit_status, 0);
}

Lines simple(const std::string& function, const Lines& steps, const std::string& text)
{
    return timed(Lines{kbUiLine(function, "called")} + steps, text, 1000);
}

Lines loopDraw(int count)
{
    return timed(Lines{kbUiLine("kb_ui_test_loop_draw", "param:" + std::to_string(count))} +
                     count * draw(Detail::OFF),
                 "test loop-draw", 1000);
}

} // namespace

TEST(KbUiLoop, QuitAloneEndsIt)
{
    expectLoop(Detail::OFF, "quit\n", lastPass("quit", "null"));
}

TEST(KbUiLoop, CommandThatContainsQuitEndsIt)
{
    expectLoop(Detail::OFF, "xquity 3\n", lastPass("xquity", "3"));
}

TEST(KbUiLoop, QuitWithABlankEndsIt)
{
    expectLoop(Detail::OFF, "quit \n", lastPass("quit", " "));
}

TEST(KbUiLoop, QuitInTheParameterDoesNotEndIt)
{
    expectLoop(Detail::OFF, "unknown quit\n quit\nQUIT\nquit\n",
               pass("unknown", "quit") + pass("", "quit") + pass("QUIT", "null") +
                   lastPass("quit", "null"));
}

TEST(KbUiLoop, UsageIsFollowedByAnEmptyLine)
{
    TestPlace place;
    const Result result = test_process::run(loopCommand(place, Detail::OFF), "unknown\nquit\n");
    EXPECT_EQ(test_process::countOf("kb_ui_test(): usage:\t =>cmd:[show|hide|draw | "
                                    "loop-showhide |loop-draw | loop-focus ] \n\n[B-LOG]",
                                    result.out),
              2);
}

TEST(KbUiLoop, ShowTwicePaintsOnce)
{
    expectLoop(
        Detail::ON, "show\nshow\nquit\n",
        pass("show", "null", simple("kb_ui_test_show", show(Detail::ON), "test show")) +
            pass("show", "null", simple("kb_ui_test_show", {"ui show called "}, "test show")) +
            lastPass("quit", "null"));
}

TEST(KbUiLoop, HideAfterDrawClearsTheWindowOnce)
{
    expectLoop(
        Detail::ON, "draw\nhide\nhide\nquit\n",
        pass("draw", "null", simple("kb_ui_test_draw", draw(Detail::ON), "test_draw")) +
            pass("hide", "null", simple("kb_ui_test_hide", hide(), "test hide")) +
            pass("hide", "null", simple("kb_ui_test_hide", {"ui hide called"}, "test hide")) +
            lastPass("quit", "null"));
}

TEST(KbUiLoop, LockedKeyStaysSunkenInEveryStepOfLoopFocus)
{
    expectLoop(Detail::ON, "lock\nloop-focus 1\nquit\n",
               pass("lock", "null",
                    Lines{kbUiLine("handle_tests", "=======>lock press ")} +
                        timed(Lines{"ui setLocked called "} + draw(Detail::ON, {kLockedKey}),
                              "lock press", 1000)) +
                   pass("loop-focus", "1",
                        Lines{kbUiLine("handle_tests", "=======>test loop_focus ")} +
                            timed(Lines{kbUiLine("kb_ui_test_loop_focus", "param:1"),
                                        kbUiLine("kb_ui_test_loop_focus", "param:1")} +
                                      kTestKeys * (setFocus(Detail::ON, {kLockedKey}) +
                                                   Lines{"usleep 200000"}),
                                  "test loop_focus", 3800)) +
                   lastPass("quit", "null"));
}

TEST(KbUiLoop, SeveralBlanksBeforeTheParameterAreSkipped)
{
    expectLoop(Detail::OFF, "loop-draw    7\nquit\n",
               pass("loop-draw", "7", loopDraw(7)) + lastPass("quit", "null"));
}

TEST(KbUiLoop, InnerAndTrailingBlanksOfTheParameterAreKept)
{
    expectLoop(Detail::OFF, "unknown  a  b  \nunknown   \nquit\n",
               pass("unknown", "a  b  ") + pass("unknown", "   ") + lastPass("quit", "null"));
}

// A count of nothing but blanks is a parameter, and no number.
TEST(KbUiLoop, BlankCountEndsTheProcess)
{
    TestPlace place;
    const Result result = test_process::run(loopCommand(place, Detail::OFF), "loop-draw  \nquit\n");
    EXPECT_EQ(result.signal, SIGABRT);
    const Lines cut_off = {kPrompt, kbUiLine("kb_ui_test", "=>cmd:[loop-draw] [  ] "), "clock"};
    EXPECT_EQ(text(reduceWithRenderer(result.out)),
              text(start("more", "", 3) + Lines{kUsage} + cut_off));
}

TEST(KbUiLoop, ParameterOfOnePassIsForgottenInTheNext)
{
    expectLoop(Detail::OFF, "loop-draw 2\nloop-draw\nquit\n",
               pass("loop-draw", "2", loopDraw(2)) + pass("loop-draw", "null", loopDraw(5)) +
                   lastPass("quit", "null"));
}

TEST(KbUiLoop, UnknownCommandIsEchoedAndIgnored)
{
    expectLoop(Detail::OFF, "left 3\nmore\nquit\n",
               pass("left", "3") + pass("more", "null") + lastPass("quit", "null"));
}

TEST(KbUiLoop, EmptyLineIsEchoedAndRunsNothing)
{
    expectLoop(Detail::OFF, "\n draw\nquit\n",
               pass("", "null") + pass("", "draw") + lastPass("quit", "null"));
}

TEST(KbUiLoop, ParameterOfTheCommandLineIsIgnored)
{
    TestPlace place;
    place.putFonts();
    const Result result =
        test_process::run(driverCommand(place, {"kbui", "more", "2"}), "loop-draw\nquit\n");
    EXPECT_EQ(text(reduceWithRenderer(result.out)),
              text(start("more", "2") + Lines{kUsage} + pass("loop-draw", "null", loopDraw(5)) +
                   lastPass("quit", "null")));
}

TEST(KbUiLoop, EndOfInputKeepsPrompting)
{
    TestPlace place;
    Process driver(loopCommand(place, Detail::OFF));
    ASSERT_TRUE(driver.write("hide"));
    driver.closeInput();
    ASSERT_TRUE(driver.waitForOutput("get_inputs(): =>pls input cmd  [parames]\n", 50));
    driver.kill(SIGKILL);
    EXPECT_EQ(driver.signal(), SIGKILL) << "it had not ended by itself";

    const Lines expected =
        start("more", "", 3) + Lines{kUsage} +
        pass("hide", "null", simple("kb_ui_test_hide", {"ui hide called"}, "test hide")) +
        48 * pass("", "null");
    Lines lines = reduceWithRenderer(driver.out());
    ASSERT_GE(lines.size(), expected.size());
    lines.resize(expected.size());
    EXPECT_EQ(text(lines), text(expected));
}
