// One arrow key after another, on DirectFB itself.
//
// Usage: focus_move KEYS instructions|allocations    (reports on file descriptor 3)
//
//   instructions  under callgrind: dumps the counts of onKeyEvent(39), and then those of the same
//                 DirectFB calls, recorded from an arrow key before, with nothing around them
//   allocations   counts heap allocations of both, without a locked key and with one
#include <cstdlib>
#include <cstring>

#include <valgrind/callgrind.h>

#include "allocation_count.h"
#include "bench_layout.h"
#include "keyboard_core.h"
#include "replay.h"
#include "report_fd.h"

using velmora::browser::vkb::KeyBoardCore;

namespace
{

const int kRight = 39;
const int kOk = 13;
const int kSteps = 4;

[[noreturn]] void fail(const char* why)
{
    std::fprintf(stderr, "focus_move: %s\n", why);
    std::exit(1);
}

void pressRight(void* core)
{
    if (static_cast<KeyBoardCore*>(core)->onKeyEvent(kRight) != 0)
        fail("the arrow key was not consumed");
}

size_t allocationsOf(void (*action)(void*), void* context)
{
    const size_t before = bench::allocationsOfThisThread();
    action(context);
    return bench::allocationsOfThisThread() - before;
}

struct Replay {
    IDirectFBSurface* surface;
    const std::vector<bench::Call>& calls;
};

void replayOnce(void* context)
{
    const Replay* what = static_cast<const Replay*>(context);
    bench::replay(what->surface, what->calls);
}

// What the keyboard's own code allocates: the allocations of an arrow key less those of the same
// DirectFB calls.
void reportAllocations(const char* name, KeyBoardCore& core, IDirectFBSurface* surface)
{
    const std::vector<bench::Call> calls = bench::recordCalls(surface, pressRight, &core);
    Replay what = {surface, calls};
    const size_t ofReplay = allocationsOf(replayOnce, &what);
    const size_t ofKeyboard = allocationsOf(pressRight, &core);
    bench::figure(std::string("allocations, ") + name,
                  static_cast<double>(ofKeyboard) - static_cast<double>(ofReplay), 0, "count",
                  "heap allocations of one onKeyEvent(39) - those of its DirectFB calls alone");
}

} // namespace

int main(int argc, char** argv)
{
    const int keys = argc == 3 ? std::atoi(argv[1]) : 0;
    if (keys < 1)
        fail("usage: focus_move KEYS instructions|allocations");
    const std::string mode = argv[2];

    test_support::LayoutFolder folder;
    bench::writeLayout(folder, keys);

    int no_arguments = 0;
    IDirectFB* dfb = nullptr;
    DirectFBInit(&no_arguments, nullptr);
    if (DirectFBCreate(&dfb) != DFB_OK)
        fail("DirectFB does not start");
    bench::watchForSurface(dfb);
    auto* core = new KeyBoardCore;
    core->OnIMEStart(dfb, nullptr);
    IDirectFBSurface* surface = bench::watchedSurface();
    if (!core->isShow() || surface == nullptr)
        fail("the keyboard did not start");

    // Glyphs are rendered once, when they are first drawn.
    for (int i = 0; i < 3; ++i)
        pressRight(core);
    const std::vector<bench::Call> calls = bench::recordCalls(surface, pressRight, core);
    if (calls.size() < 2 * static_cast<size_t>(keys))
        fail("fewer drawing calls were recorded than there are keys");
    bench::report("calls", static_cast<long>(calls.size()));
    bench::report("steps", kSteps);

    if (mode == "instructions") {
        CALLGRIND_START_INSTRUMENTATION;
        for (int i = 0; i < kSteps; ++i)
            core->onKeyEvent(kRight);
        CALLGRIND_DUMP_STATS_AT("keyboard");
        for (int i = 0; i < kSteps; ++i)
            bench::replay(surface, calls);
        CALLGRIND_DUMP_STATS_AT("calls-alone");
        CALLGRIND_STOP_INSTRUMENTATION;
    } else if (mode == "allocations") {
        reportAllocations("unlocked", *core, surface);
        // Back to the Shift key at position 0, and lock it.
        while (core->getTargetButtonByButtonId(-1).id != 0)
            pressRight(core);
        core->onKeyEvent(kOk);
        pressRight(core); // the first with a locked key takes what it keeps
        reportAllocations("locked", *core, surface);
    } else {
        fail("the mode is instructions or allocations");
    }
    _exit(0);
}
