#ifndef HOSTS_SHARED_KEYBOARD_MODEL_H
#define HOSTS_SHARED_KEYBOARD_MODEL_H

#include <string>
#include <vector>

#include "keyboard_constants.h"
#include "keyboard_types.h"

namespace host
{

using Face = std::vector<velmora::browser::vkb::Button_t>;

struct Layout {
    std::string name;
    Face faces[2][2];           // [Shift][Alt]
    bool hasCandidates = false; // while typing, above the top row
};

// What a remote control can send, by the keyboard's own key codes.
enum class Press {
    Ok = velmora::browser::vkb::RemoteOk,
    Left = velmora::browser::vkb::RemoteLeft,
    Up = velmora::browser::vkb::RemoteUp,
    Right = velmora::browser::vkb::RemoteRight,
    Down = velmora::browser::vkb::RemoteDown,
};

enum class Shift { Off, Once, Locked };

struct KeyboardState {
    size_t layout = 0;
    Shift shift = Shift::Off;
    bool alt = false;
    int key = 0; // the focused one, a position in the face
};

bool operator==(const KeyboardState& a, const KeyboardState& b);

// Foretells what the keyboard will do with each press, from its layouts alone. The keyboard does
// not tell its host where the focus is; a host that plans or comments its moves follows along
// with this.
class KeyboardModel
{
public:
    explicit KeyboardModel(std::vector<Layout> layouts);

    struct Step {
        KeyboardState state;
        const velmora::browser::vkb::Button_t* result; // the key that gives a key result, or null
        bool hides;
    };

    Step after(const KeyboardState& state, Press press) const;

    const std::vector<Layout>& layouts() const { return m_layouts; }
    const Face& face(const KeyboardState& state) const;

    // Up leads from there to the candidates, while there are some.
    bool isInTopRow(const KeyboardState& state) const;

    // Null when the layouts do not have the key.
    const velmora::browser::vkb::Button_t* focused(const KeyboardState& state) const;

private:
    Step afterOk(const KeyboardState& state) const;

    std::vector<Layout> m_layouts;
};

// The installed layouts in the keyboard's own order, through its own reader; empty when there is
// no catalogue.
std::vector<Layout> installedLayouts();

} // namespace host

#endif
