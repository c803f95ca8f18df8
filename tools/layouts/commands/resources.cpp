// Where the commands find the shipped files.
#include "resources.h"

#include <filesystem>
#include <stdexcept>

namespace layouts
{
namespace
{

namespace fs = std::filesystem;

// Beside the program where it is installed, under whatever prefix; else those of the sources.
std::string ownResources()
{
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path installed =
        (program.parent_path() / LAYOUTS_INSTALLED_RESOURCES).lexically_normal();
    return fs::is_directory(installed, error) ? installed.string() : LAYOUTS_RESOURCES;
}

} // namespace

Resources::Resources() : path(ownResources()) {}

std::vector<Language> chosenLanguages(const Resources& resources,
                                      const std::vector<std::string>& names)
{
    std::vector<Language> all = readLanguages(resources.table());
    if (names.empty())
        return all;
    std::vector<Language> result;
    for (const std::string& name : names) {
        const Language* language = findLanguage(all, name);
        if (language == nullptr)
            throw std::runtime_error(name + ": not in " + resources.table() +
                                     "; add a line for it there");
        result.push_back(*language);
    }
    return result;
}

} // namespace layouts
