#ifndef PICTURE_H
#define PICTURE_H

#include <cstdint>
#include <vector>

namespace host
{

struct Picture {
    int width = 0; // pixels
    int height = 0;
    std::vector<uint8_t> rgba; // row by row, four bytes for each pixel, no padding; opaque
};

} // namespace host

#endif
