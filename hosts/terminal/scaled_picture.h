#ifndef HOSTS_TERMINAL_SCALED_PICTURE_H
#define HOSTS_TERMINAL_SCALED_PICTURE_H

#include "picture.h"

namespace host
{

struct PixelSize {
    int width;
    int height;
};

struct PixelArea {
    int x, y, width, height;
};

// This part of what the whole picture is in another size, pixel by pixel as if all were scaled.
Picture scaledPart(const Picture& picture, PixelSize size, const PixelArea& part);

// The pixels of the picture that the part is made from.
PixelArea sourceOf(const Picture& picture, PixelSize size, const PixelArea& part);

} // namespace host

#endif
