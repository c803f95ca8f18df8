#ifndef HOSTS_TERMINAL_UNSEEN_PAINTING_H
#define HOSTS_TERMINAL_UNSEEN_PAINTING_H

#include <directfb.h>

namespace host
{

// From now on nothing is painted on the surfaces of windows that are made through dfb; every other
// call does what it does. For a keyboard that nobody sees, which would spend its time on painting.
void leaveOutPainting(IDirectFB* dfb);

} // namespace host

#endif
