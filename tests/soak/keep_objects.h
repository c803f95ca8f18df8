#ifndef TESTS_SOAK_KEEP_OBJECTS_H
#define TESTS_SOAK_KEEP_OBJECTS_H

#include <directfb.h>

// The keyboard never releases the fonts of earlier reloads, nor its windows and surfaces: they
// stay for the life of the process, as they are to. From now on whatever is made through dfb is
// remembered, so that a leak checker sees it as kept and reports only what else is lost.
void keepObjectsMadeBy(IDirectFB* dfb);

#endif
