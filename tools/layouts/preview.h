#ifndef LAYOUTS_PREVIEW_H
#define LAYOUTS_PREVIEW_H

#include <string>

#include "catalogue.h"
#include "key_map.h"

namespace layouts
{

// Draws the four faces with the keyboard's own renderer and writes them as one PNG, one below the
// other: default, default shifted, symbol, symbol shifted. Throws std::runtime_error when
// something is missing. To be called once in a process, which DirectFB belongs to.
void writePreview(const KeyMap& keyMap, const Catalogue& catalogue, const std::string& fontFile,
                  const std::string& pngFile);

} // namespace layouts

#endif
