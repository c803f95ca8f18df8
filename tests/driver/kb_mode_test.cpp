// The kb mode from outside. Each command: its log lines, the keys that it sends and its pauses, in
// order, and the figure of its time line. The clock stands still but for the pauses, so a figure is
// their sum, and 1000 more when that is a whole number of seconds: the driver borrows no second.
// Then the interactive loop: prompt, reading, echo, and how it ends.

#include <csignal>

#include <gmock/gmock.h>

#include "driver_run.h"
#include "transcript.h"

using namespace transcript;
using test_process::Process;
using test_process::Result;
using testing::HasSubstr;
using testing::Not;

namespace
{

enum RemoteKey { kOk = 13, kLeft = 37, kUp, kRight, kDown };

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

// A command's own line and steps with its time line, between two readings of the clock.
Lines timed(int line, const std::string& function, const std::string& message, const Lines& steps,
            int time_line, const std::string& label, int milliseconds)
{
    return Lines{"clock"} + (line == 0 ? Lines() : Lines{kbLine(line, function, message)}) + steps +
           Lines{"clock",
                 kbLine(time_line, "handle_kb_tests",
                        "=======>" + label + " using:" + std::to_string(milliseconds) + " ms")};
}

Result runKb(const std::vector<std::string>& arguments)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    return test_process::run(driverCommand(place, Lines{"kb"} + arguments));
}

void expectDone(const Result& result, const Lines& expected)
{
    EXPECT_EQ(text(reduce(result.out)), text(expected));
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.exit_status, 0);
}

void expectAbort(const Result& result, const Lines& expected, const std::string& error)
{
    EXPECT_EQ(text(reduce(result.out)), text(expected));
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_THAT(result.err, HasSubstr(error));
}

struct Script {
    const char* name;
    const char* command;
    const char* parameter; // empty: the command takes none
    int line;              // 0: the script has no line of its own
    const char* function;
    Lines steps;
    int time_line;
    const char* label;
    int milliseconds;
};

