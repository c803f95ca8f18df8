// The display of the test driver, and its `kbui` commands.
#ifndef KB_UI_TEST_H
#define KB_UI_TEST_H

#include <string>

#include <directfb.h>

#include "keyboard_types.h"

// Set by initDFB. surface is the test window's.
extern IDirectFB* dfb;
extern IDirectFBDisplayLayer* layer;
extern IDirectFBSurface* surface;

// Opens DirectFB with one window on the primary layer at rect, in pixels. A failed call ends the
// process.
void initDFB(int argc, char** argv, velmora::browser::vkb::Rect_t rect);

// Drives the renderer alone, with a list of keys of its own: runs cmd, or with "more" the
// commands from standard input until one contains "quit". Always returns 0; a count that is no
// number ends the process by std::stoi's exception.
int kb_ui_test(std::string cmd, std::string param);

#endif
