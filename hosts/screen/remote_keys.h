// The keys of a remote control.
#ifndef HOSTS_SCREEN_REMOTE_KEYS_H
#define HOSTS_SCREEN_REMOTE_KEYS_H

#include <directfb.h>

namespace host
{

// What a key of a remote control, or of a keyboard in its place, means to a host.
struct RemoteKey {
    enum Meaning { ForKeyboard, Back, Other } meaning;
    int keyCode; // for the on-screen keyboard: the browser's key event code
};

RemoteKey remoteKey(DFBInputDeviceKeySymbol symbol);

} // namespace host

#endif
