// Each command of the kbui mode: its log lines, what it asks of the renderer and its pauses, in
// order, and the figure of its time line (see kb_commands_test.cpp).

#include <csignal>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "ui_script.h"

using namespace transcript;
using namespace ui_script;
using test_process::Result;
using testing::HasSubstr;
using testing::Not;

namespace
{

Result runUi(Detail detail, const std::vector<std::string>& arguments)
{
    TestPlace place;
    place.putFonts();
    std::vector<std::string> words = {"kbui"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    test_process::Command command = driverCommand(place, words);
    if (detail == Detail::ON)
        command.environment["CSP_DEBUG_LEVEL"] = "5000";
    return test_process::run(command);
}

void expectRun(Detail detail, const std::string& command, const std::string& parameter,
               const Lines& expected)
{
    const Result result = runUi(detail, {command, parameter});
    EXPECT_EQ(text(reduceWithRenderer(result.out)), text(start(command, parameter) + expected));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exit_status, 0);
}

Lines called(const std::string& function, const Lines& steps)
{
    return Lines{kbUiLine(function, "called")} + steps;
}

Lines counted(const std::string& function, int count, const Lines& steps)
{
    return Lines{kbUiLine(function, "param:" + std::to_string(count))} + steps;
}

// One pass of loop-focus.
Lines focusPass(Detail detail)
{
    return kTestKeys * (setFocus(detail) + Lines{"usleep 200000"});
}

Lines loopFocus(const std::string& parameter, int count, const Lines& passes, int milliseconds)
{
    return Lines{kbUiLine("handle_tests", "=======>test loop_focus ")} +
           timed(Lines{kbUiLine("kb_ui_test_loop_focus", "param:" + parameter)} +
                     counted("kb_ui_test_loop_focus", count, passes),
                 "test loop_focus", milliseconds);
}

} // namespace

TEST(KbUiCommand, Draw)
{
    expectRun(Detail::ON, "draw", "",
              timed(called("kb_ui_test_draw", draw(Detail::ON)), "test_draw", 1000));
}

// Nothing is painted yet, so there is nothing to hide.
TEST(KbUiCommand, Hide)
{
    expectRun(Detail::ON, "hide", "",
              timed(called("kb_ui_test_hide", {"ui hide called"}), "test hide", 1000));
}

TEST(KbUiCommand, Show)
{
    expectRun(Detail::ON, "show", "",
              timed(called("kb_ui_test_show", show(Detail::ON)), "test show", 1000));
}

TEST(KbUiCommand, LoopShowHide)
{
    expectRun(Detail::ON, "loop-showhide", "3",
              timed(counted("kb_ui_test_loop_showhide", 3,
                            3 * (show(Detail::ON) + Lines{"usleep 100000"} + hide())),
                    "test loop showhidew", 300));
}

TEST(KbUiCommand, LoopDraw)
{
    expectRun(
        Detail::ON, "loop-draw", "2",
        timed(counted("kb_ui_test_loop_draw", 2, 2 * draw(Detail::ON)), "test loop-draw", 1000));
}

TEST(KbUiCommand, LoopFocus)
{
    expectRun(Detail::ON, "loop-focus", "1", loopFocus("1", 1, focusPass(Detail::ON), 3800));
}

TEST(KbUiCommand, Press)
{
    expectRun(Detail::ON, "press", "",
              Lines{kbUiLine("handle_tests", "=======>test press ")} +
                  timed(setFocus(Detail::ON) + Lines{paintedKey(kPressedKey), "sleep 1"} +
                            Lines{paintedKey(kPressedKey)} + setFocus(Detail::ON),
                        "test press", 2000));
}

TEST(KbUiCommand, Lock)
{
    expectRun(Detail::ON, "lock", "",
              Lines{kbUiLine("handle_tests", "=======>lock press ")} +
                  timed(Lines{"ui setLocked called "} + draw(Detail::ON, {kLockedKey}),
                        "lock press", 1000));
}

TEST(KbUiCommand, WithThreeArgumentsHasAnEmptyParameter)
{
    const Result result = runUi(Detail::OFF, {"loop-showhide"});
    EXPECT_EQ(text(reduceWithRenderer(result.out)),
              text(start("loop-showhide", "", 3) +
                   timed(counted("kb_ui_test_loop_showhide", 5,
                                 5 * (show(Detail::OFF) + Lines{"usleep 100000"} + hide())),
                         "test loop showhidew", 500)));
}

TEST(KbUiCommand, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Draw", "draw ", "left", "quit"})
        expectRun(Detail::ON, command, "3", {});
}

TEST(KbUiCount, LoopDrawWithZeroDrawsNothing)
{
    expectRun(Detail::ON, "loop-draw", "0",
              timed(counted("kb_ui_test_loop_draw", 0, {}), "test loop-draw", 1000));
}

TEST(KbUiCount, LoopShowHideWithANegativeCountDrawsNothing)
{
    expectRun(Detail::ON, "loop-showhide", "-3",
              timed(counted("kb_ui_test_loop_showhide", -3, {}), "test loop showhidew", 1000));
}

