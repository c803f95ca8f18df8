#include "pseudo_terminal.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utmp.h>

namespace
{

const std::chrono::seconds kDeadline(60);
const winsize kWindow = {24, 80, 0, 0};

// Appends what is there to read. Returns false at the end.
bool readSome(int descriptor, std::string& text)
{
    char bytes[4096];
    const ssize_t count = ::read(descriptor, bytes, sizeof bytes);
    if (count > 0)
        text.append(bytes, static_cast<size_t>(count));
    return count > 0 || (count < 0 && errno == EINTR);
}

[[noreturn]] void become(const std::string& line,
                         const std::map<std::string, std::string>& environment, int output)
{
    ::dup2(output, STDOUT_FILENO);
    const rlimit noCore = {0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    for (const auto& variable : environment) {
        if (variable.second.empty())
            ::unsetenv(variable.first.c_str());
        else
            ::setenv(variable.first.c_str(), variable.second.c_str(), 1);
    }
    ::execl("/bin/bash", "bash", "-c", line.c_str(), nullptr);
    ::_exit(127);
}

} // namespace

PseudoTerminal::PseudoTerminal(const std::string& line,
                               const std::map<std::string, std::string>& environment,
                               const TerminalScreen& screen)
    : m_shown(screen)
{
    int output[2];
    if (::pipe2(output, O_CLOEXEC) != 0 ||
        ::openpty(&m_master, &m_slave, nullptr, nullptr, &kWindow) != 0)
        throw std::runtime_error("no pseudo-terminal");
    ::fcntl(m_master, F_SETFD, FD_CLOEXEC);
    ::fcntl(m_slave, F_SETFD, FD_CLOEXEC);
    m_modes_before = modes();
    m_pid = ::fork();
    if (m_pid == 0) {
        ::login_tty(::dup(m_slave));
        become(line, environment, output[1]);
    }
    ::close(output[1]);
    m_pipe = output[0];
}

PseudoTerminal::~PseudoTerminal()
{
    if (!m_ended) {
        ::kill(-m_pid, SIGKILL);
        ::waitpid(m_pid, nullptr, 0);
    }
    for (const int descriptor : {m_master, m_slave, m_pipe})
        if (descriptor >= 0)
            ::close(descriptor);
}

void PseudoTerminal::send(const std::string& bytes)
{
    if (::write(m_master, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
        throw std::runtime_error("the terminal takes no keys");
}

void PseudoTerminal::resize(unsigned short columns, unsigned short rows, unsigned short cellWidth,
                            unsigned short cellHeight)
{
    const winsize window = {rows, columns, static_cast<unsigned short>(columns * cellWidth),
                            static_cast<unsigned short>(rows * cellHeight)};
    m_shown.resize(columns, rows);
    ::ioctl(m_master, TIOCSWINSZ, &window);
}

void PseudoTerminal::signal(int number)
{
    ::kill(m_pid, number);
}

void PseudoTerminal::hangUp()
{
    for (int* descriptor : {&m_slave, &m_master}) {
        ::close(*descriptor);
        *descriptor = -1;
    }
}

pid_t PseudoTerminal::foreground() const
{
    return ::tcgetpgrp(m_master);
}

bool PseudoTerminal::waitFor(const std::string& text)
{
    return collectUntil([&] {
        const size_t at = m_screen.find(text, m_found);
        if (at == std::string::npos)
            return false;
        m_found = at + text.size();
        return true;
    });
}

bool PseudoTerminal::waitUntil(const std::function<bool(const TerminalScreen&)>& condition)
{
    return collectUntil([&] { return condition(m_shown); });
}

bool PseudoTerminal::waitForEnd()
{
    collectUntil([] { return false; });
    return m_ended;
}

int PseudoTerminal::exitStatus() const
{
    return WIFEXITED(m_wait_status) ? WEXITSTATUS(m_wait_status) : -1;
}

int PseudoTerminal::endingSignal() const
{
    return WIFSIGNALED(m_wait_status) ? WTERMSIG(m_wait_status) : 0;
}

std::string PseudoTerminal::modes() const
{
    termios modes = {};
    if (::tcgetattr(m_slave, &modes) != 0)
        return "";
    std::string text;
    for (const tcflag_t flags : {modes.c_iflag, modes.c_oflag, modes.c_cflag, modes.c_lflag})
        text += std::to_string(flags) + " ";
    for (const cc_t character : modes.c_cc)
        text += std::to_string(character) + " ";
    return text;
}

bool PseudoTerminal::collectUntil(const std::function<bool()>& done)
{
    const auto deadline = std::chrono::steady_clock::now() + kDeadline;
    while (!done()) {
        // What the program wrote last is read before its end counts.
        const bool ended = reap();
        pollfd sources[] = {{m_master, POLLIN, 0}, {m_pipe, POLLIN, 0}};
        const int ready = ::poll(sources, 2, ended ? 0 : 50);
        bool read = false;
        if (ready > 0 && (sources[0].revents & POLLIN) != 0)
            read = readScreen();
        if (ready > 0 && (sources[1].revents & POLLIN) != 0)
            read = readSome(m_pipe, m_out) || read;
        else if (ready > 0 && sources[1].revents != 0) {
            ::close(m_pipe); // nobody writes there any more
            m_pipe = -1;
        }
        if (ended && !read)
            return done();
        if (std::chrono::steady_clock::now() > deadline)
            return false;
    }
    return true;
}

bool PseudoTerminal::readScreen()
{
    const size_t before = m_screen.size();
    if (!readSome(m_master, m_screen))
        return false;
    m_shown.feed(m_screen.substr(before));
    const std::string answers = m_shown.takeAnswers();
    if (!answers.empty())
        send(answers);
    return true;
}

bool PseudoTerminal::reap()
{
    if (!m_ended)
        m_ended = ::waitpid(m_pid, &m_wait_status, WNOHANG) == m_pid;
    return m_ended;
}
