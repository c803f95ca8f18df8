#ifndef HOSTS_SHARED_UNTYPABLE_H
#define HOSTS_SHARED_UNTYPABLE_H

#include <string>
#include <vector>

#include "keyboard_model.h"
#include "planner.h"

namespace host
{

// The layouts that have keys for the character, or compose it of several, (UTF-8), in the order of
// their names, without those that are left out: among all that came with this program.
std::vector<std::string> layoutsWith(const std::string& character,
                                     const std::vector<std::string>& leftOut);

// Why there is no such plan: what cannot be typed, which layouts have it, and how to add one.
std::string whyNotTyped(const Plan& plan, const KeyboardModel& model);

} // namespace host

#endif
