// Looks for a character in layout files that are not installed. The files' text is enough to tell.
#include "layout_search.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistr.h>

#include "keyboard_constants.h"
#include "text_line.h"

namespace host
{

namespace fs = std::filesystem;
using namespace velmora::browser::vkb;

namespace
{

const std::string kPrefix = "Language_";
const std::string kSuffix = ".json";

// Of the program's own installation, where there is one.
fs::path folder()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path all =
        program.parent_path().parent_path() / "share" / "velmora_vkb" / "oskeyboard_config";
    return !error && fs::is_directory(all, error) ? all : fs::path(kLayoutFolder);
}

std::vector<std::string> codePoints(const std::string& utf8)
{
    std::vector<std::string> result;
    const uint8_t* bytes = reinterpret_cast<const uint8_t*>(utf8.data());
    for (size_t at = 0; at < utf8.size();) {
        const size_t length =
            static_cast<size_t>(std::max(1, u8_mblen(bytes + at, utf8.size() - at)));
        result.push_back(utf8.substr(at, length));
        at += length;
    }
    return result;
}

bool hasKey(const std::string& file, const std::string& label)
{
    return file.find("\"" + label + "\"") != std::string::npos;
}

bool types(const std::string& file, const std::string& character)
{
    if (hasKey(file, character))
        return true;
    const std::vector<std::string> parts = codePoints(decomposed(character));
    return std::all_of(parts.begin(), parts.end(),
                       [&](const std::string& part) { return hasKey(file, part); });
}

} // namespace

std::vector<std::string> layoutsWith(const std::string& character,
                                     const std::vector<std::string>& leftOut)
{
    std::vector<std::string> found;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder(), error)) {
        const std::string file = entry.path().filename().string();
        if (file.size() <= kPrefix.size() + kSuffix.size() || file.rfind(kPrefix, 0) != 0)
            continue;
        const std::string name =
            file.substr(kPrefix.size(), file.size() - kPrefix.size() - kSuffix.size());
        if (std::find(leftOut.begin(), leftOut.end(), name) != leftOut.end())
            continue;
        std::ostringstream text;
        text << std::ifstream(entry.path()).rdbuf();
        if (types(text.str(), character))
            found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace host
