#include "process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test_process
{
namespace
{

// Variables of the surroundings that programs need; every other one would make a test depend on
// who runs it. GCOV's let a coverage build keep its figures apart.
const char* const kPassedOn[] = {
    "PATH",         "HOME",         "TMPDIR",       "GCOV_PREFIX", "GCOV_PREFIX_STRIP",
    "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"};

const int kPollStep = 20; // milliseconds

struct Pipe {
    int ends[2];

    Pipe()
    {
        if (::pipe2(ends, O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe2");
    }
};

// The program through its emulator, if it has one, and with no variables but its own.
std::vector<std::string> wordsOf(const Command& command)
{
    // This program ignores a broken pipe; the started one decides for itself.
    std::vector<std::string> words = {"env", "--default-signal=PIPE", "-i"};
    for (const char* name : kPassedOn)
        if (const char* value = std::getenv(name))
            words.emplace_back(name).append("=").append(value);
    for (const auto& [name, value] : command.environment)
        words.emplace_back(name).append("=").append(value);
    std::istringstream emulator(VKB_TEST_EMULATOR);
    for (std::string word; command.forTarget && std::getline(emulator, word, '|');)
        words.push_back(word);
    words.insert(words.end(), command.words.begin(), command.words.end());
    return words;
}

// The descriptors are the started program's from then on.
pid_t start(std::vector<std::string> words, int input, int output, int error)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, error, STDERR_FILENO);

    std::vector<char*> arguments(words.size() + 1); // the last one stays null
    std::transform(words.begin(), words.end(), arguments.begin(),
                   [](std::string& word) { return &word[0]; });
    pid_t pid = -1;
    const int failure =
        posix_spawnp(&pid, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    for (const int descriptor : {input, output, error})
        ::close(descriptor);
    if (failure != 0)
        throw std::system_error(failure, std::generic_category(), "cannot start " + words[0]);
    return pid;
}

void close(int& descriptor)
{
    if (descriptor >= 0)
        ::close(descriptor);
    descriptor = -1;
}

// Takes what has come in; closes the descriptor at its end.
void take(int& descriptor, std::string& text)
{
    char bytes[65536];
    const ssize_t count = ::read(descriptor, bytes, sizeof bytes);
    if (count > 0)
        text.append(bytes, static_cast<size_t>(count));
    else
        close(descriptor);
}

} // namespace

Process::Process(const Command& command)
{
    // A program that has ended does not end the test with it.
    std::signal(SIGPIPE, SIG_IGN);

    const Pipe input, output, error;
    m_pid = start(wordsOf(command), input.ends[0], output.ends[1], error.ends[1]);
    m_input = input.ends[1];
    m_output = output.ends[0];
    m_error = error.ends[0];
}

Process::~Process()
{
    kill(SIGKILL);
    closeInput();
    close(m_output);
    close(m_error);
}

bool Process::write(const std::string& text)
{
    return ::write(m_input, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

void Process::closeInput()
{
    close(m_input);
}

void Process::collect()
{
    pollfd descriptors[] = {{m_output, POLLIN, 0}, {m_error, POLLIN, 0}};
    // With both outputs closed, the end itself is only a moment away.
    ::poll(descriptors, 2, isClosed() ? 1 : kPollStep);
    if (descriptors[0].revents != 0)
        take(m_output, m_result.out);
    if (descriptors[1].revents != 0)
        take(m_error, m_result.err);
    if (isClosed())
        takeEnd(WNOHANG);
}

void Process::takeEnd(int waitOptions)
{
    int status = 0;
    if (m_ended || TEMP_FAILURE_RETRY(::waitpid(m_pid, &status, waitOptions)) != m_pid)
        return;
    m_ended = true;
    m_result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    m_result.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    m_result.time =
        std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - m_start);
}

bool Process::waitUntil(const std::function<bool()>& done, Milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!done()) {
        if (m_ended || std::chrono::steady_clock::now() >= end)
            return false;
        collect();
    }
    return true;
}

bool Process::waitForOutput(const std::string& text, int times, Milliseconds deadline)
{
    return waitUntil([&] { return countOf(text, m_result.out) >= times; }, deadline);
}

bool Process::waitForEnd(Milliseconds deadline)
{
    return waitUntil([this] { return m_ended; }, deadline);
}

void Process::kill(int signal)
{
    if (!m_ended)
        ::kill(m_pid, signal);
    takeEnd(0);
}

Result run(const Command& command, const std::string& input, Milliseconds deadline)
{
    Process process(command);
    process.write(input);
    process.closeInput();
    const Result& result = process.result();
    if (!process.waitForEnd(deadline))
        throw std::runtime_error(
            command.words.front() + ": still runs after " + std::to_string(deadline.count()) +
            " ms, expected its end; it had printed:\n" + result.out + result.err);
    return result;
}

int countOf(const std::string& text, const std::string& whole)
{
    int count = 0;
    for (size_t at = whole.find(text); at != std::string::npos; at = whole.find(text, at + 1))
        ++count;
    return count;
}

} // namespace test_process