const Script kScripts[] = {
    {"Left", "left", "2", 27, "kb_test_left_move", 2 * move(kLeft) + probeResult("Oned14", '/'),
     384, "test left move", 2000},
    {"Right", "right", "5", 38, "kb_test_right_move", 5 * move(kRight) + probeResult("Oned5", '&'),
     389, "test right move", 2500},
    {"Up", "up", "6", 49, "kb_test_up_move", 6 * move(kUp) + probeResult("Oned64", 'a'), 394,
     "test up move", 4000},
    {"Down", "down", "6", 60, "kb_test_down_move", 6 * move(kDown) + probeResult("Oned16", '1'),
     399, "test down move", 4000},
    {"LoopLeft", "loop-left", "", 71, "kb_test_loop_left", 111 * move(kLeft) + probeLanguage("Two"),
     404, "test right move", 55500},
    {"LoopRight", "loop-right", "", 81, "kb_test_loop_right",
     111 * move(kRight) + probeResult("Oned15", '0'), 409, "test right move", 55500},
    {"LoopUp", "loop-up", "", 92, "kb_test_loop_up", 111 * move(kUp) + probeResult("Oned64", 'a'),
     414, "test right move", 55500},
    {"LoopDown", "loop-down", "", 103, "kb_test_loop_down",
     111 * move(kDown) + probeResult("Oned16", '1'), 419, "test right move", 55500},
    {"Shift", "shift", "", 114, "kb_test_shift",
     3 * move(kDown) + probeShift(0) + Lines{"sleep 5"} + probeShift(1), 424, "test shift", 6500},
    {"ShiftRight", "shift-right", "2", 127, "kb_test_shift_right",
     3 * move(kDown) + probeShift(0) + 2 * move(kRight) + probeResult("OneD50", 'S'), 429,
     "test shift-right", 2500},
    {"ShiftLock", "shift-lock", "2", 144, "kb_test_shift_lock",
     3 * move(kDown) + probeShift(0) + Lines{"sleep 3"} + probeShift(1) + Lines{"sleep 1"} +
         2 * move(kRight) + probeResult("OneD50", 'S'),
     434, "test shift-lock", 6500},
    {"Alt", "alt", "", 165, "kb_test_alt",
     2 * move(kDown) + probeAlt(0) + Lines{"sleep 5"} + probeAlt(1), 439, "test alt", 7000},
    // The symbol set's key codes are above 255 here: the probe shows their low 8 bits.
    {"AltRight", "alt-right", "2", 178, "kb_test_alt_right",
     2 * move(kDown) + probeAlt(0) + 2 * move(kRight) + probeResult("Ones34", 256 + 'C'), 444,
     "test alt-right", 3000},
    {"AltShift", "alt-shift", "", 195, "kb_test_alt_shift",
     2 * move(kDown) + probeAlt(0) + Lines{"usleep 500000"} + press(kDown) + probeShift(0), 449,
     "test alt-shift", 1500},
    {"Language", "language", "3", 209, "kb_test_language",
     press(kRight) + probeLanguage("Two") + Lines{"sleep 5"} + probeLanguage("One") +
         Lines{"sleep 5"} + probeLanguage("Two") + Lines{"sleep 5"},
     454, "test switch language", 16000},
    {"Clear", "clear", "", 237, "kb_test_clear",
     press(kDown) + 13 * move(kRight) + probeResult("Oned29", '>'), 459, "test show", 6500},
    {"ClearAll", "clear-all", "", 249, "kb_test_clear_all",
     2 * move(kRight) + probeResult("ClearAll", '#'), 464, "test show", 2000},
    {"Submit", "submit", "", 222, "kb_test_submit",
     2 * move(kDown) + 13 * move(kRight) + probeResult("Oned45", 'N'), 469, "test show", 7500},
    {"Space", "space", "", 260, "kb_test_space",
     3 * move(kRight) + 4 * move(kDown) + probeResult("Oned67", 'd'), 474, "test show", 3500},
    {"Show", "show", "", 275, "kb_test_show",
     3 * move(kRight) + probeResult("Oned3", '$') + Lines{"hide", "sleep 2", "show"} +
         probeResult("Oned3", '$'),
     479, "test show", 3500},
    {"Hide", "hide", "", 288, "kb_test_hide",
     Lines{"hide"} + press(kOk) + Lines{kbLine(295, "kb_test_hide", "Hide VKB")}, 484, "test show",
     1000},
    {"GetKey", "getkey", "", 0, "", kProbeHide, 489, "test getkey", 1000},
    // Counts.
    {"ZeroMakesNoMoveAndProbes", "left", "0", 27, "kb_test_left_move", kProbeHide, 384,
     "test left move", 1000},
    {"NegativeMakesNoMoveAndProbes", "left", "-2", 27, "kb_test_left_move", kProbeHide, 384,
     "test left move", 1000},
    {"ZeroStepsWithShift", "shift-right", "0", 127, "kb_test_shift_right",
     3 * move(kDown) + probeShift(0) + probeShift(1), 429, "test shift-right", 1500},
    {"NegativeStepsWithAlt", "alt-right", "-1", 178, "kb_test_alt_right",
     2 * move(kDown) + probeAlt(0) + probeAlt(1), 444, "test alt-right", 2000},
    {"ZeroLanguages", "language", "0", 209, "kb_test_language", press(kRight), 454,
     "test switch language", 1000},
    {"TextBehindTheNumberIsIgnored", "left", "3abc", 27, "kb_test_left_move",
     3 * move(kLeft) + probeResult("Oned13", '.'), 384, "test left move", 1500},
    {"SecondNumberIsIgnored", "right", "3 2", 38, "kb_test_right_move",
     3 * move(kRight) + probeResult("Oned3", '$'), 389, "test right move", 1500},
    {"LeadingWhiteSpaceAndSignAreTaken", "right", "\t +3", 38, "kb_test_right_move",
     3 * move(kRight) + probeResult("Oned3", '$'), 389, "test right move", 1500},
};

// The transcript of a script that a loop or another command line starts.
Lines scriptLines(const Script& script, const std::string& parameter)
{
    return timed(script.line, script.function, parameter.empty() ? "called" : "param:" + parameter,
                 script.steps, script.time_line, script.label, script.milliseconds);
}

void PrintTo(const Script& script, std::ostream* stream)
{
    *stream << script.command << " " << script.parameter;
}

class KbCommand : public testing::TestWithParam<Script>
{
};

TEST_P(KbCommand, SendsItsKeysAndTellsItsTime)
{
    const Script& script = GetParam();
    expectDone(runKb({script.command, script.parameter}),
               start(script.command, script.parameter) + scriptLines(script, script.parameter));
}

INSTANTIATE_TEST_SUITE_P(Scripts, KbCommand, testing::ValuesIn(kScripts),
                         [](const testing::TestParamInfo<Script>& script) {
                             return script.param.name;
                         });

