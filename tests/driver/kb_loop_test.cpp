// The interactive loop of the kb mode: prompt, reading, echo, and how it ends.

#include <csignal>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "kb_script.h"

using namespace kb_script;
using namespace transcript;
using test_process::Process;
using test_process::Result;

namespace
{

const std::string kPrompt = kbLine(358, "get_kb_inputs", "=>pls input cmd  [parames]");

// One pass of the loop: prompt, echo, what the line did, usage.
Lines pass(const std::string& command, const std::string& parameter, const Lines& done = {})
{
    return Lines{kPrompt, kbLine(334, "kb_test", "=>cmd:[" + command + "] [" + parameter + "] ")} +
           done + Lines{"usage 351"};
}

// The pass that ends the loop.
Lines lastPass(const std::string& parameter)
{
    return {kPrompt, kbLine(334, "kb_test", "=>cmd:[quit] [" + parameter + "] ")};
}

test_process::Command loopCommand(TestPlace& place)
{
    place.putGridLayouts();
    place.putFonts();
    return driverCommand(place, {"kb", "more"});
}

void expectLoop(const std::string& input, const Lines& expected)
{
    TestPlace place;
    const Result result = test_process::run(loopCommand(place), input);
    EXPECT_EQ(text(reduce(result.out)), text(start("more", "", 3) + Lines{"usage 329"} + expected));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exit_status, 0);
}

Lines left(const std::string& parameter, int count, const Lines& probe, int milliseconds)
{
    return timed(Lines{kbLine(27, "kb_test_left_move", "param:" + parameter)} +
                     count * move(kLeft) + probe,
                 384, "test left move", milliseconds);
}

Lines getKey(const Lines& probe)
{
    return timed(probe, 489, "test getkey", 1000);
}

} // namespace

TEST(KbLoop, QuitAloneDoesNotEndIt)
{
    expectLoop("quit\nquit \n", pass("", "null") + lastPass(" "));
}

TEST(KbLoop, QuitWithABlankEndsIt)
{
    expectLoop("quit \n", lastPass(" "));
}

TEST(KbLoop, QuitWithTextBehindEndsIt)
{
    expectLoop("quit now please\n", lastPass("now please"));
}

TEST(KbLoop, CommandThatOnlyContainsQuitDoesNotEndIt)
{
    expectLoop("quits\nxquit \nQuit x\nquit \n",
               pass("quits", "null") + pass("xquit", " ") + pass("Quit", "x") + lastPass(" "));
}

TEST(KbLoop, LineWithoutBlankSetsOnlyTheCommand)
{
    expectLoop("hide\nquit \n",
               pass("hide", "null",
                    timed(Lines{kbLine(288, "kb_test_hide", "called"), "hide"} + press(kEnter) +
                              Lines{kbLine(295, "kb_test_hide", "Hide VKB")},
                          484, "test show", 1000)) +
                   lastPass(" "));
}

TEST(KbLoop, ParameterOfOnePassIsForgottenInTheNext)
{
    expectLoop("left 3\nunknown\nquit \n",
               pass("left", "3", left("3", 3, probeResult("Oned13", '.'), 1500)) +
                   pass("unknown", "null") + lastPass(" "));
}

TEST(KbLoop, SeveralBlanksBeforeTheParameterAreSkipped)
{
    expectLoop("left     3\nquit \n",
               pass("left", "3", left("3", 3, probeResult("Oned13", '.'), 1500)) + lastPass(" "));
}

TEST(KbLoop, InnerAndTrailingBlanksOfTheParameterAreKept)
{
    expectLoop("right 2 3\nunknown  a  b  \nquit \n",
               pass("right", "2 3",
                    timed(Lines{kbLine(38, "kb_test_right_move", "param:2 3")} + 2 * move(kRight) +
                              probeResult("ClearAll", '#'),
                          389, "test right move", 2000)) +
                   pass("unknown", "a  b  ") + lastPass(" "));
}

TEST(KbLoop, LineThatStartsWithABlankHasAnEmptyCommand)
{
    expectLoop(" left 3\nquit \n", pass("", "left 3") + lastPass(" "));
}

TEST(KbLoop, RestOfOnlyBlanksIsTheParameter)
{
    expectLoop("unknown   \nquit \n", pass("unknown", "   ") + lastPass(" "));
}

