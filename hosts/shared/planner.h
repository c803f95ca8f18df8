#ifndef HOSTS_SHARED_PLANNER_H
#define HOSTS_SHARED_PLANNER_H

#include <functional>
#include <string>
#include <vector>

#include "keyboard_model.h"
#include "spelling.h"

namespace host
{

struct Plan {
    std::vector<Press> presses;

    // When there is no way, the first character that cannot be typed; empty when the text can be
    // typed and only the Enter key is out of reach.
    bool possible = false;
    std::string obstacle;
};

enum class PlanEnd {
    Enter, // the last press is that of the Enter key
    Text,  // it ends with the text
};

// The fewest presses that type the text (UTF-8) from this state, over arrows, OK, Shift, Alt and
// the language key: the whole way is the shortest, not each letter's alone. Takes time by the
// length of the text times the number of the keyboard's states.
Plan planTyping(const KeyboardModel& model, const KeyboardState& from, const std::string& text,
                PlanEnd end = PlanEnd::Enter);

// The same, with what no key shows composed by the keys of a layout that can. spelling is that of
// the model.
Plan planComposing(const KeyboardModel& model, const Spelling& spelling, const KeyboardState& from,
                   const std::string& text, PlanEnd end = PlanEnd::Enter);

// The fewest presses that press a key of this kind.
Plan planKey(const KeyboardModel& model, const KeyboardState& from,
             const std::function<bool(const velmora::browser::vkb::Button_t&)>& isWanted);

const char* pressName(Press press);

} // namespace host

#endif
