// The kb mode from outside. Each command: its log lines, the keys that it sends and its pauses, in
// order, and the figure of its time line. The clock stands still but for the pauses, so a figure is
// their sum, and 1000 more when that is a whole number of seconds: the driver borrows no second.
// Then the interactive loop: prompt, reading, echo, and how it ends.

#include <map>

#include <gmock/gmock.h>

#include "mode.h"

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

const std::map<std::string, DriverCommand> kCommands = {
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

const Lines kStarted = {"layout One"};
const std::string kPrompt = kbLine(358, "get_kb_inputs", "=>pls input cmd  [parames]");
const Mode kKb = {"kb", "kb_test", "handle_kb_tests", kCommands,   307,
                  334,  kStarted,  kPrompt,           "usage 329", "usage 351"};

const char kNoNumber[] = "invalid_argument";
const char kOutOfRange[] = "out_of_range";

const Lines kShiftOn = 3 * move(Down) + probeShift(0);
const Lines kAltOn = 2 * move(Down) + probeAlt(0);
const Lines kShiftLocked = kShiftOn + Lines{"sleep 3"} + probeShift(1) + Lines{"sleep 1"};
const Lines kHide = Lines{"hide"} + press(Ok) + Lines{kbLine(295, "kb_test_hide", "Hide VKB")};

const Script kScripts[] = {
    {"Left", "left", "2", 2 * move(Left) + probeResult("Oned14", '/'), 2000},
    {"Right", "right", "5", 5 * move(Right) + probeResult("Oned5", '&'), 2500},
    {"Up", "up", "6", 6 * move(Up) + probeResult("Oned64", 'a'), 4000},
    {"Down", "down", "6", 6 * move(Down) + probeResult("Oned16", '1'), 4000},
    {"LoopLeft", "loop-left", "", 111 * move(Left) + probeLanguage("Two"), 55500},
    {"LoopRight", "loop-right", "", 111 * move(Right) + probeResult("Oned15", '0'), 55500},
    {"LoopUp", "loop-up", "", 111 * move(Up) + probeResult("Oned64", 'a'), 55500},
    {"LoopDown", "loop-down", "", 111 * move(Down) + probeResult("Oned16", '1'), 55500},
    {"Shift", "shift", "", kShiftOn + Lines{"sleep 5"} + probeShift(1), 6500},
    {"ShiftRight", "shift-right", "2", kShiftOn + 2 * move(Right) + probeResult("OneD50", 'S'),
     2500},
    {"ShiftLock", "shift-lock", "2", kShiftLocked + 2 * move(Right) + probeResult("OneD50", 'S'),
     6500},
    {"Alt", "alt", "", kAltOn + Lines{"sleep 5"} + probeAlt(1), 7000},
    // The symbol set's key codes are above 255 here: the probe shows their low 8 bits.
    {"AltRight", "alt-right", "2", kAltOn + 2 * move(Right) + probeResult("Ones34", 256 + 'C'),
     3000},
    {"AltShift", "alt-shift", "", kAltOn + Lines{"usleep 500000"} + press(Down) + probeShift(0),
     1500},
    {"Language", "language", "3",
     press(Right) + probeLanguage("Two") + Lines{"sleep 5"} + probeLanguage("One") +
         Lines{"sleep 5"} + probeLanguage("Two") + Lines{"sleep 5"},
     16000},
    {"Clear", "clear", "", press(Down) + 13 * move(Right) + probeResult("Oned29", '>'), 6500},
    {"ClearAll", "clear-all", "", 2 * move(Right) + probeResult("ClearAll", '#'), 2000},
    {"Submit", "submit", "", 2 * move(Down) + 13 * move(Right) + probeResult("Oned45", 'N'), 7500},
    {"Space", "space", "", 3 * move(Right) + 4 * move(Down) + probeResult("Oned67", 'd'), 3500},
    {"Show", "show", "",
     3 * move(Right) + probeResult("Oned3", '$') + Lines{"hide", "sleep 2", "show"} +
         probeResult("Oned3", '$'),
     3500},
    {"Hide", "hide", "", kHide, 1000},
    {"GetKey", "getkey", "", kProbeHide, 1000},
    // Counts.
    {"ZeroMakesNoMoveAndProbes", "left", "0", kProbeHide, 1000},
    {"NegativeMakesNoMoveAndProbes", "left", "-2", kProbeHide, 1000},
    {"ZeroStepsWithShift", "shift-right", "0", kShiftOn + probeShift(1), 1500},
    {"NegativeStepsWithAlt", "alt-right", "-1", kAltOn + probeAlt(1), 2000},
    {"ZeroLanguages", "language", "0", press(Right), 1000},
    {"TextBehindTheNumberIsIgnored", "left", "3abc", 3 * move(Left) + probeResult("Oned13", '.'),
     1500},
    {"SecondNumberIsIgnored", "right", "3 2", 3 * move(Right) + probeResult("Oned3", '$'), 1500},
    {"LeadingWhiteSpaceAndSignAreTaken", "right", "\t +3",
     3 * move(Right) + probeResult("Oned3", '$'), 1500},
    // A count that is no int ends the process where it is first needed: the keys before it have
    // been sent. An empty one of "language" is looked at behind the first pass.
    {"LeftAWord", "left", "abc", {}, 0, kNoNumber},
    {"RightAWord", "right", "abc", {}, 0, kNoNumber},
    {"UpAWord", "up", "abc", {}, 0, kNoNumber},
    {"DownAWord", "down", "abc", {}, 0, kNoNumber},
    {"ShiftRightAWord", "shift-right", "abc", kShiftOn, 0, kNoNumber},
    {"ShiftLockAWord", "shift-lock", "abc", kShiftLocked, 0, kNoNumber},
    {"AltRightAWord", "alt-right", "abc", kAltOn, 0, kNoNumber},
    {"LanguageAWord", "language", "abc", press(Right), 0, kNoNumber},
    {"LanguageNothing", "language", "", press(Right) + probeLanguage("Two"), 0, kNoNumber},
    {"LeftNothing", "left", "", {}, 0, kNoNumber},
    {"LeftBlanks", "left", "   ", {}, 0, kNoNumber},
    {"LeftASign", "left", "-", {}, 0, kNoNumber},
    {"LeftANumberBehindAWord", "left", "x3", {}, 0, kNoNumber},
    {"LeftAboveTheHighest", "left", "2147483648", {}, 0, kOutOfRange},
    {"LeftBelowTheLowest", "left", "-2147483649", {}, 0, kOutOfRange},
    {"LeftFarAbove", "left", "99999999999999999999", {}, 0, kOutOfRange},
    {"ThreeArgumentsHaveAnEmptyParameter", "getkey", "null", kProbeHide, 1000},
};

INSTANTIATE_TEST_SUITE_P(KbCommand, DriverRun, testing::ValuesIn(kKb.runs(kScripts)), RowName());

TEST(Kb, UnknownCommandDoesNothing)
{
    for (const std::string command : {"", "Left", "left ", "lef", "quit", "more "})
        expectRun(kKb.run(Script{"", command, "3"}));
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
    const Script show = {
        "", "show", "",
        3 * move(Right) + probeAnswer(2) + Lines{"hide", "sleep 2", "show"} + probeAnswer(2), 3500};
    Mode without_layout = kKb;
    without_layout.started.clear();
    for (const bool missing : {false, true}) {
        TestPlace place(Lines{});
        if (missing)
            place.removeCatalogue();
        const Result result = expectRun(without_layout.run(show), place);
        EXPECT_THAT(result.out, HasSubstr("enter(): Read language name error! \n"));
    }
}

TEST(KbBadInput, MissingKeyMapLeavesAnEmptyKeySet)
{
    TestPlace place;
    place.removeKeyMap("One");
    // The focused key was never set: its zeroes are a key result.
    const Lines probe = {kbLine(13, "kb_test_get_key", "called"), "key 13", "result  0",
                         kbLine(20, "kb_test_get_key", "curernt key :")};
    expectRun(kKb.run(Script{"", "right", "2", 2 * move(Right) + probe, 2000}), place);
}

const Pass kQuit = {"quit ", "quit", " "};
const Pass kHidden = {"hide", "hide", "null", kHide, 1000};
const Pass kLeft3 = {"left 3", "left", "3", 3 * move(Left) + probeResult("Oned13", '.'), 1500};

Pass getKey(const Lines& probe)
{
    return {"getkey", "getkey", "null", probe, 1000};
}

const Session kSessions[] = {
    {"QuitWithABlankEndsIt", {kQuit}},
    {"QuitWithTextBehindEndsIt", {{"quit now please", "quit", "now please"}}},
    {"QuitAloneDoesNotEndIt", {{"quit", "", "null"}, kQuit}},
    {"CommandThatOnlyContainsQuitDoesNotEndIt",
     {{"quits", "quits", "null"}, {"xquit ", "xquit", " "}, {"Quit x", "Quit", "x"}, kQuit}},
    {"LineWithoutBlankSetsOnlyTheCommand", {kHidden, kQuit}},
    {"ParameterOfOnePassIsForgottenInTheNext", {kLeft3, {"unknown", "unknown", "null"}, kQuit}},
    {"SeveralBlanksBeforeTheParameterAreSkipped",
     {{"left     3", "left", "3", kLeft3.steps, 1500}, kQuit}},
    {"InnerAndTrailingBlanksOfTheParameterAreKept",
     {{"right 2 3", "right", "2 3", 2 * move(Right) + probeResult("ClearAll", '#'), 2000},
      {"unknown  a  b  ", "unknown", "a  b  "},
      kQuit}},
    {"LineThatStartsWithABlankHasAnEmptyCommand", {{" left 3", "", "left 3"}, kQuit}},
    {"RestOfOnlyBlanksIsTheParameter", {{"unknown   ", "unknown", "   "}, kQuit}},
    {"TabIsNoBlank",
     {{"left\t3", "left\t3", "null"}, {"quit\t", "quit\t", "null"}, {"quit \t", "quit", "\t"}}},
    {"EmptyLineRunsNothing", {{"", "", "null"}, kQuit}},
    {"MoreIsNoCommandOfTheLoop", {{"more", "more", "null"}, kQuit}},
    {"HideThenGetKeyAnswersTwo", {kHidden, getKey(probeAnswer(2)), kQuit}},
    // Focus, Shift and the shown layout are those that the last command left.
    {"CommandsStartFromTheStateOfTheLast",
     {{"right 3", "right", "3", 3 * move(Right) + probeResult("Oned3", '$'), 1500},
      getKey(probeResult("Oned3", '$')),
      {"shift-right 1", "shift-right", "1",
       3 * move(Down) + probeResult("Oned51", 'T') + move(Right) + probeResult("Oned52", 'U'),
       3000},
      getKey(probeResult("Oned52", 'U')),
      kQuit}},
    {"ParameterOfTheCommandLineIsIgnored", {{"unknown", "unknown", "null"}, kQuit}, "", "7"},
    {"CountThatIsNoNumberEndsTheProcess", {kLeft3, {"left", "left", "null"}}, kNoNumber},
};

INSTANTIATE_TEST_SUITE_P(KbLoop, DriverRun, testing::ValuesIn(kKb.runs(kSessions)), RowName());

TEST(KbLoopEnd, EndOfInputKeepsPrompting)
{
    kKb.expectEndlessLoop(getKey(kProbeHide));
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
