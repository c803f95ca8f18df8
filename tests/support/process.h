#ifndef TESTS_SUPPORT_PROCESS_H
#define TESTS_SUPPORT_PROCESS_H

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/wait.h>

namespace test_process
{

using Milliseconds = std::chrono::milliseconds;

// Long enough for a loaded machine and for an emulator; a test that waits this long has failed.
const Milliseconds kDeadline = std::chrono::seconds(60);

struct Command {
    std::vector<std::string> words; // the program's path first
    // Added to a small fixed environment; nothing else of the test's own environment is passed on.
    std::map<std::string, std::string> environment;
    std::vector<std::string> preload; // libraries for LD_PRELOAD
    bool forTarget = true;            // built by this build, so started through its emulator
};

// A running program. Its output is collected as it comes. The destructor kills it if it runs.
class Process
{
public:
    explicit Process(const Command& command);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // Returns false when the program no longer takes input.
    bool write(const std::string& text);
    void closeInput();

    // Collects output until done says so. Returns false when the deadline passed, or the program
    // ended, before that.
    bool waitUntil(const std::function<bool()>& done, Milliseconds deadline = kDeadline);
    bool waitForOutput(const std::string& text, int times = 1, Milliseconds deadline = kDeadline);

    // Collects output until the program has ended. Returns false when the deadline passed.
    bool waitForEnd(Milliseconds deadline = kDeadline);

    // Ends the program with a signal and waits for it.
    void kill(int signal);

    const std::string& out() const { return m_out; }
    const std::string& err() const { return m_err; }

    // After the end: the exit status, or -1 when a signal ended the program.
    int exitStatus() const
    {
        return m_ended && WIFEXITED(m_wait_status) ? WEXITSTATUS(m_wait_status) : -1;
    }
    // After the end: the signal that ended the program, or 0.
    int signal() const
    {
        return m_ended && WIFSIGNALED(m_wait_status) ? WTERMSIG(m_wait_status) : 0;
    }

private:
    bool isClosed() const { return m_output < 0 && m_error < 0; }
    bool hasEnded();
    void collect();

    pid_t m_pid = -1;
    bool m_ended = false;
    int m_wait_status = 0;
    int m_input = -1;
    int m_output = -1;
    int m_error = -1;
    std::string m_out;
    std::string m_err;
};

// What a program did that was given all its input at once.
struct Result {
    int exitStatus;
    int signal;
    std::string out;
    std::string err;
    Milliseconds time;
};

// Runs a program to its end. Throws std::runtime_error when the deadline passes first.
Result run(const Command& command, const std::string& input = "",
           Milliseconds deadline = kDeadline);

int countOf(const std::string& text, const std::string& whole);

} // namespace test_process

#endif
