#ifndef HOSTS_TERMINAL_KEY_PARSER_H
#define HOSTS_TERMINAL_KEY_PARSER_H

#include <string>
#include <utility>
#include <vector>

namespace host
{

// A key, an answer of the terminal, or a notice.
struct Input {
    enum Kind {
        Ok,
        Left,
        Up,
        Right,
        Down,
        Escape,
        EraseBefore,
        Text,       // text: one character
        EndOfInput, // Ctrl-D, or the terminal is gone
        Attributes, // the terminal says what it is; first: whether it shows sixel pictures
        SixelLimit, // first, second: width and height of the largest one
        CursorAt,   // first, second: row and column
        Redraw,     // the window has another size, or the process goes on after a stop
    };

    Input(Kind what, int one = 0, int two = 0) : kind(what), first(one), second(two) {}
    explicit Input(std::string character) : kind(Text), text(std::move(character)) {}

    Kind kind;
    std::string text; // UTF-8
    int first = 0;
    int second = 0;
};

bool operator==(const Input& a, const Input& b);

// Turns what a terminal sends into keys and answers. A sequence may come in pieces.
class KeyParser
{
public:
    std::vector<Input> feed(const std::string& bytes);

    // Nothing more came for a while: an Escape that began no sequence was the key itself.
    std::vector<Input> idle();

    bool waiting() const { return m_state != State::Ground; }

private:
    enum class State { Ground, Escape, Csi, Ss3 };

    void ground(char byte, std::vector<Input>& inputs);
    void afterEscape(char byte, std::vector<Input>& inputs);
    void csi(char byte, std::vector<Input>& inputs);
    void text(char byte, std::vector<Input>& inputs);

    State m_state = State::Ground;
    std::string m_parameters;
    std::string m_character; // the bytes of an unfinished one
};

} // namespace host

#endif
