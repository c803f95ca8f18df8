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
const char kAskForSixel[] = "\033[c";
const char kForgetKittyPictures[] = "\033_Ga=d\033\\";

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
    const Window usual = {{80, 24}, {8, 16}};
    winsize size = {};
    if (::ioctl(terminal, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
        return usual;
    Window window = {{size.ws_col, size.ws_row}, usual.cell};
    if (size.ws_xpixel != 0 && size.ws_ypixel != 0)
        window.cell = {size.ws_xpixel / size.ws_col, size.ws_ypixel / size.ws_row};
    return window;
}

std::string at(int row, int column)
{
    return "\033[" + std::to_string(row) + ";" + std::to_string(column) + "H";
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

// Words that are longer than the window is wide lose their end.
std::string lineAt(int row, const std::string& text, int room)
{
    return at(row, 1) + firstColumns(text, room) + kClearLine;
}

} // namespace

std::string lastColumns(const std::string& utf8, int room)
{
    size_t from = 0;
    while (columns(utf8.substr(from)) > room)
        from += characterBytes(utf8, from);
    return utf8.substr(from);
}

TerminalView::TerminalView(int terminal, PictureMode mode) : m_terminal(terminal), m_picture(mode)
{
}

void TerminalView::askForSixel() const
{
    write(kAskForSixel);
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
        output += kClear;
    m_clear = false;
    output += lineAt(kTextRow, kPrompt + before + behind, width);
    output += lineAt(kStatusRow, scene.status, width);

    const CellArea picture = {width, window.cells.rows - kRowsOfWords};
    int hintRow = kStatusRow + 1;
    if (scene.keyboard != nullptr && m_picture.mode() != PictureMode::None && picture.rows > 2) {
        const CellArea area = m_picture.fit(*scene.keyboard, picture, window.cell);
        output += pictureAt(kPictureRow, scene, area, window.cell);
        hintRow = kPictureRow + area.rows;
    } else {
        output += at(hintRow, 1) + kClearBelow;
    }
    output += lineAt(hintRow, scene.hint, width);
    output += at(kTextRow, columns(kPrompt) + columns(before) + 1) + kShowCursor;
    write(output);
}

std::string TerminalView::pictureAt(int row, const Scene& scene, CellArea area, CellSize cell)
{
    const std::vector<std::string> lines =
        m_picture.print(*scene.keyboard, area, cell, scene.labels);
    std::string output;
    if (m_picture.mode() == PictureMode::Kitty)
        output += kForgetKittyPictures;
    for (const std::string& line : lines)
        output += at(row++, 1) + line;
    return output + "\033[0m";
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
