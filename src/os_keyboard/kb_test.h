// The `kb` commands of the test driver.
#ifndef KB_TEST_H
#define KB_TEST_H

#include <string>

#include <directfb.h>

#include "log.h"

// The whole format of the usage line, shared with the program's entry. It does not list "getkey",
// "shift-lock" and "alt-shift": kept.
#define KB_USAGE_FORMAT                                                                            \
    VKB_LOG_HEADER                                                                                 \
    "\n\t Usage: bin  [kb] | cmd |  xxx \n"                                                        \
    "\t cmd:[left x]--(Move x buttons to the left)\n"                                              \
    "\t cmd:[right x]--(Move x buttons to the right)\n"                                            \
    "\t cmd:[up x]--(Move x buttons to the up)\n"                                                  \
    "\t cmd:[down x]--(Move x buttons to the down)\n"                                              \
    "\t cmd:[shift]--(Enter shift mode)\n"                                                         \
    "\t cmd:[shift-right x]--(Enter shift mode and move x buttons to the right)\n"                 \
    "\t cmd:[alt]--(Enter Alt mode)\n"                                                             \
    "\t cmd:[alt-right x]--(Enter Alt mode and move x buttons to the right)\n"                     \
    "\t cmd:[language x]--(Number of times the language button is pressed)\n"                      \
    "\t =>cmd:[show|hide|clear|clear-all|submit|space | loop-left |loop-right | loop-up | "        \
    "loop-down | more ] \n"                                                                        \
    "\t IF cmd = more,enter loop input mode\n"

// Drives one keyboard as the browser would: runs cmd, or with "more" the commands from standard
// input until a line begins with "quit ". dfb and surface are lent for the process's life.
// Always returns 0; a count that is no number ends the process by std::stoi's exception.
int kb_test(std::string cmd, std::string param, IDirectFB* dfb, IDirectFBSurface* surface);

#endif
