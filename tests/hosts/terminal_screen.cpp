#include "terminal_screen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>

#include <glib.h>
#include <unistr.h>
#include <uniwidth.h>
#include <zlib.h>

namespace
{

std::vector<int> numbersOf(const std::string& parameters)
{
    std::vector<int> numbers;
    std::istringstream stream(parameters);
    for (std::string number; std::getline(stream, number, ';');)
        numbers.push_back(std::atoi(number.c_str()));
    return numbers;
}

int numberAt(const std::vector<int>& numbers, size_t at, int otherwise)
{
    return at < numbers.size() && numbers[at] > 0 ? numbers[at] : otherwise;
}

std::vector<uint8_t> uncompressed(const std::string& base64, size_t size)
{
    gsize length = 0;
    const std::unique_ptr<guchar, decltype(&g_free)> packed(
        g_base64_decode(base64.c_str(), &length), &g_free);
    std::vector<uint8_t> bytes(size);
    uLongf unpacked = size;
    if (uncompress(bytes.data(), &unpacked, packed.get(), length) != Z_OK || unpacked != size)
        bytes.clear();
    return bytes;
}

} // namespace

void TerminalScreen::resize(int columns, int rows)
{
    m_columns = columns;
    m_rows = rows;
}

void TerminalScreen::feed(const std::string& bytes)
{
    for (const char byte : bytes) {
        switch (m_state) {
        case State::Ground:
            if (static_cast<unsigned char>(byte) < ' ')
                control(byte);
            else
                put(std::string(1, byte));
            break;
        case State::Escape:
            m_collected.clear();
            m_state = byte == '[' ? State::Csi : State::Ground;
            if (byte == 'P' || byte == '_') {
                m_state = State::String;
                m_collected = byte;
            }
            break;
        case State::Csi:
            if (byte >= '@' && byte <= '~') {
                m_state = State::Ground;
                sequence(m_collected, byte);
            } else {
                m_collected += byte;
            }
            break;
        case State::String:
            if (byte == '\x1b')
                m_state = State::StringEscape;
            else
                m_collected += byte;
            break;
        case State::StringEscape:
            m_state = State::Ground;
            string(m_collected);
            break;
        }
    }
}

std::string TerminalScreen::takeAnswers()
{
    std::string answers;
    std::swap(answers, m_answers);
    return m_kind.answers ? answers : "";
}