TEST(Kb, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Left", "left ", "lef", "quit", "more "})
        expectDone(runKb({command, "3"}), start(command, "3"));
}

TEST(Kb, CommandWithThreeArgumentsHasAnEmptyParameter)
{
    expectDone(runKb({"getkey"}),
               start("getkey", "", 3) + timed(0, "", "", kProbeHide, 489, "test getkey", 1000));
}

TEST(Kb, WaitsForEnterAfterTheCommand)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    Process driver(driverCommandTraced(place, {"kb", "show"}));
    ASSERT_TRUE(driver.waitForOutput("test show using:"));
    EXPECT_FALSE(driver.waitForOutput("dfb layer Release\n", 1, test_process::Milliseconds(300)));
    ASSERT_TRUE(driver.write("\n"));
    ASSERT_TRUE(driver.waitForEnd());
    EXPECT_THAT(driver.out(), HasSubstr("dfb layer Release\ndfb dfb Release\n"));
    EXPECT_EQ(driver.exitStatus(), 0);
}

TEST(Kb, TakesItsPausesInRealTime)
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

TEST(Kb, LogSwitchedOffTakesNoSecondClockReading)
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

// The conversion of a count stands where the count is first needed: the keys before it have been
// sent.
TEST(KbCount, ThatIsNoIntEndsTheProcessWhereItIsNeeded)
{
    struct Conversion {
        std::string command;
        int line;
        const char* function;
        Lines before;
    };
    const Conversion conversions[] = {
        {"left", 27, "kb_test_left_move", {}},
        {"right", 38, "kb_test_right_move", {}},
        {"up", 49, "kb_test_up_move", {}},
        {"down", 60, "kb_test_down_move", {}},
        {"shift-right", 127, "kb_test_shift_right", 3 * move(kDown) + probeShift(0)},
        {"shift-lock", 144, "kb_test_shift_lock",
         3 * move(kDown) + probeShift(0) + Lines{"sleep 3"} + probeShift(1) + Lines{"sleep 1"}},
        {"alt-right", 178, "kb_test_alt_right", 2 * move(kDown) + probeAlt(0)}};
    const auto run = [](const Conversion& script, const std::string& parameter, const char* error) {
        expectAbort(runKb({script.command, parameter}),
                    start(script.command, parameter) +
                        Lines{"clock", kbLine(script.line, script.function, "param:" + parameter)} +
                        script.before,
                    error);
    };
    for (const Conversion& script : conversions)
        run(script, "abc", "invalid_argument");
    for (const char* parameter : {"", "   ", "-", "x3"})
        run(conversions[0], parameter, "invalid_argument");
    for (const char* parameter : {"2147483648", "-2147483649", "99999999999999999999"})
        run(conversions[0], parameter, "out_of_range");
}

TEST(KbCount, LeftWithoutOneEndsAbnormallyBeforeAnyKey)
{
    expectAbort(runKb({"left"}),
                start("left", "", 3) + Lines{"clock", kbLine(27, "kb_test_left_move", "param:")},
                "invalid_argument");
}

// An empty count is looked at behind the first pass, any other one before it.
TEST(KbCount, LanguageLooksAtAnEmptyOneBehindItsFirstPass)
{
    expectAbort(runKb({"language"}),
                start("language", "", 3) +
                    Lines{"clock", kbLine(209, "kb_test_language", "param:")} + press(kRight) +
                    probeLanguage("Two"),
                "invalid_argument");
    expectAbort(runKb({"language", "abc"}),
                start("language", "abc") +
                    Lines{"clock", kbLine(209, "kb_test_language", "param:abc")} + press(kRight),
                "invalid_argument");
}

// A keyboard that did not start has no layout.
Lines startWithoutLayout(const std::string& command, const std::string& parameter)
{
    Lines lines = start(command, parameter);
    lines.pop_back();
    return lines;
}

TEST(KbBadInput, EmptyLayoutListLeavesTheKeyboardNotStarted)
{
    TestPlace place;
    place.putGridLayouts({});
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "show", ""}));
    expectDone(result, startWithoutLayout("show", "") +
                           timed(275, "kb_test_show", "called",
                                 3 * move(kRight) + probeAnswer(2) +
                                     Lines{"hide", "sleep 2", "show"} + probeAnswer(2),
                                 479, "test show", 3500));
    EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
}

