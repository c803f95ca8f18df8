#ifndef TESTS_KEYBOARD_DISPLAY_H
#define TESTS_KEYBOARD_DISPLAY_H

#include <directfb.h>

#include "test_picture.h"

// DirectFB without a screen, opened once for the process and left open.
class Display
{
public:
    Display();

    IDirectFB* dfb() const { return m_dfb; }

    // A window of this size, as the keyboard and its driver open theirs.
    IDirectFBSurface* newWindow(int width, int height);

    // The surface of the newest window on the screen, whoever opened it.
    IDirectFBSurface* newestWindow();

private:
    IDirectFB* m_dfb = nullptr;
    IDirectFBDisplayLayer* m_layer = nullptr;
};

// Before DirectFB starts: no screen, no chatter, no log lines.
void prepareDisplay();

// What the surface shows: its front buffer.
test_support::Picture shownOn(IDirectFBSurface* surface);

// It shows the expected picture of this name; null: it is transparent.
void expectShown(const char* picture, IDirectFBSurface* surface);

#endif
