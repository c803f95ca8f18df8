#ifndef BENCH_REPLAY_H
#define BENCH_REPLAY_H

#include <string>
#include <vector>

#include <directfb.h>

namespace bench
{

// One drawing call as the keyboard made it.
struct Call {
    enum Kind { Clear, SetColor, FillRectangle, DrawLine, DrawString, Flip } kind;
    int numbers[4];
    unsigned int flags;
    std::string text;
};

// Has the surface of the next window that is created through dfb remembered. The objects are
// DirectFB's own; the calls on the way to the surface are passed on.
void watchForSurface(IDirectFB* dfb);
IDirectFBSurface* watchedSurface();

// Has the calls on the surface of the next window recorded from its first one on.
void recordFirstSurface(IDirectFB* dfb);

// Reports what was recorded, a line a call.
void reportCalls();

// The calls that are made on the surface while action runs; they are carried out too.
std::vector<Call> recordCalls(IDirectFBSurface* surface, void (*action)(void*), void* context);

// Makes the same calls, with nothing around them.
void replay(IDirectFBSurface* surface, const std::vector<Call>& calls);

} // namespace bench

#endif
