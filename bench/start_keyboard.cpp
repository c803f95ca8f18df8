// A host as small as can be: opens DirectFB, starts the keyboard and reports when it is shown.
// The layout files come from the folder in VKB_TEST_ROOT, the font from
// VIRTUAL_KEYBOARD_FONT_PATH.
//
// Usage: start_keyboard [ARROWS|calls]    (reports on file descriptor 3)
//
// With "calls" the drawing calls are reported too.
// With ARROWS, that many arrow keys follow, and the memory is reported again. 5,000 arrow keys go
// ahead of the first report then: threads of DirectFB's own take up to 128 KiB for themselves in
// the course of the first 2,000 flips, and no more after that.
#include <cstdlib>
#include <cstring>

#include <directfb.h>

#include "keyboard_core.h"
#include "process_memory.h"
#include "replay.h"
#include "report_fd.h"

namespace
{

void check(DFBResult result, const char* call)
{
    if (result != DFB_OK)
        DirectFBErrorFatal(call, result);
}

void pressArrows(velmora::browser::vkb::KeyBoardCore& core, int count)
{
    for (int i = 0; i < count; ++i) {
        if (core.onKeyEvent(37 + i % 4) != 0) {
            std::fprintf(stderr, "start_keyboard: arrow %d was not consumed\n", i);
            _exit(1);
        }
    }
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

    auto* core = new velmora::browser::vkb::KeyBoardCore;
    core->OnIMEStart(dfb, nullptr);
    if (!core->isShow()) {
        std::fprintf(stderr, "start_keyboard: the keyboard did not start: is VKB_TEST_ROOT set "
                             "to a folder with layout files?\n");
        _exit(1);
    }
    bench::report("shown", 1);
    bench::report("resident", bench::residentKiB());
    if (calls)
        bench::reportCalls();

    const int arrows = argc > 1 ? std::atoi(argv[1]) : 0;
    if (arrows > 0) {
        pressArrows(*core, 5000);
        bench::report("resident-before-arrows", bench::residentKiB());
        pressArrows(*core, arrows);
        bench::report("resident-after-arrows", bench::residentKiB());
    }
    _exit(0);
}
