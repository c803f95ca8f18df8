// layouts generate: writes key maps.
#include <cstdio>
#include <map>
#include <memory>

#include <CLI/CLI.hpp>

#include "catalogue.h"
#include "commands.h"
#include "exceptions.h"
#include "generator.h"
#include "json_file.h"
#include "layout_set.h"
#include "resources.h"

namespace layouts
{
namespace
{

struct Arguments {
    std::vector<std::string> names;
    std::string to;
    bool all = false;
};

void run(const Resources& resources, const Arguments& arguments)
{
    if (arguments.names.empty() != arguments.all)
        throw CLI::ValidationError("generate", "name languages or give --all");
    const Catalogue grid = readCatalogue(catalogueFile(resources.folder()));
    const std::string folder = arguments.to.empty() ? resources.folder() : arguments.to;
    const std::vector<KeyException> exceptions =
        readExceptions(resources.exceptions(), readLanguages(resources.table()));
    // All are made before the first is written: an error leaves the folder as it was.
    std::map<std::string, std::string> texts;
    for (const Language& language : chosenLanguages(resources, arguments.names))
        texts[keyMapFile(folder, language.name)] =
            writeKeyMap(generate(language, grid, exceptions));
    for (const auto& text : texts) {
        writeFile(text.first, text.second);
        std::printf("%s\n", text.first.c_str());
    }
}

} // namespace

void addGenerate(CLI::App& app, const Resources& resources, int&)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand("generate", "Write the key maps of languages");
    command->add_option("LANGUAGE", arguments->names, "Names from the language table");
    command->add_flag("--all", arguments->all, "Every language of the table");
    command->add_option("--to", arguments->to, "Folder to write to instead of the shipped one")
        ->check(CLI::ExistingDirectory);
    command->callback([&resources, arguments] { run(resources, *arguments); });
}

} // namespace layouts
