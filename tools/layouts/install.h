#ifndef LAYOUTS_INSTALL_H
#define LAYOUTS_INSTALL_H

#include <string>
#include <vector>

#include "checker.h"
#include "layout_set.h"

namespace layouts
{

// The set with a catalogue that lists just these layouts, in this order. Throws
// std::runtime_error for a layout that is not in the set.
LayoutSet selectLayouts(const LayoutSet& shipped, const std::vector<std::string>& names);

// Puts the set in place of what the folder holds, in one step: its readers see the old set or
// the new one, whole. Throws std::runtime_error when the folder holds anything but layout
// files, which would be lost.
void installSet(const LayoutSet& set, const std::string& folder);

} // namespace layouts

#endif
