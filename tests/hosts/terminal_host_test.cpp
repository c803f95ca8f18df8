// The terminal host as its user meets it: on a terminal, in a pipe, and where it cannot work.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <sys/resource.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "key_result.h"
#include "keyboard_model.h"
#include "planner.h"
#include "pseudo_terminal.h"
#include "text_line.h"

namespace
{

using host::KeyboardModel;
using host::KeyboardState;
using host::Plan;
using host::Press;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Environment = std::map<std::string, std::string>;

#ifdef __SANITIZE_ADDRESS__
const bool kChecked = true;
#else
const bool kChecked = false;
#endif
const char kOwnScreen[] = "\033[?1049h";
const char kOldScreen[] = "\033[?1049l";
const char kEscape[] = "\033";
const char kInterrupt[] = "\003";
const char kStop[] = "\032";

// The host as the tests start it: with the seam that moves the layouts' fixed path.
std::string host(const std::string& arguments)
{
    return "exec env LD_PRELOAD=" TEST_SEAMS " " TERMINAL_HOST " " + arguments;
}

Environment with(Environment changes)
{
    Environment environment = {
        {"TERM", "xterm-256color"}, {"COLORTERM", "truecolor"}, {"LANG", ""}};
    for (const auto& change : changes)
        environment[change.first] = change.second;
    return environment;
}

std::string bytesOf(Press press)
{
    switch (press) {
    case Press::Left:
        return "\033[D";
    case Press::Up:
        return "\033[A";
    case Press::Right:
        return "\033[C";
    case Press::Down:
        return "\033[B";
    case Press::Ok:
        break;
    }
    return "\r";
}

std::string statusOf(const KeyboardModel& model, const KeyboardState& state)
{
    const auto* key = model.focused(state);
    std::string status = model.layouts()[state.layout].name;
    if (state.shift != host::Shift::Off)
        status += state.shift == host::Shift::Once ? ", Shift" : ", Shift locked";
    if (state.alt)
        status += ", Alt";
    return status + ", on: " + (key->text == " " ? "space" : key->text);
}

// Waits until the terminal's rows of text and status are these.
bool showsLine(PseudoTerminal& terminal, const std::string& text, const std::string& status)
{
    std::string line = "Text: " + text;
    line.erase(line.find_last_not_of(' ') + 1);
    return terminal.waitUntil([&](const TerminalScreen& screen) {
        return screen.row(1) == line && screen.row(2) == status;
    });
}

TEST(TerminalHost, TypesByHandOverShiftSymbolsLanguageAndANewWindowSize)
{
    const std::string text = "Hi \u00A9ß";
    const KeyboardModel model(host::installedLayouts());
    const Plan plan = planTyping(model, KeyboardState(), text);
    ASSERT_TRUE(plan.possible);

    PseudoTerminal terminal(host(""), with({}));
    KeyboardState state;
    host::TextLine typed;
    ASSERT_TRUE(showsLine(terminal, "", statusOf(model, state))) << terminal.screen();
    EXPECT_NE(terminal.modes(), terminal.modesBefore());
    bool shifted = false, symbols = false, otherLanguage = false;
    for (size_t i = 0; i + 1 < plan.presses.size(); ++i) {
        if (i == plan.presses.size() / 2) {
            terminal.resize(60, 20);
            ASSERT_TRUE(terminal.waitFor("\033[2J"));
            ASSERT_TRUE(showsLine(terminal, typed.text(), statusOf(model, state)));
        }
        terminal.send(bytesOf(plan.presses[i]));
        const KeyboardModel::Step step = model.after(state, plan.presses[i]);
        state = step.state;
        if (step.result != nullptr)
            typed.insert(host::keyText(step.result->character, step.result->text));
        ASSERT_TRUE(showsLine(terminal, typed.text(), statusOf(model, state)))
            << "press " << i << ", expected " << statusOf(model, state);
        shifted = shifted || state.shift != host::Shift::Off;
        symbols = symbols || state.alt;
        otherLanguage = otherLanguage || state.layout != 0;
    }
    EXPECT_TRUE(shifted);
    EXPECT_TRUE(symbols);
    EXPECT_TRUE(otherLanguage);
    EXPECT_EQ(terminal.out(), "");

    terminal.send(bytesOf(plan.presses.back()));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    EXPECT_EQ(terminal.out(), text + "\n");
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
    EXPECT_THAT(terminal.screen(), HasSubstr(kOldScreen));
}

TEST(TerminalHost, EscapeHidesEnterShowsEscapeTwiceLeaves)
{
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.send(kEscape);
    ASSERT_TRUE(terminal.waitFor("Enter shows the keyboard"));
    terminal.send("\r");
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.send(kEscape);
    ASSERT_TRUE(terminal.waitFor("Enter shows the keyboard"));
    terminal.send(kEscape);
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 1);
    EXPECT_EQ(terminal.out(), "");
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
}

