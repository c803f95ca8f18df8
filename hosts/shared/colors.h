// Colours of the pages and of the remote control that hosts draw.
#ifndef HOSTS_SHARED_COLORS_H
#define HOSTS_SHARED_COLORS_H

#include <directfb.h>

namespace host
{

struct Color {
    u8 red, green, blue;
};

const Color kWhite = {0xFF, 0xFF, 0xFF};
const Color kPale = {0xB0, 0xB8, 0xC8};
const Color kLight = {0xFF, 0xC8, 0x3C}; // a pressed key
const Color kDark = {0x10, 0x10, 0x10};

inline void setColor(IDirectFBSurface* surface, const Color& color)
{
    surface->SetColor(surface, color.red, color.green, color.blue, 0xFF);
}

} // namespace host

#endif
