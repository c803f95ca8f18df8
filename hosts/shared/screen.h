#ifndef HOSTS_SHARED_SCREEN_H
#define HOSTS_SHARED_SCREEN_H

#include <string>

#include <directfb.h>

#include "picture.h"

namespace host
{

// DirectFB as a host opens it, once in a process. Nothing here is released: DirectFB 1.7's
// Release may wait for ever once a keyboard was cancelled. End the process with endProcess.
class Screen
{
public:
    // options: pairs of DirectFB's option names and values, ended by a null name; they go before
    // those of DFBARGS. Ends the process with DirectFB's own message when there is no screen.
    struct Option {
        const char* name;
        const char* value; // null: a switch
    };
    explicit Screen(const Option* options);
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    IDirectFB* directFB() const { return m_dfb; }
    IDirectFBDisplayLayer* layer() const { return m_layer; }

    // What a viewer sees in this part of the screen, all windows included.
    Picture picture(const DFBRectangle& area) const;

    // The whole of it, as a copy that can be drawn on; the caller releases it.
    IDirectFBSurface* copy() const;

    // An off-screen surface, opaque or with alpha as the format says; the caller releases it.
    IDirectFBSurface* createSurface(int width, int height) const;

private:
    IDirectFB* m_dfb = nullptr;
    IDirectFBDisplayLayer* m_layer = nullptr;
    IDirectFBSurface* m_shown = nullptr; // the layer's own surface, on which windows are put
};

// For DirectFB calls that a host cannot go on without: a failed one is named and ends the process.
void require(DFBResult result, const char* call);

// Ends the process at once, with what was written flushed. exit() would take DirectFB's libraries
// apart while its threads still run in them, which crashes now and then.
[[noreturn]] void endProcess(int status);

// The pixels of a surface in ARGB.
Picture pictureOf(IDirectFBSurface* surface);

// The font that the keyboard will use: the environment's, the television's or, where neither
// exists, DejaVu Sans, which is then put into the environment. Empty when there is none.
std::string chooseFont();

// The fonts and layouts that a host cannot do without are missing: what was looked for, what to do.
std::string noFontMessage();
std::string noLayoutsMessage();

// Owned by the caller. A font that DirectFB cannot load ends the process with its message.
IDirectFBFont* loadFont(IDirectFB* dfb, const std::string& file, int size);

} // namespace host

#endif
