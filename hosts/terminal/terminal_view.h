#ifndef HOSTS_TERMINAL_TERMINAL_VIEW_H
#define HOSTS_TERMINAL_TERMINAL_VIEW_H

#include <map>
#include <string>
#include <vector>

#include "picture.h"
#include "text_line.h"

#include "key_parser.h"
#include "terminal_picture.h"

namespace host
{

struct Scene {
    const TextLine* line;
    std::string status;
    std::string hint;
    const Picture* keyboard; // null while it is hidden
    std::vector<Label> labels;
};

// Lays the text line, the keyboard's picture and two lines of words out in the terminal's window,
// whatever its size now is. Writes only what differs from what is shown.
class TerminalView
{
public:
    // terminal: a descriptor of the terminal, lent.
    TerminalView(int terminal, PictureMode mode);

    // Asks the terminal what it can show; the answers come with the keys, that to what it is as
    // the last one.
    void ask();

    // Takes an answer. Returns true when the keyboard is to be drawn anew because of it.
    bool learn(const Input& answer);

    // Whether the terminal shows UTF-8 as such; true until it is known better.
    bool showsUtf8() const { return m_shows_utf8; }

    // Forgets what is on the screen, so that the next draw writes all of it.
    void forget() { m_clear = true; }
    void draw(const Scene& scene);

private:
    std::string clear();
    std::string picture(const Scene& scene, CellArea window, CellSize cell, int& nextRow);
    std::string words(const std::map<int, std::string>& lines);
    void write(const std::string& text) const;

    int m_terminal;
    TerminalPicture m_picture;
    bool m_asked = false;
    bool m_shows_utf8 = true;
    bool m_clear = true;
    CellArea m_area = {0, 0};           // of the picture that is shown; no rows: none
    std::map<int, std::string> m_lines; // of words that are shown, by their row
};

// The end of the text that fits into so many columns of a terminal.
std::string lastColumns(const std::string& utf8, int room);

} // namespace host

#endif
