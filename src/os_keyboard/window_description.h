// The one description of the keyboard's window and of the test driver's.
#ifndef WINDOW_DESCRIPTION_H
#define WINDOW_DESCRIPTION_H

#include <directfb.h>

namespace velmora
{
namespace browser
{
namespace vkb
{

// A window in the upper stacking class, at x, y on the screen, in pixels. The pixel format and
// the surface capabilities are filled in but not among the flags, so DirectFB chooses its own:
// kept.
inline DFBWindowDescription windowDescription(int x, int y, int width, int height)
{
    DFBWindowDescription description = {};
    description.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_CAPS | DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_STACKING);
    description.caps =
        static_cast<DFBWindowCapabilities>(DWCAPS_ALPHACHANNEL | DWCAPS_DOUBLEBUFFER);
    description.width = width;
    description.height = height;
    description.posx = x;
    description.posy = y;
    description.pixelformat = DSPF_ARGB;
    description.surface_caps =
        static_cast<DFBSurfaceCapabilities>(DSCAPS_PRIMARY | DSCAPS_VIDEOONLY | DSCAPS_DOUBLE);
    description.stacking = DWSC_UPPER;
    return description;
}

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
