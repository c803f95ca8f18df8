// DirectFB's key events in GLib's main loop.
#include "remote_input.h"

#include <unistd.h>
#include <utility>

#include <glib-unix.h>

#include "screen.h"

namespace host
{

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

void RemoteInput::read(int descriptor)
{
    DFBEvent event = {};
    if (::read(descriptor, &event, sizeof event) != static_cast<ssize_t>(sizeof event) ||
        event.clazz != DFEC_INPUT)
        return;
    const DFBInputEvent& input = event.input;
    if (input.type == DIET_KEYRELEASE)
        m_down = DIKS_NULL;
    if (input.type != DIET_KEYPRESS)
        return;
    const bool isHeld = input.key_symbol == m_down;
    m_down = input.key_symbol;
    m_press(remoteKey(input.key_symbol), isHeld);
}

} // namespace host
