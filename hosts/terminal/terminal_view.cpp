// What the terminal shows: text line, status, picture, hint.
#include "terminal_view.h"

#include <algorithm>
#include <cerrno>

#include <sys/ioctl.h>
#include <unistd.h>

#include <unistr.h>

namespace host
{

namespace
{

const char kPrompt[] = "Text: ";
const char kClear[] = "\033[2J";
const char kClearBelow[] = "\033[J";
const char kClearLine[] = "\033[K";
const char kHideCursor[] = "\033[?25l";
const char kShowCursor[] = "\033[?25h";

// A letter of two bytes, which no set of characters shows as one narrow character but UTF-8, then
// where the cursor is; the largest sixel picture; what the terminal is.
const char kQuestions[] = "\033[1;1H\u00EB\033[6n\033[?2;1;0S\033[c";
const int kColumnInUtf8 = 2;

const int kTextRow = 1;
const int kStatusRow = 2;
const int kPictureRow = 4;
const int kRowsOfWords = 4; // above the picture, and the hint below it

struct Window {
    CellArea cells;
    CellSize cell;
};

Window windowOf(int terminal)
{
    const Window fallback = {{80, 24}, {8, 16}};
    winsize size = {};
    if (::ioctl(terminal, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
        return fallback;
    Window window = {{size.ws_col, size.ws_row}, fallback.cell};
    if (size.ws_xpixel != 0 && size.ws_ypixel != 0)
        window.cell = {size.ws_xpixel / size.ws_col, size.ws_ypixel / size.ws_row};
    return window;
}

size_t characterBytes(const std::string& utf8, size_t from)
{
    const uint8_t* start = reinterpret_cast<const uint8_t*>(utf8.data()) + from;
    return static_cast<size_t>(std::max(1, u8_mblen(start, utf8.size() - from)));
}

std::string firstColumns(const std::string& utf8, int room)
{
    size_t to = 0;
    while (to < utf8.size()) {
        const size_t next = to + characterBytes(utf8, to);
        if (columns(utf8.substr(0, next)) > room)
            break;
        to = next;
    }
    return utf8.substr(0, to);
}

} // namespace

std::string lastColumns(const std::string& utf8, int room)
{
    size_t from = 0;
    while (from < utf8.size() && columns(utf8.substr(from)) > room)
        from += characterBytes(utf8, from);
    return utf8.substr(from);
}

TerminalView::TerminalView(int terminal, PictureMode mode) : m_terminal(terminal), m_picture(mode)
{
}

void TerminalView::ask()
{
    m_asked = true;
    write(kQuestions);
}

bool TerminalView::learn(const Input& answer)
{
    const PictureMode mode = m_picture.mode();
    switch (answer.kind) {
    case Input::CursorAt: // once asked for; later it is a key, F3 with Shift
        if (m_asked)
            m_shows_utf8 = answer.second == kColumnInUtf8;
        m_asked = false;
        return false;
    case Input::SixelLimit:
        m_picture.limitSixel({answer.first, answer.second});
        return mode == PictureMode::Sixel;
    case Input::Attributes:
        if (answer.first != 0)
            m_picture.sixelIsPossible();
        return mode != m_picture.mode();
    default:
        return false;
    }
}

void TerminalView::draw(const Scene& scene)
{
    const Window window = windowOf(m_terminal);
    const int width = window.cells.columns;
    const int room = width - columns(kPrompt) - 1;
    const std::string before = lastColumns(scene.line->beforeCaret(), room);
    const std::string behind = scene.line->text().substr(scene.line->beforeCaret().size());

    std::string output = kHideCursor;
    if (m_clear)
        output += clear();
    int hintRow = kStatusRow + 1;
    output += picture(scene, window.cells, window.cell, hintRow);

    std::map<int, std::string> lines;
    lines[kTextRow] = kPrompt + before + behind;
    lines[kStatusRow] = scene.status;
    lines[hintRow] = scene.hint;
    lines.erase(lines.upper_bound(window.cells.rows), lines.end());
    for (auto& line : lines)
        line.second = firstColumns(line.second, width);
    output += words(lines);
    write(output + cursorTo(kTextRow, columns(kPrompt) + columns(before) + 1) + kShowCursor);
}

std::string TerminalView::clear()
{
    m_clear = false;
    m_area = {0, 0};
    m_lines.clear();
    m_picture.forget();
    return kClear;
}

// nextRow: the row below the picture; as it was without one.
std::string TerminalView::picture(const Scene& scene, CellArea window, CellSize cell, int& nextRow)
{
    const CellArea room = {window.columns, window.rows - kRowsOfWords};
    CellArea area = {0, 0};
    if (scene.keyboard != nullptr && m_picture.mode() != PictureMode::None && room.rows > 2)
        area = m_picture.fit(*scene.keyboard, room, cell);

    std::string output;
    if (m_area.rows > 0 && (area.rows != m_area.rows || area.columns != m_area.columns)) {
        output += m_picture.remove() + cursorTo(kStatusRow + 1, 1) + kClearBelow;
        m_lines.erase(m_lines.upper_bound(kStatusRow), m_lines.end());
    }
    m_area = area;
    if (area.rows == 0)
        return output;
    nextRow = kPictureRow + area.rows;
    return output + m_picture.update(*scene.keyboard, kPictureRow, area, cell, scene.labels);
}

// Words without the rows that the picture has.
std::string TerminalView::words(const std::map<int, std::string>& lines)
{
    std::string output;
    for (const auto& line : m_lines)
        if (lines.count(line.first) == 0 &&
            (line.first < kPictureRow || line.first >= kPictureRow + m_area.rows))
            output += cursorTo(line.first, 1) + kClearLine;
    for (const auto& line : lines) {
        const auto shown = m_lines.find(line.first);
        if (shown == m_lines.end() || shown->second != line.second)
            output += cursorTo(line.first, 1) + line.second + kClearLine;
    }
    m_lines = lines;
    return output;
}

void TerminalView::write(const std::string& text) const
{
    const char* rest = text.data();
    size_t bytes = text.size();
    while (bytes > 0) {
        const ssize_t written = ::write(m_terminal, rest, bytes);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return;
        rest += written;
        bytes -= static_cast<size_t>(written);
    }
}

} // namespace host
