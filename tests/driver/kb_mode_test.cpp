// The kb mode from outside. Each command: its log lines, the keys that it sends and its pauses, in
// order, and the figure of its time line. The clock stands still but for the pauses, so a figure is
// their sum, and 1000 more when that is a whole number of seconds: the driver borrows no second.
// Then the interactive loop: prompt, reading, echo, and how it ends.

#include <map>

#include <gmock/gmock.h>

#include "driver_run.h"

using namespace transcript;
using test_process::Process;
using test_process::Result;
using test_support::RowName;
using testing::HasSubstr;

namespace
{

enum RemoteKey { Ok = 13, Left = 37, Up, Right, Down };

// A key without a pause, and one with the step pause behind it.
Lines press(RemoteKey key)
{
    return {"key " + std::to_string(key)};
}

Lines move(RemoteKey key)
{
    return press(key) + Lines{"usleep 500000"};
}

// OK, and what it brought: a key result, or the answer to OK behind what the keyboard did.
Lines probeResult(const std::string& text, int key_code)
{
    return {kbLine(13, "kb_test_get_key", "called"), "key 13",
            "result " + text + " " + std::to_string(key_code),
            kbLine(20, "kb_test_get_key",
                   std::string("curernt key :") + static_cast<char>(key_code & 0xFF))};
}

Lines probeAnswer(int answer, const Lines& between = {})
{
    return Lines{kbLine(13, "kb_test_get_key", "called"), "key 13"} + between +
           Lines{kbLine(22, "kb_test_get_key", "key result :" + std::to_string(answer))};
}

// The probes of the test keyboard's special keys.
Lines probeShift(int mode)
{
    return probeAnswer(0, {"mode shiftButtonHandle " + std::to_string(mode)});
}

Lines probeAlt(int mode)
{
    return probeAnswer(0, {"mode altButtonHandle " + std::to_string(mode)});
}

Lines probeLanguage(const std::string& next_layout)
{
    return probeAnswer(0, {"layout " + next_layout});
}

const Lines kProbeHide = probeAnswer(0, {"hide"});

// The lines of a run before its command: arguments, start of the keyboard.
Lines start(const std::string& command, const std::string& parameter, int arguments = 4)
{
    return {mainLine(56, "argc:" + std::to_string(arguments)),
            mainLine(arguments == 4 ? 79 : 73, "mod:kb"),
            kbLine(307, "kb_test", "cmd:" + command + ",param:" + parameter), "layout One"};
}

// A command's first line, where it has one, and its time line.
struct Command {
    int line; // 0: none
    const char* function;
    bool counts; // the line shows the parameter
    int timeLine;
    const char* label;
};

const std::map<std::string, Command> kCommands = {
    {"left", {27, "kb_test_left_move", true, 384, "test left move"}},
    {"right", {38, "kb_test_right_move", true, 389, "test right move"}},
    {"up", {49, "kb_test_up_move", true, 394, "test up move"}},
    {"down", {60, "kb_test_down_move", true, 399, "test down move"}},
    {"loop-left", {71, "kb_test_loop_left", false, 404, "test right move"}},
    {"loop-right", {81, "kb_test_loop_right", false, 409, "test right move"}},
    {"loop-up", {92, "kb_test_loop_up", false, 414, "test right move"}},
    {"loop-down", {103, "kb_test_loop_down", false, 419, "test right move"}},
    {"shift", {114, "kb_test_shift", false, 424, "test shift"}},
    {"shift-right", {127, "kb_test_shift_right", true, 429, "test shift-right"}},
    {"shift-lock", {144, "kb_test_shift_lock", true, 434, "test shift-lock"}},
    {"alt", {165, "kb_test_alt", false, 439, "test alt"}},
    {"alt-right", {178, "kb_test_alt_right", true, 444, "test alt-right"}},
    {"alt-shift", {195, "kb_test_alt_shift", false, 449, "test alt-shift"}},
    {"language", {209, "kb_test_language", true, 454, "test switch language"}},
    {"clear", {237, "kb_test_clear", false, 459, "test show"}},
    {"clear-all", {249, "kb_test_clear_all", false, 464, "test show"}},
    {"submit", {222, "kb_test_submit", false, 469, "test show"}},
    {"space", {260, "kb_test_space", false, 474, "test show"}},
    {"show", {275, "kb_test_show", false, 479, "test show"}},
    {"hide", {288, "kb_test_hide", false, 484, "test show"}},
    {"getkey", {0, "", false, 489, "test getkey"}},
};

// A command that ends the process behind these steps.
Lines ended(const std::string& name, const std::string& parameter, const Lines& steps)
{
    const Command& command = kCommands.at(name);
    const std::string message = command.counts ? "param:" + parameter : "called";
    return Lines{"clock"} +
           (command.line == 0 ? Lines() : Lines{kbLine(command.line, command.function, message)}) +
           steps;
}

// One that runs to its end, with its time line.
Lines done(const std::string& name, const std::string& parameter, const Lines& steps,
           int milliseconds)
{
    const Command& command = kCommands.at(name);
    return ended(name, parameter, steps) +
           Lines{"clock", kbLine(command.timeLine, "handle_kb_tests",
                                 std::string("=======>") + command.label +
                                     " using:" + std::to_string(milliseconds) + " ms")};
}

const char kNoNumber[] = "invalid_argument";
const char kOutOfRange[] = "out_of_range";

const Lines kShiftOn = 3 * move(Down) + probeShift(0);
const Lines kAltOn = 2 * move(Down) + probeAlt(0);
const Lines kShiftLocked = kShiftOn + Lines{"sleep 3"} + probeShift(1) + Lines{"sleep 1"};
const Lines kHide = Lines{"hide"} + press(Ok) + Lines{kbLine(295, "kb_test_hide", "Hide VKB")};

Run script(const char* name, const std::string& command, const std::string& parameter,
           const Lines& steps, int milliseconds)
{
    const Lines did = done(command, parameter, steps, milliseconds);
    const Lines words = {"kb", command, parameter};
    return {name, words, "", start(command, parameter) + did};
}

Run failing(const char* name, const std::string& command, const std::string& parameter,
            const Lines& steps, const char* error = kNoNumber)
{
    const Lines did = ended(command, parameter, steps);
    const Lines words = {"kb", command, parameter};
    return {name, words, "", start(command, parameter) + did, error};
}

const Run kScripts[] = {
    script("Left", "left", "2", 2 * move(Left) + probeResult("Oned14", '/'), 2000),
    script("Right", "right", "5", 5 * move(Right) + probeResult("Oned5", '&'), 2500),
    script("Up", "up", "6", 6 * move(Up) + probeResult("Oned64", 'a'), 4000),
    script("Down", "down", "6", 6 * move(Down) + probeResult("Oned16", '1'), 4000),
    script("LoopLeft", "loop-left", "", 111 * move(Left) + probeLanguage("Two"), 55500),
    script("LoopRight", "loop-right", "", 111 * move(Right) + probeResult("Oned15", '0'), 55500),
    script("LoopUp", "loop-up", "", 111 * move(Up) + probeResult("Oned64", 'a'), 55500),
    script("LoopDown", "loop-down", "", 111 * move(Down) + probeResult("Oned16", '1'), 55500),
    script("Shift", "shift", "", kShiftOn + Lines{"sleep 5"} + probeShift(1), 6500),
    script("ShiftRight", "shift-right", "2",
           kShiftOn + 2 * move(Right) + probeResult("OneD50", 'S'), 2500),
    script("ShiftLock", "shift-lock", "2",
           kShiftLocked + 2 * move(Right) + probeResult("OneD50", 'S'), 6500),
    script("Alt", "alt", "", kAltOn + Lines{"sleep 5"} + probeAlt(1), 7000),
    // The symbol set's key codes are above 255 here: the probe shows their low 8 bits.
    script("AltRight", "alt-right", "2",
           kAltOn + 2 * move(Right) + probeResult("Ones34", 256 + 'C'), 3000),
    script("AltShift", "alt-shift", "",
           kAltOn + Lines{"usleep 500000"} + press(Down) + probeShift(0), 1500),
    script("Language", "language", "3",
           press(Right) + probeLanguage("Two") + Lines{"sleep 5"} + probeLanguage("One") +
               Lines{"sleep 5"} + probeLanguage("Two") + Lines{"sleep 5"},
           16000),
    script("Clear", "clear", "", press(Down) + 13 * move(Right) + probeResult("Oned29", '>'), 6500),
    script("ClearAll", "clear-all", "", 2 * move(Right) + probeResult("ClearAll", '#'), 2000),
    script("Submit", "submit", "", 2 * move(Down) + 13 * move(Right) + probeResult("Oned45", 'N'),
           7500),
    script("Space", "space", "", 3 * move(Right) + 4 * move(Down) + probeResult("Oned67", 'd'),
           3500),
    script("Show", "show", "",
           3 * move(Right) + probeResult("Oned3", '$') + Lines{"hide", "sleep 2", "show"} +
               probeResult("Oned3", '$'),
           3500),
    script("Hide", "hide", "", kHide, 1000),
    script("GetKey", "getkey", "", kProbeHide, 1000),
    // Counts.
    script("ZeroMakesNoMoveAndProbes", "left", "0", kProbeHide, 1000),
    script("NegativeMakesNoMoveAndProbes", "left", "-2", kProbeHide, 1000),
    script("ZeroStepsWithShift", "shift-right", "0", kShiftOn + probeShift(1), 1500),
    script("NegativeStepsWithAlt", "alt-right", "-1", kAltOn + probeAlt(1), 2000),
    script("ZeroLanguages", "language", "0", press(Right), 1000),
    script("TextBehindTheNumberIsIgnored", "left", "3abc",
           3 * move(Left) + probeResult("Oned13", '.'), 1500),
    script("SecondNumberIsIgnored", "right", "3 2", 3 * move(Right) + probeResult("Oned3", '$'),
           1500),
    script("LeadingWhiteSpaceAndSignAreTaken", "right", "\t +3",
           3 * move(Right) + probeResult("Oned3", '$'), 1500),
    // A count that is no int ends the process where it is first needed: the keys before it have
    // been sent. An empty one of "language" is looked at behind the first pass.
    failing("LeftAWord", "left", "abc", {}),
    failing("RightAWord", "right", "abc", {}),
    failing("UpAWord", "up", "abc", {}),
    failing("DownAWord", "down", "abc", {}),
    failing("ShiftRightAWord", "shift-right", "abc", kShiftOn),
    failing("ShiftLockAWord", "shift-lock", "abc", kShiftLocked),
    failing("AltRightAWord", "alt-right", "abc", kAltOn),
    failing("LanguageAWord", "language", "abc", press(Right)),
    failing("LanguageNothing", "language", "", press(Right) + probeLanguage("Two")),
    failing("LeftNothing", "left", "", {}),
    failing("LeftBlanks", "left", "   ", {}),
    failing("LeftASign", "left", "-", {}),
    failing("LeftANumberBehindAWord", "left", "x3", {}),
    failing("LeftAboveTheHighest", "left", "2147483648", {}, kOutOfRange),
    failing("LeftBelowTheLowest", "left", "-2147483649", {}, kOutOfRange),
    failing("LeftFarAbove", "left", "99999999999999999999", {}, kOutOfRange),
    {"ThreeArgumentsHaveAnEmptyParameter",
     {"kb", "getkey"},
     "",
     start("getkey", "", 3) + done("getkey", "", kProbeHide, 1000)},
};

INSTANTIATE_TEST_SUITE_P(KbCommand, DriverRun, testing::ValuesIn(kScripts), RowName());

TEST(Kb, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Left", "left ", "lef", "quit", "more "})
        expectRun({"", {"kb", command, "3"}, "", start(command, "3")});
}

TEST(Kb, TakesItsPausesInRealTime)
{
    const TestPlace place;
    const Result result = test_process::run(driverCommandInRealTime(place, {"kb", "left", "3"}));
    const std::string head = kbLine(384, "handle_kb_tests", "=======>test left move using:");
    const size_t at = result.out.find(head);
    ASSERT_NE(at, std::string::npos) << result.out;
    const long milliseconds = std::stol(result.out.substr(at + head.size()));
    EXPECT_GE(milliseconds, 1500);
    EXPECT_LE(milliseconds, result.time.count() + 1000) << "at most one second not borrowed";
    EXPECT_GE(result.time.count(), 1500);
}

TEST(KbBadInput, EmptyOrMissingCatalogueLeavesTheKeyboardNotStarted)
{
    for (const bool missing : {false, true}) {
        TestPlace place;
        place.nameLayouts({});
        if (missing)
            place.folder().removeCatalogue();
        const Result result = test_process::run(driverCommand(place, {"kb", "show", ""}));
        Lines expected = start("show", "");
        expected.pop_back(); // no layout
        expectRun(result, expected + done("show", "",
                                          3 * move(Right) + probeAnswer(2) +
                                              Lines{"hide", "sleep 2", "show"} + probeAnswer(2),
                                          3500));
        EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
    }
}

TEST(KbBadInput, MissingKeyMapLeavesAnEmptyKeySet)
{
    TestPlace place;
    place.folder().removeKeyMap("One");
    // The focused key was never set: its zeroes are a key result.
    const Lines probe = {kbLine(13, "kb_test_get_key", "called"), "key 13", "result  0",
                         kbLine(20, "kb_test_get_key", "curernt key :")};
    expectRun(test_process::run(driverCommand(place, {"kb", "right", "2"})),
              start("right", "2") + done("right", "2", 2 * move(Right) + probe, 2000));
}

const std::string kPrompt = kbLine(358, "get_kb_inputs", "=>pls input cmd  [parames]");

// The pass that ends the loop: prompt and echo.
Lines lastPass(const std::string& command, const std::string& parameter)
{
    return {kPrompt, kbLine(334, "kb_test", "=>cmd:[" + command + "] [" + parameter + "] ")};
}

// Any other one: also what the line did, and the usage.
Lines pass(const std::string& command, const std::string& parameter, const Lines& did = {})
{
    return lastPass(command, parameter) + did + Lines{"usage 351"};
}

const Lines kHidden = done("hide", "", kHide, 1000);
const Lines kLeft3 = done("left", "3", 3 * move(Left) + probeResult("Oned13", '.'), 1500);

Lines getKey(const Lines& probe)
{
    return pass("getkey", "null", done("getkey", "", probe, 1000));
}

const Lines kMore = {"kb", "more"};
const Lines kLoopStart = start("more", "", 3) + Lines{"usage 329"};

// Lines that are typed, and behind them "quit" with a blank and this.
Run session(const char* name, const std::string& input, const Lines& passes,
            const std::string& behind = "")
{
    return {name, kMore, input + "quit " + behind + "\n",
            kLoopStart + passes + lastPass("quit", behind.empty() ? " " : behind)};
}

const Run kSessions[] = {
    session("QuitWithABlankEndsIt", "", {}),
    session("QuitWithTextBehindEndsIt", "", {}, "now please"),
    session("QuitAloneDoesNotEndIt", "quit\n", pass("", "null")),
    session("CommandThatOnlyContainsQuitDoesNotEndIt", "quits\nxquit \nQuit x\n",
            pass("quits", "null") + pass("xquit", " ") + pass("Quit", "x")),
    session("LineWithoutBlankSetsOnlyTheCommand", "hide\n", pass("hide", "null", kHidden)),
    session("ParameterOfOnePassIsForgottenInTheNext", "left 3\nunknown\n",
            pass("left", "3", kLeft3) + pass("unknown", "null")),
    session("SeveralBlanksBeforeTheParameterAreSkipped", "left     3\n", pass("left", "3", kLeft3)),
    session("InnerAndTrailingBlanksOfTheParameterAreKept", "right 2 3\nunknown  a  b  \n",
            pass("right", "2 3",
                 done("right", "2 3", 2 * move(Right) + probeResult("ClearAll", '#'), 2000)) +
                pass("unknown", "a  b  ")),
    session("LineThatStartsWithABlankHasAnEmptyCommand", " left 3\n", pass("", "left 3")),
    session("RestOfOnlyBlanksIsTheParameter", "unknown   \n", pass("unknown", "   ")),
    session("TabIsNoBlank", "left\t3\nquit\t\n", pass("left\t3", "null") + pass("quit\t", "null"),
            "\t"),
    session("EmptyLineRunsNothing", "\n", pass("", "null")),
    session("MoreIsNoCommandOfTheLoop", "more\n", pass("more", "null")),
    session("HideThenGetKeyAnswersTwo", "hide\ngetkey\n",
            pass("hide", "null", kHidden) + getKey(probeAnswer(2))),
    // Focus, Shift and the shown layout are those that the last command left.
    session(
        "CommandsStartFromTheStateOfTheLast", "right 3\ngetkey\nshift-right 1\ngetkey\n",
        pass("right", "3", done("right", "3", 3 * move(Right) + probeResult("Oned3", '$'), 1500)) +
            getKey(probeResult("Oned3", '$')) +
            pass("shift-right", "1",
                 done("shift-right", "1",
                      3 * move(Down) + probeResult("Oned51", 'T') + move(Right) +
                          probeResult("Oned52", 'U'),
                      3000)) +
            getKey(probeResult("Oned52", 'U'))),
    {"ParameterOfTheCommandLineIsIgnored",
     {"kb", "more", "7"},
     "unknown\nquit \n",
     start("more", "7") + Lines{"usage 329"} + pass("unknown", "null") + lastPass("quit", " ")},
    {"CountThatIsNoNumberEndsTheProcess", kMore, "left 3\nleft\nquit \n",
     kLoopStart + pass("left", "3", kLeft3) + lastPass("left", "null") + ended("left", "", {}),
     kNoNumber},
};

INSTANTIATE_TEST_SUITE_P(KbLoop, DriverRun, testing::ValuesIn(kSessions), RowName());

TEST(KbLoopEnd, EndOfInputKeepsPrompting)
{
    const TestPlace place;
    expectEndlessLoop(driverCommand(place, {"kb", "more"}), "getkey", kPrompt + "\n",
                      kLoopStart + getKey(kProbeHide) + 48 * pass("", "null"));
}

TEST(KbLoopEnd, AfterItTheDriverWaitsForOneMoreCharacter)
{
    const TestPlace place;
    Process driver(driverCommand(place, {"kb", "more"}));
    ASSERT_TRUE(driver.write("quit \n"));
    ASSERT_TRUE(driver.waitForOutput("=>cmd:[quit] [ ] \n"));
    EXPECT_FALSE(driver.waitForEnd(test_process::Milliseconds(300)));
    ASSERT_TRUE(driver.write("x"));
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_EQ(driver.result().exitStatus, 0);
}

} // namespace