std::string TerminalScreen::row(int number) const
{
    const auto cells = m_cells.find(number);
    std::string text;
    if (cells == m_cells.end())
        return text;
    int column = 1;
    for (const auto& cell : cells->second) {
        text.append(static_cast<size_t>(std::max(0, cell.first - column)), ' ');
        text += cell.second;
        column = cell.first + 1;
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

void TerminalScreen::put(const std::string& byte)
{
    m_character += byte;
    int width = 1;
    if (m_kind.isUtf8) {
        ucs4_t character = 0;
        const int length = u8_mbtoucr(
            &character, reinterpret_cast<const uint8_t*>(m_character.data()), m_character.size());
        if (length == -2)
            return;
        width = length > 0 ? uc_width(character, "UTF-8") : 1;
    }
    if (m_column <= m_columns)
        m_cells[m_row][m_column] = m_character;
    m_column = std::min(m_columns + 1, m_column + width);
    m_character.clear();
}

void TerminalScreen::control(char byte)
{
    if (byte == '\x1b')
        m_state = State::Escape;
    if (byte == '\r')
        m_column = 1;
    if (byte == '\n')
        m_row = std::min(m_rows, m_row + 1);
}

void TerminalScreen::sequence(const std::string& parameters, char final)
{
    const std::vector<int> numbers = numbersOf(parameters);
    switch (final) {
    case 'H':
        m_row = std::min(m_rows, numberAt(numbers, 0, 1));
        m_column = std::min(m_columns, numberAt(numbers, 1, 1));
        break;
    case 'J':
        if (parameters == "2") {
            clear(1, 1);
            m_images.clear();
        } else {
            clear(m_row, m_column);
        }
        break;
    case 'K': {
        auto& cells = m_cells[m_row];
        cells.erase(cells.lower_bound(m_column), cells.end());
        break;
    }
    case 'h':
    case 'l':
        setMode(parameters, final == 'h');
        break;
    case 'n':
        m_answers += "\x1b[" + std::to_string(m_row) + ";" + std::to_string(m_column) + "R";
        break;
    case 'c':
        m_answers += m_kind.showsSixel ? "\x1b[?62;4;22c" : "\x1b[?62;22c";
        break;
    case 'S':
        m_answers += m_kind.showsSixel ? "\x1b[?2;0;" + std::to_string(m_kind.sixelLimit) + ";" +
                                             std::to_string(m_kind.sixelLimit) + "S"
                                       : "\x1b[?2;3;0S";
        break;
    case 'm':
        m_looks.insert(parameters);
        break;
    default:
        m_faults.push_back("CSI " + parameters + final);
    }
}

void TerminalScreen::setMode(const std::string& mode, bool on)
{
    if (mode == "?1049") {
        m_own_screen = on;
        m_images.clear();
    } else if (mode == "?25") {
        m_cursor_shown = on;
    } else if (mode != "?2026" && mode != "?2004") {
        m_faults.push_back("mode " + mode);
    }
}

void TerminalScreen::string(const std::string& text)
{
    if (text[0] == '_' && text.rfind("_G", 0) == 0)
        kitty(text.substr(2));
    else if (text[0] == 'P')
        sixel(text.substr(1));
    else
        m_faults.push_back("string " + text.substr(0, 20));
}

void TerminalScreen::sixel(const std::string& data)
{
    const size_t raster = data.find('"');
    int width = 0, height = 0;
    if (raster == std::string::npos ||
        std::sscanf(data.c_str() + raster, "\"%*d;%*d;%d;%d", &width, &height) != 2)
        m_faults.push_back("sixel without a size");
    if (width > m_kind.sixelLimit || height > m_kind.sixelLimit)
        m_faults.push_back("sixel of " + std::to_string(width) + " by " + std::to_string(height));
    int number = 1;
    for (const auto& image : m_images) {
        if (image.second.row == m_row && image.second.column == m_column)
            break;
        ++number;
    }
    show(number, {m_row, m_column, width, height, {}});
}

void TerminalScreen::kitty(const std::string& command)
{
    const size_t end = std::min(command.find(';'), command.size());
    std::istringstream keys(command.substr(0, end));
    if (m_payload.empty())
        m_command.clear();
    for (std::string key; std::getline(keys, key, ',');)
        m_command[key.substr(0, key.find('='))] = key.substr(key.find('=') + 1);
    const int number = std::atoi(m_command["i"].c_str());
    if (m_command["a"] == "d") {
        if (m_images.erase(number) != 0)
            ++m_removals;
        return;
    }
    if (command.size() > end + 1 + 4096)
        m_faults.push_back("kitty data of more than 4096 bytes at once");
    m_payload += command.substr(std::min(end + 1, command.size()));
    if (m_command["m"] == "1")
        return;

    Image image = {
        m_row, m_column, std::atoi(m_command["s"].c_str()), std::atoi(m_command["v"].c_str()), {}};
    image.rgb = uncompressed(m_payload, 3 * size_t(image.width) * size_t(image.height));
    if (m_command["a"] != "T" || m_command["f"] != "24" || m_command["o"] != "z" ||
        image.rgb.empty())
        m_faults.push_back("kitty " + command.substr(0, end));
    m_payload.clear();
    show(number, image);
}

void TerminalScreen::show(int number, const Image& image)
{
    m_images.erase(number);
    m_images.emplace(number, image);
}

void TerminalScreen::clear(int fromRow, int fromColumn)
{
    auto& first = m_cells[fromRow];
    first.erase(first.lower_bound(fromColumn), first.end());
    m_cells.erase(m_cells.upper_bound(fromRow), m_cells.end());
    if (!m_kind.showsSixel) // kitty's images stay when a part of the screen is cleared
        return;
    for (auto image = m_images.begin(); image != m_images.end();)
        image = image->second.row >= fromRow ? m_images.erase(image) : std::next(image);
}
