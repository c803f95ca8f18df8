// Each command of the kb mode: its log lines, the keys that it sends and its pauses, in order, and
// the figure of its time line. The clock stands still but for the pauses, so a figure is their sum,
// and 1000 more when that is a whole number of seconds: the driver borrows no second.

#include <csignal>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "kb_script.h"

using namespace kb_script;
using namespace transcript;
using test_process::Result;
using testing::HasSubstr;
using testing::Not;

namespace
{

Result runKb(const std::vector<std::string>& arguments)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    std::vector<std::string> words = {"kb"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return test_process::run(driverCommand(place, words));
}

// One of the script's own lines, then its steps.
Lines script(int line, const std::string& function, const std::string& message, const Lines& steps)
{
    return Lines{kbLine(line, function, message)} + steps;
}

void expectRun(const std::string& command, const std::string& parameter, const Lines& expected)
{
    const Result result = runKb({command, parameter});
    EXPECT_EQ(text(reduce(result.out)), text(start(command, parameter) + expected));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exit_status, 0);
}

void expectAbort(const std::string& command, const std::string& parameter, const Lines& expected,
                 const std::string& error)
{
    const Result result = runKb({command, parameter});
    EXPECT_EQ(text(reduce(result.out)),
              text(start(command, parameter) + Lines{"clock"} + expected));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.err, HasSubstr(error));
}

} // namespace

TEST(KbCommand, Left)
{
    expectRun("left", "2",
              timed(script(27, "kb_test_left_move", "param:2",
                           2 * move(kLeft) + probeResult("Oned14", '/')),
                    384, "test left move", 2000));
}

TEST(KbCommand, Right)
{
    expectRun("right", "5",
              timed(script(38, "kb_test_right_move", "param:5",
                           5 * move(kRight) + probeResult("Oned5", '&')),
                    389, "test right move", 2500));
}

TEST(KbCommand, Up)
{
    expectRun(
        "up", "6",
        timed(script(49, "kb_test_up_move", "param:6", 6 * move(kUp) + probeResult("Oned64", 'a')),
              394, "test up move", 4000));
}

TEST(KbCommand, Down)
{
    expectRun("down", "6",
              timed(script(60, "kb_test_down_move", "param:6",
                           6 * move(kDown) + probeResult("Oned16", '1')),
                    399, "test down move", 4000));
}

TEST(KbCommand, LoopLeft)
{
    expectRun(
        "loop-left", "",
        timed(script(71, "kb_test_loop_left", "called", 111 * move(kLeft) + probeLanguage("Two")),
              404, "test right move", 55500));
}

TEST(KbCommand, LoopRight)
{
    expectRun("loop-right", "",
              timed(script(81, "kb_test_loop_right", "called",
                           111 * move(kRight) + probeResult("Oned15", '0')),
                    409, "test right move", 55500));
}

TEST(KbCommand, LoopUp)
{
    expectRun(
        "loop-up", "",
        timed(script(92, "kb_test_loop_up", "called", 111 * move(kUp) + probeResult("Oned64", 'a')),
              414, "test right move", 55500));
}

TEST(KbCommand, LoopDown)
{
    expectRun("loop-down", "",
              timed(script(103, "kb_test_loop_down", "called",
                           111 * move(kDown) + probeResult("Oned16", '1')),
                    419, "test right move", 55500));
}

TEST(KbCommand, Shift)
{
    expectRun("shift", "",
              timed(script(114, "kb_test_shift", "called",
                           3 * move(kDown) + probeShift(0) + Lines{"sleep 5"} + probeShift(1)),
                    424, "test shift", 6500));
}

TEST(KbCommand, ShiftRight)
{
    expectRun("shift-right", "2",
              timed(script(127, "kb_test_shift_right", "param:2",
                           3 * move(kDown) + probeShift(0) + 2 * move(kRight) +
                               probeResult("OneD50", 'S')),
                    429, "test shift-right", 2500));
}

TEST(KbCommand, ShiftLock)
{
    expectRun("shift-lock", "2",
              timed(script(144, "kb_test_shift_lock", "param:2",
                           3 * move(kDown) + probeShift(0) + Lines{"sleep 3"} + probeShift(1) +
                               Lines{"sleep 1"} + 2 * move(kRight) + probeResult("OneD50", 'S')),
                    434, "test shift-lock", 6500));
}

TEST(KbCommand, Alt)
{
    expectRun("alt", "",
              timed(script(165, "kb_test_alt", "called",
                           2 * move(kDown) + probeAlt(0) + Lines{"sleep 5"} + probeAlt(1)),
                    439, "test alt", 7000));
}

