#ifndef TESTS_SUPPORT_PROCESS_H
#define TESTS_SUPPORT_PROCESS_H

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <sys/types.h>

namespace test_process
{

using Milliseconds = std::chrono::milliseconds;

// Long enough for a loaded machine and for an emulator; a test that waits this long has failed.
const Milliseconds kDeadline = std::chrono::seconds(60);

struct Command {
    std::vector<std::string> words; // the program's path first
    // Added to a small fixed environment; nothing else of the test's own environment is passed on.
    std::map<std::string, std::string> environment;
    bool forTarget = true; // built by this build, so started through its emulator
};

// What a program did until now and, after its end, how it ended.
struct Result {
    int exitStatus = -1; // -1 when a signal ended it
    int signal = 0;      // that ended it
    std::string out;
    std::string err;
    Milliseconds time{}; // from its start to its end
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

    const Result& result() const { return m_result; }

private:
    bool isClosed() const { return m_output < 0 && m_error < 0; }
    void collect();
    void takeEnd(int waitOptions);

    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    pid_t m_pid = -1;
    bool m_ended = false;
    int m_input = -1;
    int m_output = -1;
    int m_error = -1;
    Result m_result;
};

// Runs a program to its end. Throws std::runtime_error when the deadline passes first.
Result run(const Command& command, const std::string& input = "",
           Milliseconds deadline = kDeadline);

int countOf(const std::string& text, const std::string& whole);

} // namespace test_process

#endif
