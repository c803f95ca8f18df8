// What a DirectFB program costs before it does anything: opens a window of the size given and
// flips it once.
//
// Usage: start_bare WIDTH HEIGHT [KEYS FONT]    (reports on file descriptor 3)
//
// With KEYS and FONT it makes, ahead of the report, the drawing calls of a keyboard's start with
// that many keys: a font, and the whole keyboard painted three times. They are no more than what
// any program must call that does the same on the screen.
#include <cstdlib>

#include <directfb.h>

#include "process_memory.h"
#include "report_fd.h"

namespace
{

// Pixels; as in bench_layout.cpp, so that the keys are the keyboard's.
const int kColumns = 14;
const int kWidth = 52;
const int kHeight = 45;

void check(DFBResult result, const char* call)
{
    if (result != DFB_OK)
        DirectFBErrorFatal(call, result);
}

void paint(IDirectFBSurface* surface, int keys, int fontHeight)
{
    surface->Clear(surface, 0x1E, 0x1E, 0x1E, 0xFF);
    for (int i = 0; i < keys; ++i) {
        const int x = 5 + i % kColumns * (kWidth + 5);
        const int y = 5 + i / kColumns * (kHeight + 5);
        const char text[] = {static_cast<char>('a' + i % 26), '\0'};
        surface->SetColor(surface, 0x32, 0x32, 0x32, 0xFF);
        surface->FillRectangle(surface, x, y, kWidth + 1, kHeight + 1);
        surface->SetColor(surface, 0xFF, 0xFF, 0xFF, 0xFF);
        surface->DrawString(surface, i == 0 ? "Shift" : text, -1, x + kWidth / 2,
                            y + (kHeight - fontHeight) / 2, DSTF_TOPCENTER);
        surface->SetColor(surface, 0x0A, 0x0A, 0x0A, 0xFF);
        surface->DrawLine(surface, x + kWidth, y, x + kWidth, y + kHeight);
        surface->DrawLine(surface, x, y + kHeight, x + kWidth, y + kHeight);
        surface->DrawLine(surface, x + kWidth - 1, y, x + kWidth - 1, y + kHeight);
        surface->DrawLine(surface, x, y + kHeight - 1, x + kWidth, y + kHeight - 1);
    }
    check(surface->Flip(surface, nullptr, DSFLIP_WAITFORSYNC), "Flip");
}

void makeStartCalls(IDirectFB* dfb, IDirectFBSurface* surface, int keys, const char* path)
{
    DFBFontDescription wanted = {};
    wanted.flags = DFDESC_HEIGHT;
    wanted.height = 30;
    IDirectFBFont* font = nullptr;
    int fontHeight = 0;
    check(dfb->CreateFont(dfb, path, &wanted, &font), "CreateFont");
    check(surface->SetFont(surface, font), "SetFont");
    check(font->GetHeight(font, &fontHeight), "GetHeight");
    for (int i = 0; i < 3; ++i)
        paint(surface, keys, fontHeight);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 5) {
        std::fprintf(stderr, "usage: start_bare WIDTH HEIGHT [KEYS FONT]\n");
        return 2;
    }
    DFBWindowDescription wanted = {};
    wanted.flags = static_cast<DFBWindowDescriptionFlags>(
        DWDESC_CAPS | DWDESC_WIDTH | DWDESC_HEIGHT | DWDESC_POSX | DWDESC_POSY | DWDESC_STACKING);
    wanted.caps = static_cast<DFBWindowCapabilities>(DWCAPS_ALPHACHANNEL | DWCAPS_DOUBLEBUFFER);
    wanted.width = static_cast<unsigned int>(std::atoi(argv[1]));
    wanted.height = static_cast<unsigned int>(std::atoi(argv[2]));
    wanted.posx = 600;
    wanted.posy = 600;
    wanted.stacking = DWSC_UPPER;

    int no_arguments = 0;
    IDirectFB* dfb = nullptr;
    IDirectFBDisplayLayer* layer = nullptr;
    IDirectFBWindow* window = nullptr;
    IDirectFBSurface* surface = nullptr;
    check(DirectFBInit(&no_arguments, nullptr), "DirectFBInit");
    check(DirectFBCreate(&dfb), "DirectFBCreate");
    check(dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer), "GetDisplayLayer");
    check(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE), "SetCooperativeLevel");
    check(layer->CreateWindow(layer, &wanted, &window), "CreateWindow");
    check(window->GetSurface(window, &surface), "GetSurface");
    check(window->SetOpacity(window, 0xFF), "SetOpacity");
    check(window->RaiseToTop(window), "RaiseToTop");
    check(surface->Flip(surface, nullptr, DSFLIP_WAITFORSYNC), "Flip");
    if (argc == 5)
        makeStartCalls(dfb, surface, std::atoi(argv[3]), argv[4]);

    bench::report("shown", 1);
    bench::report("resident", bench::residentKiB());
    // Releasing is no part of the measurement.
    _exit(0);
}