TEST(KbBadInput, MissingCatalogueLeavesTheKeyboardNotStarted)
{
    TestPlace place;
    place.putFonts();
    const Result result = test_process::run(driverCommand(place, {"kb", "left", "1"}));
    expectDone(result, startWithoutLayout("left", "1") + timed(27, "kb_test_left_move", "param:1",
                                                               move(kLeft) + probeAnswer(2), 384,
                                                               "test left move", 500));
    EXPECT_THAT(result.out, Not(HasSubstr("Layout Parse Successfully")));
    EXPECT_THAT(result.out, HasSubstr("enter(): language num :0 \n"));
    EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
}

TEST(KbBadInput, MissingOrMalformedKeyMapLeavesAnEmptyKeySet)
{
    for (const bool missing : {true, false}) {
        TestPlace place;
        place.putGridLayouts();
        place.putFonts();
        if (missing)
            place.folder().removeKeyMap("One");
        else
            place.folder().writeKeyMap("One", "{ \"Keys\": ");
        const Result result = test_process::run(driverCommand(place, {"kb", "right", "2"}));
        // The focused key was never set: its zeroes are a key result.
        const Lines probe = {kbLine(13, "kb_test_get_key", "called"), "key 13", "result  0",
                             kbLine(20, "kb_test_get_key", "curernt key :")};
        expectDone(result, start("right", "2") + timed(38, "kb_test_right_move", "param:2",
                                                       2 * move(kRight) + probe, 389,
                                                       "test right move", 2000));
        EXPECT_THAT(result.out, Not(HasSubstr("LayoutKeyMap Parse Successfully")));
        EXPECT_EQ(test_process::countOf("Target keybutton is error,no need to change focus!\n",
                                        result.out),
                  3);
    }
}

