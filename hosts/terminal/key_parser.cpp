// Reads a terminal's bytes: keys, typed characters, answers to questions.
#include "key_parser.h"

#include <charconv>
#include <string_view>

#include <unistr.h>

namespace host
{

namespace
{

const char kEscape = '\x1b';
const char kEndOfTransmission = '\x04';
const char kBackspace = '\x08';
const char kDelete = '\x7f'; // most terminals send it for the backspace key

void addArrow(char final, std::vector<Input>& inputs)
{
    switch (final) {
    case 'A':
        inputs.emplace_back(Input::Up);
        break;
    case 'B':
        inputs.emplace_back(Input::Down);
        break;
    case 'C':
        inputs.emplace_back(Input::Right);
        break;
    case 'D':
        inputs.emplace_back(Input::Left);
        break;
    case 'M': // Enter on the number pad
        inputs.emplace_back(Input::Ok);
        break;
    default:
        break;
    }
}

// The answer to "what are you?" lists numbers; a 4 behind the first one means sixel.
void addAttributes(const std::string& parameters, std::vector<Input>& inputs)
{
    if (parameters.rfind('?', 0) == 0)
        inputs.emplace_back(Input::Attributes,
                            (parameters + ";").find(";4;") != std::string::npos ? 1 : 0);
}

// The numbers of an answer, parted by semicolons; none when a part is no number.
std::vector<int> numbersOf(std::string_view parameters)
{
    std::vector<int> numbers;
    const char* at = parameters.data();
    const char* const end = at + parameters.size();
    while (true) {
        int number = 0;
        const auto [behind, error] = std::from_chars(at, end, number);
        if (error != std::errc() || (behind != end && *behind != ';'))
            return {};
        numbers.push_back(number);
        if (behind == end)
            return numbers;
        at = behind + 1;
    }
}

// The answer to "how large may a sixel picture be?": 2, 0 for success, width, height.
void addSixelLimit(const std::string& parameters, std::vector<Input>& inputs)
{
    if (parameters.rfind("?2;0;", 0) != 0)
        return;
    const std::vector<int> size = numbersOf(std::string_view(parameters).substr(5));
    if (size.size() == 2 && size[0] > 0 && size[1] > 0)
        inputs.emplace_back(Input::SixelLimit, size[0], size[1]);
}

void addCursor(const std::string& parameters, std::vector<Input>& inputs)
{
    const std::vector<int> place = numbersOf(parameters);
    if (place.size() == 2)
        inputs.emplace_back(Input::CursorAt, place[0], place[1]);
}

} // namespace

bool operator==(const Input& a, const Input& b)
{
    return a.kind == b.kind && a.text == b.text && a.first == b.first && a.second == b.second;
}

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
        inputs.emplace_back(Input::Ok);
    else if (byte == kEndOfTransmission)
        inputs.emplace_back(Input::EndOfInput);
    else if (byte == kBackspace || byte == kDelete)
        inputs.emplace_back(Input::EraseBefore);
    else if (static_cast<unsigned char>(byte) >= ' ')
        text(byte, inputs);
}

void KeyParser::text(char byte, std::vector<Input>& inputs)
{
    const int kIncomplete = -2;
    m_character += byte;
    ucs4_t character = 0;
    const int length = u8_mbtoucr(&character, reinterpret_cast<const uint8_t*>(m_character.data()),
                                  m_character.size());
    if (length == kIncomplete)
        return;
    if (length > 0)
        inputs.emplace_back(m_character);
    m_character.clear();
}

void KeyParser::afterEscape(char byte, std::vector<Input>& inputs)
{
    m_parameters.clear();
    m_character.clear();
    if (byte == '[') {
        m_state = State::Csi;
    } else if (byte == 'O') {
        m_state = State::Ss3;
    } else {
        inputs.emplace_back(Input::Escape);
        m_state = State::Ground;
        if (static_cast<unsigned char>(byte) < ' ') // with a letter it is a shortcut, no text
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
    switch (byte) {
    case 'c':
        addAttributes(m_parameters, inputs);
        break;
    case 'S':
        addSixelLimit(m_parameters, inputs);
        break;
    case 'R':
        addCursor(m_parameters, inputs);
        break;
    case 'M':
        break; // a mouse's, not the number pad's
    default:
        addArrow(byte, inputs);
    }
}

} // namespace host
