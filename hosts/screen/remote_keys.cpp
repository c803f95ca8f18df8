// What the symbols of an input device mean.
#include "remote_keys.h"

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

struct Entry {
    DFBInputDeviceKeySymbol symbol;
    RemoteKey key;
};

const Entry kKeys[] = {
    {DIKS_CURSOR_LEFT, {RemoteKey::ForKeyboard, RemoteLeft}},
    {DIKS_CURSOR_UP, {RemoteKey::ForKeyboard, RemoteUp}},
    {DIKS_CURSOR_RIGHT, {RemoteKey::ForKeyboard, RemoteRight}},
    {DIKS_CURSOR_DOWN, {RemoteKey::ForKeyboard, RemoteDown}},
    {DIKS_OK, {RemoteKey::ForKeyboard, RemoteOk}},
    {DIKS_SELECT, {RemoteKey::ForKeyboard, RemoteOk}},
    {DIKS_ENTER, {RemoteKey::ForKeyboard, RemoteOk}}, // Return is the same symbol
    {DIKS_BACK, {RemoteKey::Back, 0}},
    {DIKS_EXIT, {RemoteKey::Back, 0}},
    {DIKS_ESCAPE, {RemoteKey::Back, 0}},
};

} // namespace

RemoteKey remoteKey(DFBInputDeviceKeySymbol symbol)
{
    for (const Entry& entry : kKeys)
        if (entry.symbol == symbol)
            return entry.key;
    return {RemoteKey::Other, 0};
}

} // namespace host
