#ifndef TOOLS_LAYOUTS_COMMANDS_INSTALL_H
#define TOOLS_LAYOUTS_COMMANDS_INSTALL_H

#include <string>
#include <vector>

#include "layout_set.h"

namespace layouts
{

// The set with a catalogue that lists just these layouts, in this order. Throws
// std::runtime_error for a layout that is not in the set.
LayoutSet selectLayouts(const LayoutSet& shipped, const std::vector<std::string>& names);

// Makes the set the folder's. Everything is written before the first file is replaced, and the
// catalogue takes its place last, so a reader finds each layout that its catalogue lists. Key maps
// that the set does not have are deleted at the end; other files stay.
void installSet(const LayoutSet& set, const std::string& folder);

} // namespace layouts

#endif
