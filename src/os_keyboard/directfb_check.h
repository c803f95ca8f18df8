// The one rule for DirectFB calls whose failure is fatal.
#ifndef DIRECTFB_CHECK_H
#define DIRECTFB_CHECK_H

#include <cstdio>

#include <directfb.h>

namespace velmora
{
namespace browser
{
namespace vkb
{

// For calls without which the keyboard cannot go on: reports a failed call and ends the
// process. text is part of the message and keeps its blanks, so it is a string of its own however
// the call beside it is formatted.
inline void checkDirectFB(DFBResult result, const char* text)
{
    if (result == DFB_OK)
        return;

    std::fprintf(stderr, "directfb do: '%s' failed!\n", text);
    DirectFBErrorFatal(text, result);
}

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