// The symbol set's key codes are above 255 here: the probe shows their low 8 bits.
TEST(KbCommand, AltRight)
{
    expectRun("alt-right", "2",
              timed(script(178, "kb_test_alt_right", "param:2",
                           2 * move(kDown) + probeAlt(0) + 2 * move(kRight) +
                               probeResult("Ones34", 256 + 'C')),
                    444, "test alt-right", 3000));
}

TEST(KbCommand, AltShift)
{
    expectRun("alt-shift", "",
              timed(script(195, "kb_test_alt_shift", "called",
                           2 * move(kDown) + probeAlt(0) + Lines{"usleep 500000"} + press(kDown) +
                               probeShift(0)),
                    449, "test alt-shift", 1500));
}

TEST(KbCommand, Language)
{
    expectRun("language", "3",
              timed(script(209, "kb_test_language", "param:3",
                           press(kRight) + probeLanguage("Two") + Lines{"sleep 5"} +
                               probeLanguage("One") + Lines{"sleep 5"} + probeLanguage("Two") +
                               Lines{"sleep 5"}),
                    454, "test switch language", 16000));
}

TEST(KbCommand, Clear)
{
    expectRun("clear", "",
              timed(script(237, "kb_test_clear", "called",
                           press(kDown) + 13 * move(kRight) + probeResult("Oned29", '>')),
                    459, "test show", 6500));
}

TEST(KbCommand, ClearAll)
{
    expectRun("clear-all", "",
              timed(script(249, "kb_test_clear_all", "called",
                           2 * move(kRight) + probeResult("ClearAll", '#')),
                    464, "test show", 2000));
}

TEST(KbCommand, Submit)
{
    expectRun("submit", "",
              timed(script(222, "kb_test_submit", "called",
                           2 * move(kDown) + 13 * move(kRight) + probeResult("Oned45", 'N')),
                    469, "test show", 7500));
}

TEST(KbCommand, Space)
{
    expectRun("space", "",
              timed(script(260, "kb_test_space", "called",
                           3 * move(kRight) + 4 * move(kDown) + probeResult("Oned67", 'd')),
                    474, "test show", 3500));
}

TEST(KbCommand, Show)
{
    expectRun("show", "",
              timed(script(275, "kb_test_show", "called",
                           3 * move(kRight) + probeResult("Oned3", '$') +
                               Lines{"hide", "sleep 2", "show"} + probeResult("Oned3", '$')),
                    479, "test show", 3500));
}

TEST(KbCommand, Hide)
{
    expectRun("hide", "",
              timed(script(288, "kb_test_hide", "called",
                           Lines{"hide"} + press(kEnter) +
                               Lines{kbLine(295, "kb_test_hide", "Hide VKB")}),
                    484, "test show", 1000));
}

TEST(KbCommand, GetKey)
{
    expectRun("getkey", "", timed(probeHide(), 489, "test getkey", 1000));
}

TEST(KbCommand, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Left", "left ", "lef", "quit", "more "})
        expectRun(command, "3", {});
}

TEST(KbCommand, ShowWithThreeArgumentsHasAnEmptyParameter)
{
    const Result result = runKb({"show"});
    const Lines lines = reduce(result.out);
    const Lines expected = start("show", "", 3);
    ASSERT_GT(lines.size(), expected.size());
    EXPECT_EQ(text(Lines(lines.begin(), lines.begin() + static_cast<long>(expected.size()))),
              text(expected));
    EXPECT_EQ(lines.back(), kbLine(479, "handle_kb_tests", "=======>test show using:3500 ms"));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbCommand, WaitsForEnterAfterTheCommand)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    test_process::Process driver(driverCommandTraced(place, {"kb", "show"}));
    ASSERT_TRUE(driver.waitForOutput("test show using:"));
    EXPECT_FALSE(driver.waitForOutput("dfb layer Release\n", 1, test_process::Milliseconds(300)));
    ASSERT_TRUE(driver.write("\n"));
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_THAT(driver.out(), HasSubstr("dfb layer Release\ndfb dfb Release\n"));
    EXPECT_EQ(driver.exitStatus(), 0);
}

TEST(KbCommand, TakesItsPausesInRealTime)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    const Result result = test_process::run(driverCommandInRealTime(place, {"kb", "left", "3"}));
    const std::string head = kbLine(384, "handle_kb_tests", "=======>test left move using:");
    const size_t at = result.out.find(head);
    ASSERT_NE(at, std::string::npos) << result.out;
    const long milliseconds = std::stol(result.out.substr(at + head.size()));
    EXPECT_GE(milliseconds, 1500);
    EXPECT_LE(milliseconds, result.time.count() + 1000) << "at most one second not borrowed";
    EXPECT_GE(result.time.count(), 1500);
}

