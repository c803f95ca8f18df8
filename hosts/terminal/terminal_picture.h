#ifndef TERMINAL_PICTURE_H
#define TERMINAL_PICTURE_H

#include <memory>
#include <string>
#include <vector>

#include <chafa.h>

#include "picture.h"

namespace host
{

enum class PictureMode { Auto, Sixel, Kitty, Symbols, None };

struct CellSize {
    int width; // pixels
    int height;
};

struct CellArea {
    int columns;
    int rows;
};

// A key's label where the picture is made of symbols, which are too coarse for its letters.
struct Label {
    int x, y, width, height; // pixels of the picture
    std::string text;        // UTF-8
    bool focused;
};

// Turns a picture into what the terminal can show: its own pixels, or symbols.
class TerminalPicture
{
public:
    // Auto takes what the environment tells about the terminal.
    explicit TerminalPicture(PictureMode mode);

    // The terminal itself said that it shows sixel pictures.
    void sixelIsPossible();

    PictureMode mode() const { return m_mode; }

    // The largest area of whole cells within room that keeps the picture's proportions.
    CellArea fit(const Picture& picture, CellArea room, CellSize cell) const;

    // The terminal's sequence for the picture. Symbols: one line for each row of cells; pixels:
    // one string, to be written where the picture's top left corner shall be.
    std::vector<std::string> print(const Picture& picture, CellArea area, CellSize cell,
                                   const std::vector<Label>& labels) const;

private:
    std::shared_ptr<ChafaTermInfo> m_terminal;
    PictureMode m_mode;
    bool m_chosen; // by the user: the terminal's answer does not change it
};

} // namespace host

#endif
