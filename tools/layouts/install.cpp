#include "install.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <stdio.h>

#include "catalogue.h"
#include "json_file.h"

namespace layouts
{
namespace
{

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& what, int error)
{
    throw std::runtime_error(what + ": " + std::strerror(error));
}

void refuseStrangers(const fs::path& folder)
{
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name != kCatalogueName && layoutOf(name).empty())
            throw std::runtime_error(entry.path().string() +
                                     ": is no layout file and would be lost; move it away first");
    }
}

void exchange(const fs::path& fresh, const fs::path& folder)
{
    if (renameat2(AT_FDCWD, fresh.c_str(), AT_FDCWD, folder.c_str(), RENAME_EXCHANGE) != 0)
        fail(folder.string() + ": cannot be exchanged with the new set beside it", errno);
}

} // namespace

LayoutSet selectLayouts(const LayoutSet& shipped, const std::vector<std::string>& names)
{
    LayoutSet set;
    for (const std::string& name : names) {
        const auto file = shipped.find(keyMapName(name));
        if (file == shipped.end())
            throw std::runtime_error(name + ": no such layout, expected one of the shipped " +
                                     keyMapName("<Name>"));
        set.insert(*file);
    }
    Json::Value root;
    Findings findings;
    const auto catalogueText = shipped.find(kCatalogueName);
    if (catalogueText == shipped.end() ||
        !parseStrictly(kCatalogueName, catalogueText->second, root, findings))
        throw std::runtime_error(std::string(kCatalogueName) +
                                 ": missing or broken among the shipped files, and it has the "
                                 "grid; run layouts check");
    Catalogue catalogue = catalogueOf(root);
    catalogue.names = names;
    set[kCatalogueName] = writeCatalogue(catalogue);
    return set;
}

void installSet(const LayoutSet& set, const std::string& folderName)
{
    fs::path folder = fs::absolute(folderName).lexically_normal();
    if (!folder.has_filename())
        folder = folder.parent_path();
    const bool replaces = fs::exists(folder);
    if (replaces)
        refuseStrangers(folder);
    fs::create_directories(folder.parent_path());

    const fs::path fresh = folder.string() + ".new";
    fs::remove_all(fresh);
    fs::create_directory(fresh);
    for (const auto& file : set)
        writeFile((fresh / file.first).string(), file.second);
    if (replaces)
        exchange(fresh, folder);
    else
        fs::rename(fresh, folder);
    fs::remove_all(fresh);
}

} // namespace layouts
