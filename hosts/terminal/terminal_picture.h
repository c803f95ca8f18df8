#ifndef HOSTS_TERMINAL_TERMINAL_PICTURE_H
#define HOSTS_TERMINAL_TERMINAL_PICTURE_H

#include <memory>
#include <string>
#include <vector>

#include <chafa.h>

#include "picture.h"

#include "cells.h"
#include "scaled_picture.h"
#include "symbol_picture.h"

namespace host
{

enum class PictureMode { Auto, Sixel, Kitty, Symbols, None };

// Shows a picture in the terminal as well as the terminal can: its own pixels, or symbols. Keeps
// what is shown and writes only what differs. Pixels come in tiles, each an image of its own.
class TerminalPicture
{
public:
    // Auto takes what the environment tells about the terminal.
    explicit TerminalPicture(PictureMode mode);

    // The terminal itself said that it shows sixel pictures, and of which size at most.
    void sixelIsPossible();
    void limitSixel(PixelSize size) { m_limit = size; }

    PictureMode mode() const { return m_mode; }

    // The largest area of whole cells within room that keeps the picture's proportions.
    CellArea fit(const Picture& picture, CellArea room, CellSize cell) const;

    // What to write so that the picture fills the area from this row's first column on. The
    // labels are for symbols.
    std::string update(const Picture& picture, int row, CellArea area, CellSize cell,
                       const std::vector<Label>& labels);

    // What to write so that no picture is there any more.
    std::string remove();

    // The screen was cleared, pictures included.
    void forget();

private:
    struct Tile {
        int column, row;
        CellArea cells;
    };

    std::vector<Tile> tilesOf(CellArea area) const;
    bool differs(const Picture& picture, const PixelArea& source) const;
    PixelArea imageArea(const PixelArea& tile, PixelSize size) const;
    std::string updateTiles(const Picture& picture, int row, CellArea area, CellSize cell);
    std::string updateLines(std::vector<std::string> lines, int row);

    std::shared_ptr<ChafaTermInfo> m_terminal;
    ChafaCanvasMode m_colours;
    PictureMode m_mode;
    bool m_chosen; // by the user: the terminal's answer does not change it
    PixelSize m_limit;
    Picture m_shown;                  // with pixels
    std::vector<std::string> m_lines; // with symbols
};

} // namespace host

#endif
