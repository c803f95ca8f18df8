#ifndef TOOLS_LAYOUTS_CHECK_FONT_FILES_H
#define TOOLS_LAYOUTS_CHECK_FONT_FILES_H

#include <map>
#include <memory>
#include <string>

#include "font.h"

namespace layouts
{

// The installed font file of this name; a path is taken as it is. Throws std::runtime_error
// when no package brings it.
std::string findFontFile(const std::string& name);

// Fonts by name, each opened once.
class FontCache
{
public:
    const Font& open(const std::string& name);

private:
    std::map<std::string, std::unique_ptr<Font>> m_fonts;
};

} // namespace layouts

#endif
