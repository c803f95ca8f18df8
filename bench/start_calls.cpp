// The DirectFB calls of a keyboard's start, in its order and with nothing around them: the window,
// the font and the whole keyboard painted three times. Any program that shows the same makes them.
//
// Usage: start_calls [calls]    (reports on file descriptor 3)
//
// The font comes from VIRTUAL_KEYBOARD_FONT_PATH. With "calls" the drawing calls are reported too.
#include <cstdlib>
#include <cstring>

#include <directfb.h>

#include "process_memory.h"
#include "replay.h"
#include "report_fd.h"

namespace
{

// Pixels; the keyboard of 70 keys as bench_layout.cpp describes it.
const int kKeys = 70;
const int kColumns = 14;
const int kGap = 5;
const int kWidth = 52;
const int kHeight = 45;
const int kWindowWidth = 803;
const int kWindowHeight = 255;

void check(DFBResult result, const char* call)
{
    if (result != DFB_OK)
        DirectFBErrorFatal(call, result);
}

IDirectFBSurface* openWindow(IDirectFB* dfb)
{
    DFBWindowDescription wanted = {};
    wanted.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_CAPS | DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_STACKING);
    wanted.caps = static_cast<DFBWindowCapabilities>(DWCAPS_ALPHACHANNEL | DWCAPS_DOUBLEBUFFER);
    wanted.width = kWindowWidth;
    wanted.height = kWindowHeight;
    wanted.posx = 600;
    wanted.posy = 600;
    wanted.stacking = DWSC_UPPER;

    IDirectFBDisplayLayer* layer = nullptr;
    IDirectFBWindow* window = nullptr;
    IDirectFBSurface* surface = nullptr;
    check(dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer), "GetDisplayLayer");
    check(layer->CreateWindow(layer, &wanted, &window), "CreateWindow");
    check(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE), "SetCooperativeLevel");
    check(window->GetSurface(window, &surface), "GetSurface");
    check(window->SetOpacity(window, 0xFF), "SetOpacity");
    check(window->RaiseToTop(window), "RaiseToTop");
    return surface;
}

void clear(IDirectFBSurface* surface)
{
    check(surface->Clear(surface, 0x1E, 0x1E, 0x1E, 0xFF), "Clear");
}

// Returns the font's height.
int loadFont(IDirectFB* dfb, IDirectFBSurface* surface)
{
    DFBFontDescription wanted = {};
    wanted.flags = DFDESC_HEIGHT;
    wanted.height = 30;
    IDirectFBFont* font = nullptr;
    int height = 0;
    check(dfb->CreateFont(dfb, std::getenv("VIRTUAL_KEYBOARD_FONT_PATH"), &wanted, &font),
          "CreateFont");
    check(surface->SetFont(surface, font), "SetFont");
    check(font->GetHeight(font, &height), "GetHeight");
    return height;
}

void paint(IDirectFBSurface* surface, int fontHeight)
{
    clear(surface);
    for (int i = 0; i < kKeys; ++i) {
        const int left = kGap + i % kColumns * (kWidth + kGap);
        const int top = kGap + i / kColumns * (kHeight + kGap);
        const int right = left + kWidth;
        const int bottom = top + kHeight;
        const char letter[] = {static_cast<char>('a' + i % 26), '\0'};
        surface->SetColor(surface, 0x32, 0x32, 0x32, 0xFF);
        surface->FillRectangle(surface, left, top, kWidth + 1, kHeight + 1);
        surface->SetColor(surface, 0xFF, 0xFF, 0xFF, 0xFF);
        surface->DrawString(surface, i == 0 ? "Shift" : letter, -1, left + kWidth / 2,
                            top + (kHeight - fontHeight) / 2, DSTF_TOPCENTER);
        surface->SetColor(surface, 0x0A, 0x0A, 0x0A, 0xFF);
        surface->DrawLine(surface, right, top, right, bottom);
        surface->DrawLine(surface, left, bottom, right, bottom);
        surface->DrawLine(surface, right - 1, top, right - 1, bottom);
        surface->DrawLine(surface, left, bottom - 1, right, bottom - 1);
    }
}

// Around the first key.
void frame(IDirectFBSurface* surface)
{
    const int right = kGap + kWidth;
    const int bottom = kGap + kHeight;
    surface->SetColor(surface, 0xFF, 0xFF, 0xFF, 0xFF);
    surface->DrawLine(surface, right, kGap, right, bottom);
    surface->DrawLine(surface, kGap, bottom, right, bottom);
    surface->DrawLine(surface, kGap, kGap, right, kGap);
    surface->DrawLine(surface, kGap, kGap, kGap, bottom);
}

void flip(IDirectFBSurface* surface, DFBSurfaceFlipFlags flags)
{
    check(surface->Flip(surface, nullptr, flags), "Flip");
}

} // namespace

int main(int argc, char** argv)
{
    int no_arguments = 0;
    IDirectFB* dfb = nullptr;
    check(DirectFBInit(&no_arguments, nullptr), "DirectFBInit");
    check(DirectFBCreate(&dfb), "DirectFBCreate");
    const bool calls = argc > 1 && std::strcmp(argv[1], "calls") == 0;
    if (calls)
        bench::recordFirstSurface(dfb);

    IDirectFBSurface* surface = openWindow(dfb);
    int width = 0;
    int height = 0;
    check(surface->GetSize(surface, &width, &height), "GetSize");
    clear(surface);
    flip(surface, DSFLIP_NONE);
    clear(surface);
    const int fontHeight = loadFont(dfb, surface);
    paint(surface, fontHeight);
    flip(surface, DSFLIP_WAITFORSYNC);
    paint(surface, fontHeight);
    flip(surface, DSFLIP_WAITFORSYNC);
    paint(surface, fontHeight);
    frame(surface);
    flip(surface, DSFLIP_WAITFORSYNC);

    bench::report("shown", 1);
    bench::report("resident", bench::residentKiB());
    if (calls)
        bench::reportCalls();
    // Releasing is no part of the measurement.
    _exit(0);
}
