// DirectFB's key events in GLib's main loop.
#include "remote_input.h"

#include <unistd.h>
#include <utility>

#include <glib-unix.h>

#include "screen.h"

namespace host
{

namespace
{

// X11 repeats a key that is held as a release with a press right behind it.
const unsigned kReleaseMilliseconds = 50;

} // namespace

RemoteInput::RemoteInput(IDirectFB* dfb, Press press) : m_press(std::move(press))
{
    IDirectFBEventBuffer* events = nullptr;
    require(dfb->CreateInputEventBuffer(dfb, DICAPS_KEYS, DFB_TRUE, &events),
            "CreateInputEventBuffer");
    int descriptor = -1;
    require(events->CreateFileDescriptor(events, &descriptor), "CreateFileDescriptor");
    g_unix_fd_add(
        descriptor, G_IO_IN,
        [](int readable, GIOCondition, gpointer input) -> gboolean {
            static_cast<RemoteInput*>(input)->read(readable);
            return G_SOURCE_CONTINUE;
        },
        this);
}

gboolean RemoteInput::release(gpointer input)
{
    RemoteInput& self = *static_cast<RemoteInput*>(input);
    self.m_release = 0;
    self.m_down = DIKS_NULL;
    return G_SOURCE_REMOVE;
}

void RemoteInput::read(int descriptor)
{
    DFBEvent event = {};
    if (::read(descriptor, &event, sizeof event) != static_cast<ssize_t>(sizeof event) ||
        event.clazz != DFEC_INPUT)
        return;
    const DFBInputEvent& input = event.input;
    if (m_release != 0)
        g_source_remove(std::exchange(m_release, 0U));
    if (input.type == DIET_KEYRELEASE)
        m_release = g_timeout_add(kReleaseMilliseconds, release, this);
    if (input.type != DIET_KEYPRESS)
        return;
    const bool isHeld = input.key_symbol == m_down;
    m_down = input.key_symbol;
    m_press(remoteKey(input.key_symbol), isHeld);
}

} // namespace host
