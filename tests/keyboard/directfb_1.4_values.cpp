// Compiling is the test: the constants that the keyboard hands to DirectFB have the values of
// DirectFB 1.4, so that a build against another version asks the television for the same.
#include <directfb.h>

static_assert(DFB_OK == 0, "result");
static_assert(DLID_PRIMARY == 0, "layer");
static_assert(DLSCL_ADMINISTRATIVE == 2, "cooperative level");
static_assert(DSPF_ARGB == 0x00418C04, "pixel format");
static_assert((DSCAPS_PRIMARY | DSCAPS_VIDEOONLY | DSCAPS_DOUBLE) == 0x15, "surface");
static_assert((DWCAPS_ALPHACHANNEL | DWCAPS_DOUBLEBUFFER) == 3, "window");
static_assert((DWDESC_CAPS | DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY |
               DWDESC_STACKING) == 0x237,
              "window description");
static_assert(DWSC_UPPER == 1, "stacking");
static_assert(DFDESC_HEIGHT == 2, "font description");
static_assert(DSFLIP_NONE == 0, "flip");
static_assert(DSFLIP_WAITFORSYNC == 5, "flip and wait");
static_assert(DSTF_TOPCENTER == 5, "text anchor");
