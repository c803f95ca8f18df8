#ifndef TOOLS_LAYOUTS_COMMANDS_RESOURCES_H
#define TOOLS_LAYOUTS_COMMANDS_RESOURCES_H

#include <string>
#include <vector>

#include "language.h"

namespace layouts
{

// The folder that all commands work on.
struct Resources {
    Resources(); // those that the command was built for

    std::string path;

    std::string folder() const { return path + "/oskeyboard_config"; }
    std::string table() const { return path + "/languages.tsv"; }
    std::string exceptions() const { return path + "/exceptions.tsv"; }
    std::string leftOut() const { return path + "/left_out.tsv"; }
    std::string schemas() const { return path + "/schema"; }
};

// The lines of the table with these names, or all without any. Throws std::runtime_error for a
// name that it does not have.
std::vector<Language> chosenLanguages(const Resources& resources,
                                      const std::vector<std::string>& names);

} // namespace layouts

#endif
