#include "process.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <unistd.h>

namespace test_process
{
namespace
{

// Variables of the surroundings that programs need; every other one would make a test depend on
// who runs it. The last two let a coverage build keep its figures apart.
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

std::vector<std::string> emulator()
{
    std::vector<std::string> words;
    std::istringstream list(VKB_TEST_EMULATOR);
    for (std::string word; std::getline(list, word, '|');)
        words.push_back(word);
    return words;
}

std::string joined(const std::vector<std::string>& words, char separator)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : std::string(1, separator)) + word;
    return text;
}

std::vector<std::string> wordsOf(const Command& command)
{
    std::vector<std::string> words = command.forTarget ? emulator() : std::vector<std::string>();
    words.insert(words.end(), command.words.begin(), command.words.end());
    return words;
}

std::vector<std::string> environmentOf(const Command& command)
{
    std::map<std::string, std::string> environment = command.environment;
    for (const char* name : kPassedOn)
        if (const char* value = std::getenv(name))
            environment.emplace(name, value);
    // The emulators are static programs: they leave it to the program that they run.
    if (!command.preload.empty())
        environment["LD_PRELOAD"] = joined(command.preload, ' ');

    std::vector<std::string> lines;
    lines.reserve(environment.size());
    for (const auto& entry : environment)
        lines.push_back(entry.first + "=" + entry.second);
    return lines;
}

std::vector<char*> pointersInto(std::vector<std::string>& strings)
{
    std::vector<char*> pointers;
    pointers.reserve(strings.size() + 1);
    for (std::string& string : strings)
        pointers.push_back(&string[0]);
    pointers.push_back(nullptr);
    return pointers;
}

pid_t start(const Command& command, int input, int output, int error)
{
    // This program ignores a broken pipe; the started one decides for itself.
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, error, STDERR_FILENO);

    std::vector<std::string> words = wordsOf(command);
    std::vector<std::string> environment = environmentOf(command);
    pid_t pid = -1;
    const int failure = posix_spawnp(&pid, words.front().c_str(), &actions, &attributes,
                                     pointersInto(words).data(), pointersInto(environment).data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0)
        throw std::system_error(failure, std::generic_category(), "cannot start " + words.front());
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
    else if (count == 0 || errno != EINTR)
        close(descriptor);
}

} // namespace

Process::Process(const Command& command)
{
    // A program that has ended does not end the test with it.
    std::signal(SIGPIPE, SIG_IGN);

    Pipe input, output, error;
    m_pid = start(command, input.ends[0], output.ends[1], error.ends[1]);
    close(input.ends[0]);
    close(output.ends[1]);
    close(error.ends[1]);
    m_input = input.ends[1];
    m_output = output.ends[0];
    m_error = error.ends[0];
}

Process::~Process()
{
    if (!m_ended)
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
    if (::poll(descriptors, 2, isClosed() ? 1 : kPollStep) <= 0)
        return;
    if (descriptors[0].revents != 0)
        take(m_output, m_out);
    if (descriptors[1].revents != 0)
        take(m_error, m_err);
}

bool Process::hasEnded()
{
    if (!m_ended && isClosed())
        m_ended = ::waitpid(m_pid, &m_wait_status, WNOHANG) == m_pid;
    return m_ended;
}

bool Process::waitUntil(const std::function<bool()>& done, Milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!done()) {
        if (hasEnded() || std::chrono::steady_clock::now() >= end)
            return done(); // it may have been its end that was waited for
        collect();
    }
    return true;
}

bool Process::waitForOutput(const std::string& text, int times, Milliseconds deadline)
{
    return waitUntil([&] { return countOf(text, m_out) >= times; }, deadline);
}

bool Process::waitForEnd(Milliseconds deadline)
{
    return waitUntil([this] { return hasEnded(); }, deadline);
}

void Process::kill(int signal)
{
    if (m_ended)
        return;
    ::kill(m_pid, signal);
    while (::waitpid(m_pid, &m_wait_status, 0) < 0 && errno == EINTR) {
    }
    m_ended = true;
}

Result run(const Command& command, const std::string& input, Milliseconds deadline)
{
    const auto start = std::chrono::steady_clock::now();
    Process process(command);
    process.write(input);
    process.closeInput();
    if (!process.waitForEnd(deadline)) {
        throw std::runtime_error(
            joined(command.words, ' ') + ": still runs after " + std::to_string(deadline.count()) +
            " ms, expected its end; it had printed:\n" + process.out() + process.err());
    }
    const auto time =
        std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - start);
    return {process.exitStatus(), process.signal(), process.out(), process.err(), time};
}

int countOf(const std::string& text, const std::string& whole)
{
    int count = 0;
    for (size_t at = whole.find(text); at != std::string::npos; at = whole.find(text, at + 1))
        ++count;
    return count;
}

} // namespace test_process