TEST(KbUiCount, LoopDrawHasNoUpperBound)
{
    expectRun(
        Detail::OFF, "loop-draw", "60",
        timed(counted("kb_ui_test_loop_draw", 60, 60 * draw(Detail::OFF)), "test loop-draw", 1000));
}

TEST(KbUiCount, EmptyParameterMeansFive)
{
    expectRun(
        Detail::OFF, "loop-draw", "",
        timed(counted("kb_ui_test_loop_draw", 5, 5 * draw(Detail::OFF)), "test loop-draw", 1000));
    expectRun(Detail::OFF, "loop-focus", "", loopFocus("", 5, 5 * focusPass(Detail::OFF), 20000));
}

TEST(KbUiCount, LoopFocusAboveFiftyRunsFiftyPasses)
{
    expectRun(Detail::OFF, "loop-focus", "80",
              loopFocus("80", 80, 50 * focusPass(Detail::OFF), 191000));
}

TEST(KbUiCount, LoopFocusBelowZeroRunsFiftyPasses)
{
    expectRun(Detail::OFF, "loop-focus", "-1",
              loopFocus("-1", -1, 50 * focusPass(Detail::OFF), 191000));
}

TEST(KbUiCount, LoopFocusWithZeroRunsNoPass)
{
    expectRun(Detail::ON, "loop-focus", "0", loopFocus("0", 0, {}, 1000));
}

TEST(KbUiCount, TextBehindTheNumberIsIgnored)
{
    expectRun(Detail::OFF, "loop-focus", " 2 passes",
              loopFocus(" 2 passes", 2, 2 * focusPass(Detail::OFF), 7600));
}

TEST(KbUiCount, NoNumberEndsAbnormally)
{
    for (const std::string parameter : {"abc", "   ", "-"}) {
        const Result result = runUi(Detail::OFF, {"loop-draw", parameter});
        EXPECT_EQ(text(reduceWithRenderer(result.out)),
                  text(start("loop-draw", parameter) + Lines{"clock"}));
        EXPECT_EQ(result.signal, SIGABRT);
        EXPECT_THAT(result.err, HasSubstr("invalid_argument"));
    }
}

TEST(KbUiCount, NumberOutsideIntEndsAbnormallyBehindTheAnnouncement)
{
    const Result result = runUi(Detail::OFF, {"loop-focus", "2147483648"});
    EXPECT_EQ(text(reduceWithRenderer(result.out)),
              text(start("loop-focus", "2147483648") +
                   Lines{kbUiLine("handle_tests", "=======>test loop_focus "), "clock",
                         kbUiLine("kb_ui_test_loop_focus", "param:2147483648")}));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.err, HasSubstr("out_of_range"));
}

TEST(KbUiLog, SwitchedOffTakesNoSecondClockReading)
{
    TestPlace place;
    place.putFonts();
    test_process::Command command = driverCommand(place, {"kbui", "press"});
    command.environment["CSP_DEBUG_LEVEL"] = "0";
    const Result result = test_process::run(command);
    EXPECT_EQ(result.out, "clock\nsleep 1\n");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbUiBadInput, MissingFontPaintsNothing)
{
    TestPlace place;
    for (const std::string command : {"draw", "show"}) {
        test_process::Command run = driverCommand(place, {"kbui", command});
        run.environment["CSP_DEBUG_LEVEL"] = "5000";
        const Result result = test_process::run(run);
        EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font file is not exist !!!\n"));
        EXPECT_THAT(result.out, HasSubstr("draw(): called\n"));
        EXPECT_THAT(result.out, Not(HasSubstr("drawElement")));
        EXPECT_THAT(result.out, Not(HasSubstr("draw(): done")));
        EXPECT_THAT(result.out, HasSubstr(" using:1000 ms\n"));
        EXPECT_EQ(result.exit_status, 0);
    }
}

TEST(KbUiBadInput, MissingFontStillLocksAndFocuses)
{
    TestPlace place;
    for (const std::string command : {"lock", "loop-focus"}) {
        const Result result = test_process::run(driverCommand(place, {"kbui", command, "1"}));
        EXPECT_THAT(result.out, HasSubstr("handle_tests(): =======>"));
        EXPECT_THAT(result.out, HasSubstr(" ms\n"));
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exit_status, 0);
    }
}

TEST(KbUiBadInput, MissingFontEndsPressThroughItsText)
{
    TestPlace place;
    const Result result = test_process::run(driverCommand(place, {"kbui", "press"}));
    const std::string call =
        "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,DSTF_TOPCENTER)";
    EXPECT_EQ(result.err.find("directfb do: '" + call + "' failed!\n"), 0u) << result.err;
    EXPECT_THAT(result.err, HasSubstr("[" + call + "]"));
    EXPECT_THAT(result.out, Not(HasSubstr("test press using")));
    EXPECT_EQ(result.signal, 0);
    EXPECT_NE(result.exit_status, 0);
}

TEST(KbUiBadInput, LayoutFilesAreNotLookedAt)
{
    const Result result = runUi(Detail::OFF, {"show"});
    EXPECT_THAT(result.out, Not(HasSubstr("Language_Parser.cpp")));
    EXPECT_THAT(result.out, Not(HasSubstr("keyboard_core.cpp")));
}
