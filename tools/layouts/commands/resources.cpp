// Where the commands find the shipped files.
#include "resources.h"

#include <stdexcept>

namespace layouts
{

Resources::Resources() : path(LAYOUTS_RESOURCES) {}

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
