#ifndef TERMINAL_VIEW_H
#define TERMINAL_VIEW_H

#include <string>
#include <vector>

#include "picture.h"
#include "text_line.h"

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
// whatever its size now is.
class TerminalView
{
public:
    // terminal: a descriptor of the terminal, lent.
    TerminalView(int terminal, PictureMode mode);

    // Asks the terminal whether it shows sixel pictures; the answer comes with the keys.
    void askForSixel() const;
    void sixelIsPossible() { m_picture.sixelIsPossible(); }

    // Forgets what is on the screen, so that the next draw writes all of it.
    void forget() { m_clear = true; }
    void draw(const Scene& scene);

private:
    void write(const std::string& text) const;
    std::string pictureAt(int row, const Scene& scene, CellArea room, CellSize cell);

    int m_terminal;
    TerminalPicture m_picture;
    bool m_clear = true;
};

// The end of the text that fits into so many columns of a terminal.
std::string lastColumns(const std::string& utf8, int room);

} // namespace host

#endif
