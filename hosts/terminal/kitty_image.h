#ifndef HOSTS_TERMINAL_KITTY_IMAGE_H
#define HOSTS_TERMINAL_KITTY_IMAGE_H

#include <string>

#include "picture.h"

#include "cells.h"

namespace host
{

// The kitty graphics protocol's command for a picture at the cursor, stretched over the cells and
// compressed. One with the same number takes the place of the one before; the cursor stays.
std::string kittyImage(int number, const Picture& picture, CellArea cells);

// The command that takes an image away.
std::string kittyRemoval(int number);

} // namespace host

#endif
