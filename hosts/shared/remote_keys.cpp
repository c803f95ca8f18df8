// The keys of a remote control by DirectFB's symbols and by their names.
#include "remote_keys.h"

#include "keyboard_constants.h"

namespace host
{

using namespace velmora::browser::vkb;

namespace
{

struct Entry {
    DFBInputDeviceKeySymbol symbol;
    const char* name;
    RemoteKey key;
};

const Entry kKeys[] = {
    {DIKS_CURSOR_LEFT, "left", {RemoteKey::ForKeyboard, RemoteLeft}},
    {DIKS_CURSOR_UP, "up", {RemoteKey::ForKeyboard, RemoteUp}},
    {DIKS_CURSOR_RIGHT, "right", {RemoteKey::ForKeyboard, RemoteRight}},
    {DIKS_CURSOR_DOWN, "down", {RemoteKey::ForKeyboard, RemoteDown}},
    {DIKS_OK, "ok", {RemoteKey::ForKeyboard, RemoteOk}},
    {DIKS_SELECT, "ok", {RemoteKey::ForKeyboard, RemoteOk}},
    {DIKS_ENTER, "ok", {RemoteKey::ForKeyboard, RemoteOk}}, // Return is the same symbol
    {DIKS_BACK, "back", {RemoteKey::Back, 0}},
    {DIKS_EXIT, "back", {RemoteKey::Back, 0}},
    {DIKS_ESCAPE, "back", {RemoteKey::Back, 0}},
    {DIKS_RED, "red", {RemoteKey::ForPage, 403}},
    {DIKS_GREEN, "green", {RemoteKey::ForPage, 404}},
    {DIKS_YELLOW, "yellow", {RemoteKey::ForPage, 405}},
    {DIKS_BLUE, "blue", {RemoteKey::ForPage, 406}},
    {DIKS_0, "0", {RemoteKey::ForPage, '0'}},
    {DIKS_1, "1", {RemoteKey::ForPage, '1'}},
    {DIKS_2, "2", {RemoteKey::ForPage, '2'}},
    {DIKS_3, "3", {RemoteKey::ForPage, '3'}},
    {DIKS_4, "4", {RemoteKey::ForPage, '4'}},
    {DIKS_5, "5", {RemoteKey::ForPage, '5'}},
    {DIKS_6, "6", {RemoteKey::ForPage, '6'}},
    {DIKS_7, "7", {RemoteKey::ForPage, '7'}},
    {DIKS_8, "8", {RemoteKey::ForPage, '8'}},
    {DIKS_9, "9", {RemoteKey::ForPage, '9'}},
};

} // namespace

RemoteKey remoteKey(DFBInputDeviceKeySymbol symbol)
{
    for (const Entry& entry : kKeys)
        if (entry.symbol == symbol)
            return entry.key;
    return {RemoteKey::Other, 0};
}

RemoteKey remoteKey(const std::string& name)
{
    for (const Entry& entry : kKeys)
        if (name == entry.name)
            return entry.key;
    return {RemoteKey::Other, 0};
}

} // namespace host
