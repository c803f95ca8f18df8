#ifndef TESTS_HOSTS_PSEUDO_TERMINAL_H
#define TESTS_HOSTS_PSEUDO_TERMINAL_H

#include <functional>
#include <map>
#include <string>

#include <sys/types.h>
#include <termios.h>

#include "terminal_screen.h"

// A program on a terminal of its own, its standard output caught apart: what is drawn and said
// arrives at the screen, what the program delivers at out().
class PseudoTerminal
{
public:
    // A line for the shell. The environment gets these variables; an empty value removes one.
    PseudoTerminal(const std::string& line, const std::map<std::string, std::string>& environment,
                   const TerminalScreen& screen = TerminalScreen());
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    void send(const std::string& bytes);
    void resize(unsigned short columns, unsigned short rows, unsigned short cellWidth = 0,
                unsigned short cellHeight = 0);
    void signal(int number);
    void hangUp();

    // The process that leads the job in the foreground; -1 when there is none any more.
    pid_t foreground() const;

    // Waits until the text is written to the screen, behind what was found by the last such call.
    // Returns false when the deadline passed or the program ended without it.
    bool waitFor(const std::string& text);
    bool waitForEnd();

    // Waits for something that the terminal shows.
    bool waitUntil(const std::function<bool(const TerminalScreen&)>& condition);

    // After the end: the exit status, and the signal that ended the program or 0.
    int exitStatus() const;
    int endingSignal() const;

    // All that was written to the terminal, and what it shows of it.
    const std::string& screen() const { return m_screen; }
    const TerminalScreen& shown() const { return m_shown; }
    const std::string& out() const { return m_out; }

    // The terminal's modes now, and as they were before the program.
    std::string modes() const;
    const std::string& modesBefore() const { return m_modes_before; }

private:
    bool collectUntil(const std::function<bool()>& done);
    bool readScreen();
    bool reap();

    pid_t m_pid = -1;
    int m_master = -1;
    int m_slave = -1;
    int m_pipe = -1;
    bool m_ended = false;
    int m_wait_status = 0;
    std::string m_screen;
    TerminalScreen m_shown;
    std::string m_out;
    std::string m_modes_before;
    size_t m_found = 0;
};

#endif
