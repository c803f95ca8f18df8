#ifndef TOOLS_LAYOUTS_FORMAT_LAYOUT_SET_H
#define TOOLS_LAYOUTS_FORMAT_LAYOUT_SET_H

#include <map>
#include <string>

namespace layouts
{

// The layout files of a folder, texts by file name, before anybody has looked into them.
using LayoutSet = std::map<std::string, std::string>;

extern const char kCatalogueName[];
std::string keyMapName(const std::string& layout);

// Whether a layout's name is one that a key map's file in the same folder can have.
bool isLayoutName(const std::string& name);

// The same as paths.
std::string catalogueFile(const std::string& folder);
std::string keyMapFile(const std::string& folder, const std::string& layout);

// The layout that a key map's file name stands for; empty for other files.
std::string layoutOf(const std::string& fileName);

// Files with other names are left out. Throws std::runtime_error when there is no such folder.
LayoutSet readLayoutSet(const std::string& folder);

} // namespace layouts

#endif
