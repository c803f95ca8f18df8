#ifndef HOSTS_TERMINAL_SYMBOL_PICTURE_H
#define HOSTS_TERMINAL_SYMBOL_PICTURE_H

#include <string>
#include <vector>

#include <chafa.h>

#include "picture.h"

#include "cells.h"

namespace host
{

// A key's label where the picture is made of symbols, which are too coarse for its letters.
struct Label {
    int x, y, width, height; // pixels of the picture
    std::string text;        // UTF-8
    bool focused;
};

// The picture as half blocks in the terminal's colours: one line for each row of cells. Sequences
// come from terminal, which is lent.
std::vector<std::string> symbolLines(ChafaTermInfo* terminal, ChafaCanvasMode colours,
                                     const Picture& picture, CellArea area, CellSize cell,
                                     const std::vector<Label>& labels);

} // namespace host

#endif
