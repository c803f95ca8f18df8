// The terminal host's script as a job of a person's shell: whatever ends or stops it, the terminal
// is as before. Each case is tried twenty times, as most faults of this kind show now and then.
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include <gtest/gtest.h>

#include "pseudo_terminal.h"

namespace
{

const int kRounds = 20;
const char kPrompt[] = "ready> ";
const char kShell[] = "PS1='ready> ' exec bash --norc --noprofile -i >/dev/tty";
const char kShown[] = "Arrows move";
const char kOwnScreen[] = "\033[?1049h";
const char kOldScreen[] = "\033[?1049l";
const char kHideCursor[] = "\033[?25l";
const char kShowCursor[] = "\033[?25h";
const char kInterrupt[] = "\003";
const char kRight[] = "\033[C";
const char kStop[] = "\032";

// An interactive shell, with modes that are not the default ones.
class JobControl : public testing::Test
{
protected:
    JobControl()
        : m_terminal(kShell, {{"TERM", "xterm-256color"},
                              {"COLORTERM", "truecolor"},
                              {"TERMINAL_HOST", TERMINAL_HOST}})
    {
    }

    void SetUp() override
    {
        ASSERT_TRUE(m_terminal.waitFor(kPrompt)) << m_terminal.screen();
        ASSERT_NO_FATAL_FAILURE(command("stty -ixon -echoctl kill ^Y; before=$(stty -g)"));
    }

    // Types a line that ends at once.
    void command(const std::string& line)
    {
        m_terminal.send(line + "\n");
        ASSERT_TRUE(m_terminal.waitFor("\n")) << line;
        ASSERT_TRUE(m_terminal.waitFor(kPrompt)) << line;
    }

    void start(const std::string& line)
    {
        m_terminal.send(line + "\n");
        ASSERT_TRUE(m_terminal.waitFor(kShown)) << m_terminal.screen();
    }

    void expectPrompt() { ASSERT_TRUE(m_terminal.waitFor(kPrompt)) << m_terminal.screen(); }

    void expectAsBefore(const std::string& status)
    {
        m_terminal.send("echo \"status $? $([ \"$(stty -g)\" = \"$before\" ] && echo same)\" "
                        ">/dev/tty\n");
        ASSERT_TRUE(m_terminal.waitFor("status " + status + " same")) << m_terminal.screen();
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        EXPECT_GT(last(kOldScreen), last(kOwnScreen));
        EXPECT_GT(last(kShowCursor), last(kHideCursor));
    }

    std::string::size_type last(const char* sequence) const
    {
        return m_terminal.screen().rfind(sequence);
    }

    PseudoTerminal m_terminal;
};

TEST_F(JobControl, CtrlC)
{
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_NO_FATAL_FAILURE(start(TERMINAL_HOST_SCRIPT));
        m_terminal.send(kInterrupt);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore("130")) << "round " << round;
    }
}

TEST_F(JobControl, CtrlCWhileTheShellWaitsForTheText)
{
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_NO_FATAL_FAILURE(start("x=$(" TERMINAL_HOST_SCRIPT ")"));
        m_terminal.send(std::string(kStop) + kRight); // a stop is not for a part of a line
        ASSERT_TRUE(m_terminal.waitFor("on: ")) << m_terminal.screen();
        m_terminal.send(kInterrupt);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore("130")) << "round " << round;
    }
}

TEST_F(JobControl, CtrlZAndOnInTheForeground)
{
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_NO_FATAL_FAILURE(start(TERMINAL_HOST_SCRIPT));
        m_terminal.send(kStop);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore("148")) << "round " << round; // 128 + SIGTSTP

        ASSERT_NO_FATAL_FAILURE(start("fg"));
        m_terminal.send(kRight);
        ASSERT_TRUE(m_terminal.waitFor("on: ")) << m_terminal.screen();
        m_terminal.send(kInterrupt);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore("130")) << "round " << round;
    }
}

TEST_F(JobControl, StartedInTheBackgroundItWaitsForTheTerminal)
{
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_NO_FATAL_FAILURE(command(TERMINAL_HOST_SCRIPT " &"));
        ASSERT_NO_FATAL_FAILURE(command("wait %1"));
        ASSERT_NO_FATAL_FAILURE(start("fg"));
        m_terminal.send(kInterrupt);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore("130")) << "round " << round;
    }
}

class JobControlSignal : public JobControl, public testing::WithParamInterface<int>
{
};

TEST_P(JobControlSignal, ToTheScript)
{
    for (int round = 0; round < kRounds; ++round) {
        ASSERT_NO_FATAL_FAILURE(start(TERMINAL_HOST_SCRIPT));
        ASSERT_EQ(::kill(m_terminal.foreground(), GetParam()), 0);
        ASSERT_NO_FATAL_FAILURE(expectPrompt());
        ASSERT_NO_FATAL_FAILURE(expectAsBefore(std::to_string(128 + GetParam())))
            << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Ends, JobControlSignal, testing::Values(SIGTERM, SIGHUP),
                         [](const testing::TestParamInfo<int>& test) {
                             return std::string(sigabbrev_np(test.param));
                         });

// Gone, or ended and not yet asked for by its new parent.
bool hasEnded(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string number, name, state;
    return !(file >> number >> name >> state) || state == "Z";
}

TEST(ClosedTerminal, EndsTheHost)
{
    for (int round = 0; round < kRounds; ++round) {
        PseudoTerminal terminal(kShell,
                                {{"TERM", "xterm-256color"}, {"TERMINAL_HOST", TERMINAL_HOST}});
        ASSERT_TRUE(terminal.waitFor(kPrompt));
        terminal.send(TERMINAL_HOST_SCRIPT "\n");
        ASSERT_TRUE(terminal.waitFor(kShown)) << terminal.screen();
        const pid_t host = terminal.foreground();
        ASSERT_FALSE(hasEnded(host));
        terminal.hangUp();
        ASSERT_TRUE(terminal.waitForEnd());
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!hasEnded(host) && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        ASSERT_TRUE(hasEnded(host)) << "round " << round;
    }
}

} // namespace
