#ifndef HOSTS_TERMINAL_TERMINAL_MODE_H
#define HOSTS_TERMINAL_TERMINAL_MODE_H

namespace host
{

// The terminal as the host needs it: keys at once and without echo, on a screen of its own. It
// gets back what it had when this object goes, when the process exits or is ended by a signal,
// and while it is stopped (Ctrl-Z). One at a time.
class TerminalMode
{
public:
    // terminal: the file descriptor of a terminal open for reading and writing; lent. Throws
    // std::system_error for a descriptor that is none.
    explicit TerminalMode(int terminal);
    ~TerminalMode();
    TerminalMode(const TerminalMode&) = delete;
    TerminalMode& operator=(const TerminalMode&) = delete;

    // Becomes readable when the window has another size or the process goes on after a stop.
    int redrawDescriptor() const;

    // Whether there was such a notice since the last call.
    bool takeRedraw();
};

} // namespace host

#endif