TEST(KbLoop, TabIsNoBlank)
{
    expectLoop("left\t3\nquit\t\nquit \t\n",
               pass("left\t3", "null") + pass("quit\t", "null") + lastPass("\t"));
}

TEST(KbLoop, EmptyLineRunsNothing)
{
    expectLoop("\nquit \n", pass("", "null") + lastPass(" "));
}

TEST(KbLoop, MoreIsNoCommandOfTheLoop)
{
    expectLoop("more\nquit \n", pass("more", "null") + lastPass(" "));
}

TEST(KbLoop, HideThenGetKeyAnswersTwo)
{
    expectLoop("hide\ngetkey\nquit \n",
               pass("hide", "null",
                    timed(Lines{kbLine(288, "kb_test_hide", "called"), "hide"} + press(kEnter) +
                              Lines{kbLine(295, "kb_test_hide", "Hide VKB")},
                          484, "test show", 1000)) +
                   pass("getkey", "null", getKey(probeAnswer(2))) + lastPass(" "));
}

// Focus, Shift and the shown layout are those that the last command left.
TEST(KbLoop, CommandsStartFromTheStateOfTheLast)
{
    expectLoop(
        "right 3\ngetkey\nshift-right 1\ngetkey\nquit \n",
        pass("right", "3",
             timed(Lines{kbLine(38, "kb_test_right_move", "param:3")} + 3 * move(kRight) +
                       probeResult("Oned3", '$'),
                   389, "test right move", 1500)) +
            pass("getkey", "null", getKey(probeResult("Oned3", '$'))) +
            pass("shift-right", "1",
                 timed(Lines{kbLine(127, "kb_test_shift_right", "param:1")} + 3 * move(kDown) +
                           probeResult("Oned51", 'T') + move(kRight) + probeResult("Oned52", 'U'),
                       429, "test shift-right", 3000)) +
            pass("getkey", "null", getKey(probeResult("Oned52", 'U'))) + lastPass(" "));
}

TEST(KbLoop, ParameterOfTheCommandLineIsIgnored)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    const Result result =
        test_process::run(driverCommand(place, {"kb", "more", "7"}), "unknown\nquit \n");
    EXPECT_EQ(text(reduce(result.out)), text(start("more", "7") + Lines{"usage 329"} +
                                             pass("unknown", "null") + lastPass(" ")));
}

TEST(KbLoop, CountThatIsNoNumberEndsTheProcess)
{
    TestPlace place;
    const Result result = test_process::run(loopCommand(place), "left 1\nleft\nquit \n");
    const Lines cut_off = {kPrompt, kbLine(334, "kb_test", "=>cmd:[left] [null] "), "clock",
                           kbLine(27, "kb_test_left_move", "param:")};
    EXPECT_EQ(text(reduce(result.out)),
              text(start("more", "", 3) + Lines{"usage 329"} +
                   pass("left", "1", left("1", 1, probeResult("Oned15", '0'), 500)) + cut_off));
    EXPECT_EQ(result.signal, SIGABRT);
}

TEST(KbLoop, EndOfInputKeepsPrompting)
{
    TestPlace place;
    Process driver(loopCommand(place));
    ASSERT_TRUE(driver.write("getkey"));
    driver.closeInput();
    ASSERT_TRUE(driver.waitForOutput(kPrompt + "\n", 50));
    driver.kill(SIGKILL);
    EXPECT_EQ(driver.signal(), SIGKILL) << "it had not ended by itself";

    const Lines expected = start("more", "", 3) + Lines{"usage 329"} +
                           pass("getkey", "null", getKey(probeHide())) + 48 * pass("", "null");
    Lines lines = reduce(driver.out());
    ASSERT_GE(lines.size(), expected.size());
    lines.resize(expected.size());
    EXPECT_EQ(text(lines), text(expected));
}

TEST(KbLoop, AfterItsEndTheDriverWaitsForOneMoreCharacter)
{
    TestPlace place;
    Process driver(loopCommand(place));
    ASSERT_TRUE(driver.write("quit \n"));
    ASSERT_TRUE(driver.waitForOutput("=>cmd:[quit] [ ] \n"));
    EXPECT_FALSE(driver.waitForEnd(test_process::Milliseconds(300)));
    ASSERT_TRUE(driver.write("x"));
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.exitStatus(), 0);
}
