// The keys of a remote control.
#ifndef HOSTS_SHARED_REMOTE_KEYS_H
#define HOSTS_SHARED_REMOTE_KEYS_H

#include <string>

#include <directfb.h>

namespace host
{

// What a key of a remote control, or of a keyboard in its place, means to a host.
struct RemoteKey {
    enum Meaning { ForKeyboard, Back, ForPage, Other } meaning;
    int keyCode; // the browser's key event code
};

RemoteKey remoteKey(DFBInputDeviceKeySymbol symbol);

// By its name on the remote control: "left", "ok", "back", "red", "7". Meaning Other for any other.
RemoteKey remoteKey(const std::string& name);

} // namespace host

#endif
