// The terminal's modes and its screen of its own, given back however the process ends or stops.
#include "terminal_mode.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace host
{

namespace
{

// Signal handlers have no argument of ours, so the one terminal's state is global.
int terminal_fd = -1;
termios original_mode;
volatile std::sig_atomic_t is_active = 0;
int redraw_pipe[2] = {-1, -1};

const char kEnter[] = "\033[?1049h\033[2J"; // a screen of its own, empty

// The end of a picture that was being written, plain text, cursor shown, the old screen.
const char kLeave[] = "\033\\\033[0m\033[?25h\033[?1049l";

const int kEndingSignals[] = {SIGHUP, SIGINT,  SIGQUIT, SIGILL, SIGABRT,
                              SIGFPE, SIGSEGV, SIGBUS,  SIGTERM};

// Everything from here to watchSignals may run in a signal handler: only async-signal-safe calls.

void writeText(const char* text, size_t bytes)
{
    while (bytes > 0) {
        const ssize_t written = ::write(terminal_fd, text, bytes);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        text += written;
        bytes -= static_cast<size_t>(written);
    }
}

// Another job has the terminal: it belongs to that one's modes, and changing them would stop us.
bool isInBackground()
{
    const pid_t foreground = tcgetpgrp(terminal_fd);
    return foreground >= 0 && foreground != ::getpgrp();
}

void enter()
{
    tcdrain(terminal_fd); // in the background it stops here; the modes are read when it goes on
    tcgetattr(terminal_fd, &original_mode);
    termios raw = original_mode;
    raw.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO); // ISIG stays: Ctrl-C and Ctrl-Z work
    raw.c_cc[VMIN] = 1;
    raw.c_cc[VTIME] = 0;
    tcsetattr(terminal_fd, TCSANOW, &raw);
    writeText(kEnter, sizeof kEnter - 1);
    is_active = 1;
}

void leave()
{
    if (!is_active)
        return;
    is_active = 0;
    writeText(kLeave, sizeof kLeave - 1);
    if (isInBackground())
        return;
    tcsetattr(terminal_fd, TCSANOW, &original_mode);
    tcflush(terminal_fd, TCIFLUSH); // an answer of the terminal that nobody reads any more
}

void askForRedraw(int)
{
    const int saved = errno;
    const ssize_t written = ::write(redraw_pipe[1], "", 1); // when full there is a notice already
    static_cast<void>(written);
    errno = saved;
}

// Restores the terminal, then lets the signal do what it does to a process without a handler.
void end(int signal)
{
    leave();
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// A signal that the starter has ignored stays so: nohup, or a shell that cannot wait for a stopped
// process.
void watch(int signal, void (*handler)(int), int flags)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(signal, &action, nullptr);
}

void stop(int signal)
{
    const int saved = errno;
    leave();
    std::signal(signal, SIG_DFL);
    sigset_t this_signal;
    sigset_t blocked;
    sigemptyset(&this_signal);
    sigaddset(&this_signal, signal);
    std::raise(signal);
    pthread_sigmask(SIG_UNBLOCK, &this_signal, &blocked); // stops here, and goes on here
    pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
    watch(signal, stop, 0);
    enter();
    askForRedraw(signal);
    errno = saved;
}

void watchSignals()
{
    for (const int signal : kEndingSignals)
        watch(signal, end, 0);
    watch(SIGTSTP, stop, 0);
    watch(SIGWINCH, askForRedraw, SA_RESTART);
}

} // namespace

TerminalMode::TerminalMode(int terminal)
{
    if (tcgetattr(terminal, &original_mode) != 0 ||
        ::pipe2(redraw_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "terminal");
    terminal_fd = terminal;
    watchSignals();
    std::atexit(leave);
    enter();
}

TerminalMode::~TerminalMode()
{
    leave();
}

int TerminalMode::redrawDescriptor() const
{
    return redraw_pipe[0];
}

bool TerminalMode::takeRedraw()
{
    char notices[64];
    bool any = false;
    while (::read(redraw_pipe[0], notices, sizeof notices) > 0)
        any = true;
    return any;
}

} // namespace host
