#ifndef TOOLS_LAYOUTS_COMMANDS_PREVIEW_H
#define TOOLS_LAYOUTS_COMMANDS_PREVIEW_H

#include <string>

namespace layouts
{

struct Catalogue;
struct KeyMap;

// Draws the four faces with the keyboard's own renderer and writes them as one PNG, one below the
// other, each with a caption: default, default shifted, symbol, symbol shifted. Throws
// std::runtime_error when something is missing. To be called once in a process, which DirectFB
// belongs to.
void writePreview(const KeyMap& keyMap, const Catalogue& catalogue, const std::string& fontFile,
                  const std::string& pngFile);

} // namespace layouts

#endif
