#ifndef TESTS_SUPPORT_RECORDING_DISPLAY_H
#define TESTS_SUPPORT_RECORDING_DISPLAY_H

#include <cstddef>
#include <map>
#include <string>

#include <directfb.h>

#include "trace.h"

namespace test_support
{

// What DirectFBErrorFatal was called with.
struct FatalError {
    std::string text;
    DFBResult result;
};

// What the objects of one display share.
struct DisplayState {
    std::map<std::string, int> numbers; // last number given to a kind of object
    std::map<std::string, DFBResult> failingMethods;
    size_t callsUntilFailure = 0; // 0: none is to fail
    DFBResult failure = DFB_FAILURE;
    bool throwsFatalErrors = false;
    int fontHeight = 37;
    size_t liveFonts = 0;
    size_t liveWindows = 0;
    size_t bytesKept = 0;
};

// A DirectFB that shows nothing: its objects are of DirectFB's own types, and each call adds a
// line to the trace. Names in the lines: `dfb`, `layer`, and `window1`, `surface1`, `font1` in the
// order of their making; a window's surface is made when it is first asked for. A window of no
// size is refused, as DirectFB's own does. A slot that no keyboard code uses ends the process
// with a message when it is called.
//
// One display at a time. Its objects stay valid for the life of the process, as the keyboard
// keeps some of them in variables of its own; a new display starts the names anew.
class RecordingDisplay
{
public:
    RecordingDisplay();
    RecordingDisplay(const RecordingDisplay&) = delete;
    RecordingDisplay& operator=(const RecordingDisplay&) = delete;

    static IDirectFB* dfb();
    static IDirectFBSurface* newSurface(int width, int height);

    // Pixels that fonts made from now on report.
    void setFontHeight(int pixels) { state.fontHeight = pixels; }

    // The count-th call from now on, 1 being the next, fails with this result, once.
    void failCall(size_t count, DFBResult result)
    {
        state.callsUntilFailure = count;
        state.failure = result;
    }

    // Every call of this method fails from now on, whatever object it is made on.
    void failEvery(const std::string& method, DFBResult result)
    {
        state.failingMethods[method] = result;
    }

    // DirectFBErrorFatal throws a FatalError from now on, in place of ending the process as
    // DirectFB's own does.
    void throwFatalErrors() { state.throwsFatalErrors = true; }

    // Objects made by this display and not released or destroyed.
    size_t liveFonts() const { return state.liveFonts; }
    size_t liveWindows() const { return state.liveWindows; }

    // Bytes of the heap that its objects take, the released ones too.
    size_t bytesKept() const { return state.bytesKept; }

    static inline DisplayState state; // of the display that was made last
};

} // namespace test_support

#endif
