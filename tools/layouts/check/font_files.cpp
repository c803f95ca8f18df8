// Finds installed fonts by their file name.
#include "font_files.h"

#include <filesystem>
#include <stdexcept>

namespace layouts
{
namespace
{

const char kFontFolder[] = "/usr/share/fonts";

} // namespace

std::string findFontFile(const std::string& name)
{
    if (name.find('/') != std::string::npos || std::filesystem::exists(name))
        return name;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kFontFolder, error))
        if (entry.path().filename() == name)
            return entry.path().string();
    throw std::runtime_error("font " + name + ": not below " + kFontFolder +
                             "; docs/layouts.md names the package to install");
}

const Font& FontCache::open(const std::string& name)
{
    std::unique_ptr<Font>& font = m_fonts[name];
    if (font == nullptr)
        font.reset(new Font(findFontFile(name)));
    return *font;
}

} // namespace layouts
