// What all our programs have in common: faults in the options, --help, --version, an output that is
// full or closed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "process.h"

namespace
{

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

struct Program {
    const char* name;
    const char* file;
    const char* fault; // arguments that are wrong
    const char* message;
};

const Program kPrograms[] = {
    {"terminal_host", TERMINAL_HOST, "--picture vga",
     "--picture: found vga, expected auto, sixel, kitty, symbols or none"},
    {"terminal_host", TERMINAL_HOST, "--delay x", "Value x not in range 0 to 10000"},
    {"terminal_host", TERMINAL_HOST, "--delay",
     "--delay: 1 required MS:INT in [0 - 10000] missing"},
    {"terminal_host", TERMINAL_HOST, "--plan", "--plan requires --type"},
    {"terminal_host", TERMINAL_HOST, "more", "The following argument was not expected: more"},
    {"screen_host", SCREEN_HOST, "--tipe a", "The following arguments were not expected: a --tipe"},
    {"screen_host", SCREEN_HOST, "--record a.gif", "--record requires --type"},
#ifdef BROWSER_HOST
    {"browser_host", BROWSER_HOST, "--patience 0", "Value 0 not in range 1 to 3600"},
    {"browser_host", BROWSER_HOST, "--record a.gif", "--record requires --play"},
#endif
#ifdef INPUT_METHOD
    {"input_method", INPUT_METHOD, "", "LAYOUT or --list is required"},
    {"input_method", INPUT_METHOD, "Korean --list", "LAYOUT excludes --list"},
#endif
#ifdef LAYOUTS
    {"layouts", LAYOUTS, "", "A subcommand is required"},
    {"layouts", LAYOUTS, "check /no-such-folder", "DIR: Directory does not exist: /no-such-folder"},
    {"layouts", LAYOUTS, "generate", "generate: name languages or give --all"},
    {"layouts", LAYOUTS, "preview", "NAME is required"},
#endif
};

void PrintTo(const Program& program, std::ostream* out)
{
    *out << program.name << ' ' << program.fault;
}

class Programs : public testing::TestWithParam<Program>
{
protected:
    static test_process::Result run(const std::string& arguments)
    {
        test_process::Command command;
        command.forTarget = false;
        command.words = {"bash", "-c", "exec '" + std::string(GetParam().file) + "' " + arguments};
        return test_process::run(command, "");
    }
};

TEST_P(Programs, TellFaultsInTheirOptionsInOneForm)
{
    const test_process::Result result = run(GetParam().fault);
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.out, "");
    const std::string name = GetParam().name;
    EXPECT_THAT(result.err, HasSubstr(GetParam().message));
    EXPECT_THAT(result.err,
                MatchesRegex(name + ": [^\n]*\n" + name + " --help lists the options\n"));
}

TEST_P(Programs, SayTheirVersion)
{
    const test_process::Result result = run("--version");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, GetParam().name + std::string(" " VKB_VERSION "\n"));
}

// Numbers of a type's members, or a type's name, say nothing to a reader.
TEST_P(Programs, HelpIsForReaders)
{
    const test_process::Result result = run("--help");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(result.out, HasSubstr("--version"));
    EXPECT_THAT(result.out, Not(HasSubstr("->")));
    EXPECT_THAT(result.out, Not(HasSubstr("{")));
}

TEST_P(Programs, SayThatTheirOutputIsFull)
{
    const test_process::Result result = run("--help >/dev/full");
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.err,
              GetParam().name + std::string(": standard output: No space left on device\n"));
}

// A library may have opened something else in the closed descriptor, which then gets the text.
TEST_P(Programs, RefuseAClosedOutput)
{
    const test_process::Result result = run("--version >&-");
    EXPECT_EQ(result.exitStatus, 2);
    EXPECT_EQ(result.err,
              GetParam().name +
                  std::string(": standard output: is closed, expected a place for the text\n"));
}

// Engines of input methods are loaded when they are used; a program that never does so never pays.
TEST_P(Programs, LinkNoEngine)
{
    for (const std::string file : {GetParam().file, OS_KEYBOARD_TEST}) {
        test_process::Command command;
        command.forTarget = false;
        command.words = {"ldd", file};
        const test_process::Result result = test_process::run(command, "");
        EXPECT_EQ(result.exitStatus, 0) << result.err;
        EXPECT_THAT(result.out, HasSubstr("libc.so"));
        for (const char* engine : {"anthy", "chewing", "hangul", "m17n", "rime"})
            EXPECT_THAT(result.out, Not(HasSubstr(std::string("lib") + engine)));
    }
}

INSTANTIATE_TEST_SUITE_P(All, Programs, testing::ValuesIn(kPrograms));

} // namespace