TEST(KbBadInput, MissingFontOnlyLeavesTheKeysUnpainted)
{
    TestPlace place;
    place.putGridLayouts();
    const Result result = test_process::run(driverCommand(place, {"kb", "right", "5"}));
    EXPECT_THAT(result.out, HasSubstr("setLayoutData(): font file is not exist !!!\n"));
    expectDone(result, start("right", "5") + scriptLines(kScripts[1], "5"));
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

Lines left(const std::string& parameter, int count, const Lines& probe, int milliseconds)
{
    return timed(27, "kb_test_left_move", "param:" + parameter, count * move(kLeft) + probe, 384,
                 "test left move", milliseconds);
}

Lines right(const std::string& parameter, int count, const Lines& probe, int milliseconds)
{
    return timed(38, "kb_test_right_move", "param:" + parameter, count * move(kRight) + probe, 389,
                 "test right move", milliseconds);
}

Lines hide()
{
    return timed(288, "kb_test_hide", "called",
                 Lines{"hide"} + press(kOk) + Lines{kbLine(295, "kb_test_hide", "Hide VKB")}, 484,
                 "test show", 1000);
}

Lines getKey(const Lines& probe)
{
    return timed(0, "", "", probe, 489, "test getkey", 1000);
}

struct Session {
    const char* name;
    const char* input;
    Lines passes;
};

const Session kSessions[] = {
    {"QuitAloneDoesNotEndIt", "quit\nquit \n", pass("", "null") + lastPass(" ")},
    {"QuitWithABlankEndsIt", "quit \n", lastPass(" ")},
    {"QuitWithTextBehindEndsIt", "quit now please\n", lastPass("now please")},
    {"CommandThatOnlyContainsQuitDoesNotEndIt", "quits\nxquit \nQuit x\nquit \n",
     pass("quits", "null") + pass("xquit", " ") + pass("Quit", "x") + lastPass(" ")},
    {"LineWithoutBlankSetsOnlyTheCommand", "hide\nquit \n",
     pass("hide", "null", hide()) + lastPass(" ")},
    {"ParameterOfOnePassIsForgottenInTheNext", "left 3\nunknown\nquit \n",
     pass("left", "3", left("3", 3, probeResult("Oned13", '.'), 1500)) + pass("unknown", "null") +
         lastPass(" ")},
    {"SeveralBlanksBeforeTheParameterAreSkipped", "left     3\nquit \n",
     pass("left", "3", left("3", 3, probeResult("Oned13", '.'), 1500)) + lastPass(" ")},
    {"InnerAndTrailingBlanksOfTheParameterAreKept", "right 2 3\nunknown  a  b  \nquit \n",
     pass("right", "2 3", right("2 3", 2, probeResult("ClearAll", '#'), 2000)) +
         pass("unknown", "a  b  ") + lastPass(" ")},
    {"LineThatStartsWithABlankHasAnEmptyCommand", " left 3\nquit \n",
     pass("", "left 3") + lastPass(" ")},
    {"RestOfOnlyBlanksIsTheParameter", "unknown   \nquit \n",
     pass("unknown", "   ") + lastPass(" ")},
    {"TabIsNoBlank", "left\t3\nquit\t\nquit \t\n",
     pass("left\t3", "null") + pass("quit\t", "null") + lastPass("\t")},
    {"EmptyLineRunsNothing", "\nquit \n", pass("", "null") + lastPass(" ")},
    {"MoreIsNoCommandOfTheLoop", "more\nquit \n", pass("more", "null") + lastPass(" ")},
    {"HideThenGetKeyAnswersTwo", "hide\ngetkey\nquit \n",
     pass("hide", "null", hide()) + pass("getkey", "null", getKey(probeAnswer(2))) + lastPass(" ")},
    // Focus, Shift and the shown layout are those that the last command left.
    {"CommandsStartFromTheStateOfTheLast", "right 3\ngetkey\nshift-right 1\ngetkey\nquit \n",
     pass("right", "3", right("3", 3, probeResult("Oned3", '$'), 1500)) +
         pass("getkey", "null", getKey(probeResult("Oned3", '$'))) +
         pass("shift-right", "1",
              timed(127, "kb_test_shift_right", "param:1",
                    3 * move(kDown) + probeResult("Oned51", 'T') + move(kRight) +
                        probeResult("Oned52", 'U'),
                    429, "test shift-right", 3000)) +
         pass("getkey", "null", getKey(probeResult("Oned52", 'U'))) + lastPass(" ")},
};

void PrintTo(const Session& session, std::ostream* stream)
{
    *stream << session.input;
}

test_process::Command loopCommand(TestPlace& place)
{
    place.putGridLayouts();
    place.putFonts();
    return driverCommand(place, {"kb", "more"});
}

const Lines kLoopStart = start("more", "", 3) + Lines{"usage 329"};

class KbLoop : public testing::TestWithParam<Session>
{
};

TEST_P(KbLoop, AnswersEachLine)
{
    TestPlace place;
    expectDone(test_process::run(loopCommand(place), GetParam().input),
               kLoopStart + GetParam().passes);
}

INSTANTIATE_TEST_SUITE_P(Sessions, KbLoop, testing::ValuesIn(kSessions),
                         [](const testing::TestParamInfo<Session>& session) {
                             return session.param.name;
                         });

TEST(KbLoopEnd, ParameterOfTheCommandLineIsIgnored)
{
    TestPlace place;
    place.putGridLayouts();
    place.putFonts();
    expectDone(test_process::run(driverCommand(place, {"kb", "more", "7"}), "unknown\nquit \n"),
               start("more", "7") + Lines{"usage 329"} + pass("unknown", "null") + lastPass(" "));
}

TEST(KbLoopEnd, CountThatIsNoNumberEndsTheProcess)
{
    TestPlace place;
    expectAbort(test_process::run(loopCommand(place), "left 1\nleft\nquit \n"),
                kLoopStart + pass("left", "1", left("1", 1, probeResult("Oned15", '0'), 500)) +
                    Lines{kPrompt, kbLine(334, "kb_test", "=>cmd:[left] [null] "), "clock",
                          kbLine(27, "kb_test_left_move", "param:")},
                "invalid_argument");
}

TEST(KbLoopEnd, EndOfInputKeepsPrompting)
{
    TestPlace place;
    Process driver(loopCommand(place));
    ASSERT_TRUE(driver.write("getkey"));
    driver.closeInput();
    ASSERT_TRUE(driver.waitForOutput(kPrompt + "\n", 50));
    driver.kill(SIGKILL);
    EXPECT_EQ(driver.signal(), SIGKILL) << "it had not ended by itself";

    const Lines expected =
        kLoopStart + pass("getkey", "null", getKey(kProbeHide)) + 48 * pass("", "null");
    Lines lines = reduce(driver.out());
    ASSERT_GE(lines.size(), expected.size());
    lines.resize(expected.size());
    EXPECT_EQ(text(lines), text(expected));
}

TEST(KbLoopEnd, AfterItTheDriverWaitsForOneMoreCharacter)
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

} // namespace
