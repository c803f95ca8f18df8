// What a DirectFB program costs before it does anything: opens a window of the size given and
// flips it once.
//
// Usage: start_bare WIDTH HEIGHT    (reports on file descriptor 3)
#include <cstdlib>

#include <directfb.h>

#include "process_memory.h"
#include "report_fd.h"

namespace
{

void check(DFBResult result, const char* call)
{
    if (result != DFB_OK)
        DirectFBErrorFatal(call, result);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: start_bare WIDTH HEIGHT\n");
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

    bench::report("shown", 1);
    bench::report("resident", bench::residentKiB());
    // Releasing is no part of the measurement.
    _exit(0);
}
