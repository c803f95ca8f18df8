// The names of layout files, and a folder of them.
#include "layout_set.h"

#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "json_file.h"

namespace layouts
{
namespace
{

constexpr std::string_view kPrefix = "Language_";
constexpr std::string_view kSuffix = ".json";

} // namespace

const char kCatalogueName[] = "Language_Name.json";

std::string keyMapName(const std::string& layout)
{
    return std::string(kPrefix).append(layout).append(kSuffix);
}

bool isLayoutName(const std::string& name)
{
    const bool leavesFolder =
        name.find('/') != std::string::npos || name.find("..") != std::string::npos;
    return !name.empty() && !leavesFolder && name.find('\0') == std::string::npos &&
           keyMapName(name) != kCatalogueName;
}

std::string catalogueFile(const std::string& folder)
{
    return folder + "/" + kCatalogueName;
}

std::string keyMapFile(const std::string& folder, const std::string& layout)
{
    return folder + "/" + keyMapName(layout);
}

std::string layoutOf(const std::string& fileName)
{
    const size_t around = kPrefix.size() + kSuffix.size();
    if (fileName == kCatalogueName || fileName.size() < around ||
        fileName.compare(0, kPrefix.size(), kPrefix) != 0 ||
        fileName.compare(fileName.size() - kSuffix.size(), kSuffix.size(), kSuffix) != 0)
        return std::string();
    return fileName.substr(kPrefix.size(), fileName.size() - around);
}

LayoutSet readLayoutSet(const std::string& folder)
{
    if (!std::filesystem::is_directory(folder))
        throw std::runtime_error(folder + ": no such folder, expected one with " + kCatalogueName);
    LayoutSet set;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name == kCatalogueName || !layoutOf(name).empty() || name == keyMapName(""))
            set[name] = readFile(entry.path().string());
    }
    return set;
}

} // namespace layouts
