// A picture in memory, as recorders and tests take it.
#ifndef HOSTS_SHARED_PICTURE_H
#define HOSTS_SHARED_PICTURE_H

#include <cstdint>
#include <vector>

namespace host
{

struct Picture {
    int width = 0; // pixels
    int height = 0;
    std::vector<uint8_t> rgba; // row by row, four bytes for each pixel, no padding; opaque
};

// Half as wide and high; an odd last row or column is left out. The light of each four pixels is
// averaged, not their numbers, so that a white line of one pixel stays bright.
Picture halved(const Picture& picture);

} // namespace host

#endif
