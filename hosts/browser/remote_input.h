// The remote control's keys as DirectFB gives them.
#ifndef HOSTS_BROWSER_REMOTE_INPUT_H
#define HOSTS_BROWSER_REMOTE_INPUT_H

#include <functional>

#include <directfb.h>
#include <glib.h>

#include "remote_keys.h"

namespace host
{

// The remote control's keys as they come from DirectFB, in GLib's main loop; kept until the
// process ends.
class RemoteInput
{
public:
    // isHeld: the key is down since an earlier press.
    using Press = std::function<void(const RemoteKey& key, bool isHeld)>;

    RemoteInput(IDirectFB* dfb, Press press);
    RemoteInput(const RemoteInput&) = delete;
    RemoteInput& operator=(const RemoteInput&) = delete;

private:
    void read(int descriptor);
    static gboolean release(gpointer input);

    Press m_press;
    DFBInputDeviceKeySymbol m_down = DIKS_NULL;
    unsigned m_release = 0; // GLib's source that ends m_down
};

} // namespace host

#endif