TEST(KbCount, ZeroMakesNoMoveAndProbes)
{
    expectRun("left", "0",
              timed(script(27, "kb_test_left_move", "param:0", probeHide()), 384, "test left move",
                    1000));
}

TEST(KbCount, NegativeMakesNoMoveAndProbes)
{
    expectRun("left", "-2",
              timed(script(27, "kb_test_left_move", "param:-2", probeHide()), 384, "test left move",
                    1000));
}

TEST(KbCount, ZeroMakesNoStepInEveryScriptWithACount)
{
    expectRun("shift-right", "0",
              timed(script(127, "kb_test_shift_right", "param:0",
                           3 * move(kDown) + probeShift(0) + probeShift(1)),
                    429, "test shift-right", 1500));
    expectRun("alt-right", "-1",
              timed(script(178, "kb_test_alt_right", "param:-1",
                           2 * move(kDown) + probeAlt(0) + probeAlt(1)),
                    444, "test alt-right", 2000));
    expectRun("language", "0",
              timed(script(209, "kb_test_language", "param:0", press(kRight)), 454,
                    "test switch language", 1000));
}

TEST(KbCount, TextBehindTheNumberIsIgnored)
{
    expectRun("left", "3abc",
              timed(script(27, "kb_test_left_move", "param:3abc",
                           3 * move(kLeft) + probeResult("Oned13", '.')),
                    384, "test left move", 1500));
}

TEST(KbCount, SecondNumberIsIgnored)
{
    expectRun("right", "3 2",
              timed(script(38, "kb_test_right_move", "param:3 2",
                           3 * move(kRight) + probeResult("Oned3", '$')),
                    389, "test right move", 1500));
}

TEST(KbCount, LeadingWhiteSpaceAndSignAreTaken)
{
    expectRun("right", "\t +3",
              timed(script(38, "kb_test_right_move", "param:\t +3",
                           3 * move(kRight) + probeResult("Oned3", '$')),
                    389, "test right move", 1500));
}

TEST(KbCount, LeftWithoutCountEndsAbnormallyBeforeAnyKey)
{
    const Result result = runKb({"left"});
    EXPECT_EQ(
        text(reduce(result.out)),
        text(start("left", "", 3) + (Lines{"clock", kbLine(27, "kb_test_left_move", "param:")})));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.err, HasSubstr("invalid_argument"));
}

TEST(KbCount, LanguageWithoutCountProbesOnceThenEndsAbnormally)
{
    const Result result = runKb({"language"});
    EXPECT_EQ(
        text(reduce(result.out)),
        text(start("language", "", 3) + (Lines{"clock", kbLine(209, "kb_test_language", "param:")} +
                                         press(kRight) + probeLanguage("Two"))));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.err, HasSubstr("invalid_argument"));
}

TEST(KbCount, NoNumberEndsAbnormallyBeforeAnyMove)
{
    struct Script {
        const char* command;
        int line;
        const char* function;
    };
    for (const Script& one :
         {Script{"left", 27, "kb_test_left_move"}, Script{"right", 38, "kb_test_right_move"},
          Script{"up", 49, "kb_test_up_move"}, Script{"down", 60, "kb_test_down_move"}}) {
        for (const std::string parameter : {"", "   ", "abc", "-", "x3"})
            expectAbort(one.command, parameter,
                        {kbLine(one.line, one.function, "param:" + parameter)}, "invalid_argument");
    }
}

TEST(KbCount, NumberOutsideIntEndsAbnormally)
{
    for (const std::string parameter : {"2147483648", "-2147483649", "99999999999999999999"})
        expectAbort("left", parameter, {kbLine(27, "kb_test_left_move", "param:" + parameter)},
                    "out_of_range");
}

// The conversion stands where the count is first needed: the keys before it have been sent.
TEST(KbCount, KeysBeforeTheConversionAreSent)
{
    expectAbort("shift-right", "abc",
                script(127, "kb_test_shift_right", "param:abc", 3 * move(kDown) + probeShift(0)),
                "invalid_argument");
    expectAbort("shift-lock", "abc",
                script(144, "kb_test_shift_lock", "param:abc",
                       3 * move(kDown) + probeShift(0) + Lines{"sleep 3"} + probeShift(1) +
                           Lines{"sleep 1"}),
                "invalid_argument");
    expectAbort(
        "alt-right", "99999999999",
        script(178, "kb_test_alt_right", "param:99999999999", 2 * move(kDown) + probeAlt(0)),
        "out_of_range");
    expectAbort("language", "abc", script(209, "kb_test_language", "param:abc", press(kRight)),
                "invalid_argument");
}