TEST(TerminalHost, EndOfInputLeaves)
{
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.send("\004");
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 1);
}

TEST(TerminalHost, CtrlCRestoresTheTerminal)
{
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.send(kInterrupt);
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.endingSignal(), SIGINT);
    EXPECT_EQ(terminal.out(), "");
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
    EXPECT_THAT(terminal.screen(), HasSubstr(kOldScreen));
}

class TerminalHostSignal : public testing::TestWithParam<int>
{
};

TEST_P(TerminalHostSignal, RestoresTheTerminal)
{
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    ASSERT_NE(terminal.modes(), terminal.modesBefore());
    terminal.signal(GetParam());
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.endingSignal(), GetParam());
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
    EXPECT_THAT(terminal.screen(), HasSubstr(kOldScreen));
}

INSTANTIATE_TEST_SUITE_P(Ends, TerminalHostSignal,
                         testing::Values(SIGTERM, SIGHUP, SIGQUIT, SIGABRT, SIGSEGV),
                         [](const testing::TestParamInfo<int>& test) {
                             return std::string(sigabbrev_np(test.param));
                         });

TEST(TerminalHost, CtrlZGivesTheTerminalBackUntilItGoesOn)
{
    // A shell with job control, as only that lets a program be stopped.
    PseudoTerminal terminal("set -m; (" + host("") + ") 2>&1; echo stopped >/dev/tty; read -r; fg",
                            with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move")) << terminal.screen();
    terminal.send(kStop);
    ASSERT_TRUE(terminal.waitFor(kOldScreen));
    ASSERT_TRUE(terminal.waitFor("stopped"));
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
    terminal.send("\n");
    ASSERT_TRUE(terminal.waitFor(kOwnScreen));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    EXPECT_NE(terminal.modes(), terminal.modesBefore());
    terminal.send(kInterrupt);
    ASSERT_TRUE(terminal.waitFor(kOldScreen));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
}

TEST(TerminalHost, EndsWithItsTerminal)
{
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.hangUp();
    EXPECT_TRUE(terminal.waitForEnd());
}

TEST(TerminalHost, AWindowTooSmallForThePictureStillTakesKeys)
{
    const KeyboardModel model(host::installedLayouts());
    PseudoTerminal terminal(host(""), with({}));
    ASSERT_TRUE(terminal.waitFor("Arrows move"));
    terminal.resize(12, 4);
    ASSERT_TRUE(terminal.waitFor("\033[2J"));
    terminal.send(bytesOf(Press::Right));
    const std::string status = statusOf(model, model.after(KeyboardState(), Press::Right).state);
    ASSERT_TRUE(terminal.waitUntil(
        [&](const TerminalScreen& screen) { return screen.row(2) == status.substr(0, 12); }));
    terminal.send(kInterrupt);
    ASSERT_TRUE(terminal.waitForEnd());
}

TEST(TerminalHost, PlaysAPlannedTextOnATerminal)
{
    PseudoTerminal terminal(host("--type 'Grüße 42!' --delay 1"), with({}));
    ASSERT_TRUE(terminal.waitFor("Text: Grü"));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    EXPECT_EQ(terminal.out(), "Grüße 42!\n");
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
}

TEST(TerminalHost, TypesWithoutATerminal)
{
    PseudoTerminal terminal(host("--type 'Grüße 42!' </dev/null"), with({{"TERM", "dumb"}}));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    EXPECT_EQ(terminal.out(), "Grüße 42!\n");
    EXPECT_EQ(terminal.screen(), "");
}

// By the processor's time, so that what else the machine does is left out. A leak checker's whole
// stacks would be most of that; the other tests look for leaks.
TEST(TerminalHost, TypesTenThousandCharactersInFiveSeconds)
{
    const int kTimes = 1000;
    const long kSeconds = kChecked ? 25 : 5;
    std::string text;
    for (int i = 0; i < kTimes; ++i)
        text += "Grüße 42! ";
    PseudoTerminal terminal(TERMINAL_HOST_SCRIPT " --type \"$(printf 'Grüße 42! %.0s' {1.." +
                                std::to_string(kTimes) + "})\" </dev/null",
                            with({{"TERMINAL_HOST", TERMINAL_HOST},
                                  {"ASAN_OPTIONS", "verify_asan_link_order=0:detect_leaks=0"}}));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    EXPECT_EQ(terminal.out(), text + "\n");
    rusage used = {};
    ASSERT_EQ(::getrusage(RUSAGE_CHILDREN, &used), 0);
    EXPECT_LT(used.ru_utime.tv_sec + used.ru_stime.tv_sec, kSeconds);
}

// What it says to type is typed, but for the building.
TEST(TerminalHost, SaysHowToAddALayoutThatHasTheCharacter)
{
    const std::string script =
        "TERMINAL_HOST=" TERMINAL_HOST " '" TERMINAL_HOST_SCRIPT "' --type 'ч' </dev/null";
    PseudoTerminal refused(script, with({}));
    ASSERT_TRUE(refused.waitForEnd());
    ASSERT_EQ(refused.exitStatus(), 2);
    EXPECT_EQ(refused.out(), "");
    std::string said = refused.screen();
    said.erase(std::remove(said.begin(), said.end(), '\r'), said.end());
    ASSERT_THAT(said, HasSubstr("to add one:\n    make layouts\n    build/default/"));

    std::istringstream lines(said.substr(said.find("    build/")));
    std::string install, choose;
    std::getline(lines, install);
    std::getline(lines, choose);
    const std::string folder = testing::TempDir() + "terminal-host-layouts";
    for (std::string* line : {&install, &choose})
        line->replace(line->find("build/layouts"), std::strlen("build/layouts"), folder);
    install.replace(0, install.find(" install"), LAYOUTS);
    PseudoTerminal typed(install + " >&2 && " + choose + " && " + script, with({}));
    ASSERT_TRUE(typed.waitForEnd());
    EXPECT_EQ(typed.exitStatus(), 0) << typed.screen();
    EXPECT_EQ(typed.out(), "ч\n");
    std::filesystem::remove_all(folder);
}

TEST(TerminalHost, PrintsAPlan)
{
    PseudoTerminal terminal(host("--type q --plan"), with({}));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    const KeyboardModel model(host::installedLayouts());
    std::string expected;
    for (const Press press : planTyping(model, KeyboardState(), "q").presses)
        expected += std::string(host::pressName(press)) + "\n";
    EXPECT_EQ(terminal.out(), expected);
}

TEST(TerminalHost, RecordsAndKeepsTheLogApart)
{
    const std::string recording = testing::TempDir() + "terminal-host-test.gif";
    const std::string log = testing::TempDir() + "terminal-host-test.log";
    PseudoTerminal terminal(
        host("--type a --record " + recording + " --log " + log + " </dev/null"), with({}));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 0);
    EXPECT_EQ(terminal.out(), "a\n");
    std::ostringstream lines, picture;
    lines << std::ifstream(log).rdbuf();
    picture << std::ifstream(recording, std::ios::binary).rdbuf();
    EXPECT_THAT(lines.str(), StartsWith("[B-LOG] "));
    EXPECT_THAT(lines.str(), HasSubstr("Received Keycode: 13"));
    EXPECT_THAT(lines.str(), EndsWith("\n"));
    EXPECT_THAT(picture.str(), StartsWith("GIF89a"));
    EXPECT_THAT(picture.str(), EndsWith(";")); // a GIF file's last byte
    std::remove(log.c_str());
    std::remove(recording.c_str());
}

