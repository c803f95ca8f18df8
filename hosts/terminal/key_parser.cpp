#include "key_parser.h"

namespace host
{

namespace
{

const char kEscape = '\x1b';
const char kEndOfTransmission = '\x04';

void addArrow(char final, std::vector<Input>& inputs)
{
    switch (final) {
    case 'A':
        inputs.push_back(Input::Up);
        break;
    case 'B':
        inputs.push_back(Input::Down);
        break;
    case 'C':
        inputs.push_back(Input::Right);
        break;
    case 'D':
        inputs.push_back(Input::Left);
        break;
    case 'M': // Enter on the number pad
        inputs.push_back(Input::Ok);
        break;
    default:
        break;
    }
}

// The answer to "what are you?" lists numbers; a 4 behind the first one means sixel.
bool tellsSixel(const std::string& parameters)
{
    return parameters.rfind('?', 0) == 0 && (parameters + ";").find(";4;") != std::string::npos;
}

} // namespace

std::vector<Input> KeyParser::feed(const std::string& bytes)
{
    std::vector<Input> inputs;
    for (const char byte : bytes) {
        switch (m_state) {
        case State::Ground:
            ground(byte, inputs);
            break;
        case State::Escape:
            afterEscape(byte, inputs);
            break;
        case State::Csi:
            csi(byte, inputs);
            break;
        case State::Ss3:
            addArrow(byte, inputs);
            m_state = State::Ground;
            break;
        }
    }
    return inputs;
}

std::vector<Input> KeyParser::idle()
{
    const bool escape = m_state == State::Escape;
    m_state = State::Ground;
    return escape ? std::vector<Input>{Input::Escape} : std::vector<Input>{};
}

void KeyParser::ground(char byte, std::vector<Input>& inputs)
{
    if (byte == kEscape)
        m_state = State::Escape;
    else if (byte == '\r' || byte == '\n')
        inputs.push_back(Input::Ok);
    else if (byte == kEndOfTransmission)
        inputs.push_back(Input::EndOfInput);
}

void KeyParser::afterEscape(char byte, std::vector<Input>& inputs)
{
    m_parameters.clear();
    if (byte == '[') {
        m_state = State::Csi;
    } else if (byte == 'O') {
        m_state = State::Ss3;
    } else {
        inputs.push_back(Input::Escape);
        m_state = State::Ground;
        ground(byte, inputs);
    }
}

void KeyParser::csi(char byte, std::vector<Input>& inputs)
{
    if (byte < '@' || byte > '~') {
        m_parameters += byte;
        return;
    }
    m_state = State::Ground;
    if (byte == 'c' && tellsSixel(m_parameters))
        inputs.push_back(Input::SixelAnswer);
    else if (byte >= 'A' && byte <= 'D')
        addArrow(byte, inputs);
}

} // namespace host
