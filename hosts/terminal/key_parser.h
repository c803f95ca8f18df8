#ifndef KEY_PARSER_H
#define KEY_PARSER_H

#include <string>
#include <vector>

namespace host
{

enum class Input {
    Ok,
    Left,
    Up,
    Right,
    Down,
    Escape,
    EndOfInput,  // Ctrl-D
    SixelAnswer, // the terminal says that it shows sixel pictures
};

// Turns what a terminal sends into keys. A sequence may come in pieces.
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

    State m_state = State::Ground;
    std::string m_parameters;
};

} // namespace host

#endif
