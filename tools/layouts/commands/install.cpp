// Makes a set of chosen layouts and puts it into a folder.
#include "install.h"

#include <filesystem>
#include <map>
#include <stdexcept>
#include <system_error>

#include "catalogue.h"
#include "json_file.h"
#include "schema_check.h"

namespace layouts
{
namespace
{

namespace fs = std::filesystem;

// Nobody finds these any more.
void removeUnlisted(const LayoutSet& set, const std::string& folder)
{
    for (const auto& file : readLayoutSet(folder))
        if (!set.count(file.first))
            fs::remove(fs::path(folder) / file.first);
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

void installSet(const LayoutSet& set, const std::string& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw std::runtime_error(folder + ": cannot be made: " + error.message() +
                                 "; choose another folder");
    std::map<std::string, std::string> temporaries; // by the file whose place each takes
    try {
        for (const auto& file : set) {
            const std::string path = folder + "/" + file.first;
            temporaries[path] = writeBeside(path, file.second);
        }
    } catch (...) {
        for (const auto& temporary : temporaries)
            fs::remove(temporary.second);
        throw;
    }
    // The catalogue last: what it lists is there when it is.
    const std::string catalogue = catalogueFile(folder);
    for (const auto& temporary : temporaries)
        if (temporary.first != catalogue)
            putInPlace(temporary.second, temporary.first);
    putInPlace(temporaries.at(catalogue), catalogue);
    removeUnlisted(set, folder);
}

} // namespace layouts