struct Refusal {
    const char* name;
    const char* arguments;
    Environment environment;
    const char* message;
};

void PrintTo(const Refusal& refusal, std::ostream* out)
{
    *out << refusal.name;
}

class TerminalHostRefuses : public testing::TestWithParam<Refusal>
{
};

TEST_P(TerminalHostRefuses, AndSaysWhy)
{
    PseudoTerminal terminal(host(GetParam().arguments), with(GetParam().environment));
    ASSERT_TRUE(terminal.waitForEnd());
    EXPECT_EQ(terminal.exitStatus(), 2);
    EXPECT_EQ(terminal.out(), "");
    EXPECT_THAT(terminal.screen(), HasSubstr(GetParam().message));
    EXPECT_THAT(terminal.screen(), Not(HasSubstr(kOwnScreen)));
    EXPECT_EQ(terminal.modes(), terminal.modesBefore());
}

INSTANTIATE_TEST_SUITE_P(
    Because, TerminalHostRefuses,
    testing::Values(
        Refusal{"DumbTerminal",
                "",
                {{"TERM", "dumb"}},
                "TERM: found 'dumb', expected a terminal that can move its cursor, such as xterm; "
                "use --type TEXT to type without one"},
        Refusal{"NoTerm", "", {{"TERM", ""}}, "TERM: found nothing, expected a terminal"},
        Refusal{"ClosedInput",
                "<&-",
                {},
                "standard input: found no terminal, expected one to read keys from; use --type"},
        Refusal{"InputFromAFile", "</dev/null", {}, "standard input: found no terminal"},
        Refusal{"NoPicture", "--picture none", {}, "--picture none"},
        Refusal{"NoLayouts",
                "--type a",
                {{"VKB_TEST_ROOT", "/no-such-folder"}},
                "Language_Name.json: found no layouts, expected a catalogue that lists them"},
        Refusal{"NoFont",
                "--type a",
                {{"VIRTUAL_KEYBOARD_FONT_PATH", "/no-such-font.ttf"}},
                "VIRTUAL_KEYBOARD_FONT_PATH: found no font file"},
        Refusal{
            "UnknownCharacter",
            "--type '漢字'",
            {},
            "--type: no way to type '漢', expected characters of the installed layouts (English"},
        // A key for the letter with its horn, and one for the dot below, whose label is on a
        // circle.
        Refusal{"CharacterOfSeveralKeys", "--type 'ợ'", {}, "; these have it: Vietnamese"},
        Refusal{"ComposedCharacter", "--type '한'", {}, "; these have it: Korean; to add one:"},
        Refusal{"CharacterOfNoLayout",
                "--type '漢'",
                {},
                "; no layout types it without choosing from a dictionary"},
        Refusal{"ClosedOutput", "--type a >&-", {}, "standard output: is closed"},
        Refusal{
            "FullOutput", "--type a </dev/null >/dev/full", {}, "standard output: No space left"},
        Refusal{"NoUtf8", "--type $'\\xff'", {}, "--type: found bytes that are no UTF-8"},
        Refusal{"WrongOption", "--tipe a", {}, "--tipe"},
        Refusal{"WrongPicture", "--picture vga", {}, "vga"},
        Refusal{"PlanOfNothing", "--plan", {}, "--plan requires --type"},
        Refusal{"WrongRecording",
                "--type a --record a.jpg",
                {},
                "a.jpg: expected a name that ends in .gif or .png"},
        Refusal{"WrongLog",
                "--type a --log /no-such-folder/log",
                {},
                "/no-such-folder/log: cannot be opened for the log: No such file or directory"}),
    [](const testing::TestParamInfo<Refusal>& test) { return test.param.name; });

} // namespace