TEST(KbLog, SwitchedOffTakesNoSecondClockReading)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    test_process::Command command = driverCommand(place, {"kb", "left", "2"});
    command.environment["CSP_DEBUG_LEVEL"] = "0";
    const Result result = test_process::run(command);
    EXPECT_EQ(result.out, "clock\nusleep 500000\nusleep 500000\n");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbBadInput, EmptyLayoutListLeavesTheKeyboardNotStarted)
{
    TestPlace place;
    place.putGridLayouts({});
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "show", ""}));
    Lines expected = start("show", "");
    expected.pop_back(); // no layout is chosen
    EXPECT_EQ(text(reduce(result.out)),
              text(expected + timed(script(275, "kb_test_show", "called",
                                           3 * move(kRight) + probeAnswer(2) +
                                               Lines{"hide", "sleep 2", "show"} + probeAnswer(2)),
                                    479, "test show", 3500)));
    EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbBadInput, MissingCatalogueLeavesTheKeyboardNotStarted)
{
    TestPlace place;
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "left", "1"}));
    Lines expected = start("left", "1");
    expected.pop_back();
    EXPECT_EQ(text(reduce(result.out)),
              text(expected +
                   timed(script(27, "kb_test_left_move", "param:1", move(kLeft) + probeAnswer(2)),
                         384, "test left move", 500)));
    EXPECT_THAT(result.out, Not(HasSubstr("Layout Parse Successfully")));
    EXPECT_THAT(result.out, HasSubstr("enter(): language num :0 \n"));
    EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbBadInput, MissingKeyMapLeavesAnEmptyKeySet)
{
    TestPlace place;
    place.putGridLayouts();
    place.folder().removeKeyMap("One");
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "right", "2"}));
    // The focused key was never set: its zeroes are a key result.
    const Lines probe = {kbLine(13, "kb_test_get_key", "called"), "key 13", "result  0",
                         kbLine(20, "kb_test_get_key", "curernt key :")};
    EXPECT_EQ(text(reduce(result.out)),
              text(start("right", "2") +
                   timed(script(38, "kb_test_right_move", "param:2", 2 * move(kRight) + probe), 389,
                         "test right move", 2000)));
    EXPECT_EQ(
        test_process::countOf("Target keybutton is error,no need to change focus!\n", result.out),
        3);
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbBadInput, MalformedKeyMapIsLikeAMissingOne)
{
    TestPlace place;
    place.putGridLayouts();
    place.folder().writeKeyMap("One", "{ \"Keys\": ");
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "right", "1"}));
    EXPECT_THAT(result.out, Not(HasSubstr("LayoutKeyMap Parse Successfully")));
    EXPECT_THAT(reduce(result.out), testing::Contains("result  0"));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbBadInput, MissingFontOnlyLeavesTheKeysUnpainted)
{
    TestPlace place;
    place.putGridLayouts();
    const Result result = test_process::run(driverCommand(place, {"kb", "right", "5"}));
    EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font file is not exist !!!\n"));
    EXPECT_EQ(text(reduce(result.out)),
              text(start("right", "5") + timed(script(38, "kb_test_right_move", "param:5",
                                                      5 * move(kRight) + probeResult("Oned5", '&')),
                                               389, "test right move", 2500)));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbFont, ComesFromTheEnvironment)
{
    TestPlace place;
    place.putGridLayouts();
    place.folder().linkFile("/opt/font/other.ttf", testFont());
    test_process::Command command = driverCommand(place, {"kb", "getkey"});
    command.environment["VIRTUAL_KEYBOARD_FONT_PATH"] = "/opt/font/other.ttf";
    const Result result = test_process::run(command);
    EXPECT_THAT(result.out, Not(HasSubstr("VIRTUAL_KEYBOARD_FONT_PATH undefine!")));
    EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font-height:37\n"));
    EXPECT_EQ(result.exit_status, 0);
}

TEST(KbFont, IsTheTelevisionsOwnWithoutTheVariable)
{
    const Result result = runKb({"getkey"});
    EXPECT_THAT(result.out, HasSubstr("KeyBoardCore(): VIRTUAL_KEYBOARD_FONT_PATH undefine!\n"));
    EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font-height:37\n"));
}
