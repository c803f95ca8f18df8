#include "remote_keys.h"

namespace host
{

namespace
{

struct Entry {
    DFBInputDeviceKeySymbol symbol;
    RemoteKey key;
};

const Entry kKeys[] = {
    {DIKS_CURSOR_LEFT, {RemoteKey::ForKeyboard, 37}},
    {DIKS_CURSOR_UP, {RemoteKey::ForKeyboard, 38}},
    {DIKS_CURSOR_RIGHT, {RemoteKey::ForKeyboard, 39}},
    {DIKS_CURSOR_DOWN, {RemoteKey::ForKeyboard, 40}},
    {DIKS_OK, {RemoteKey::ForKeyboard, 13}},
    {DIKS_SELECT, {RemoteKey::ForKeyboard, 13}},
    {DIKS_ENTER, {RemoteKey::ForKeyboard, 13}}, // Return is the same symbol
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
