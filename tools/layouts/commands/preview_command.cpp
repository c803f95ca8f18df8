// layouts preview: draws a layout.
#include <memory>
#include <stdexcept>

#include <CLI/CLI.hpp>

#include "catalogue.h"
#include "commands.h"
#include "font_files.h"
#include "key_map.h"
#include "layout_set.h"
#include "preview.h"
#include "resources.h"

namespace layouts
{
namespace
{

struct Arguments {
    std::string name;
    std::string output;
    std::string font;
    std::string from;
};

void run(const Resources& resources, const Arguments& arguments)
{
    const std::string folder = arguments.from.empty() ? resources.folder() : arguments.from;
    const std::vector<Language> languages = readLanguages(resources.table());
    std::string font = arguments.font;
    if (font.empty()) {
        const Language* language = findLanguage(languages, arguments.name);
        if (language == nullptr)
            throw std::runtime_error(arguments.name + ": not in " + resources.table() +
                                     ", so its font is not known; give --font");
        font = language->font;
    }
    writePreview(readKeyMap(keyMapFile(folder, arguments.name)),
                 readCatalogue(catalogueFile(folder)), findFontFile(font),
                 arguments.output.empty() ? arguments.name + ".png" : arguments.output);
}

} // namespace

void addPreview(CLI::App& app, const Resources& resources, int&)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand("preview", "Draw the four faces of a layout as a PNG");
    command->add_option("NAME", arguments->name, "Name of the layout")->required();
    command->add_option("-o,--output", arguments->output, "The picture; NAME.png without it");
    command->add_option("--font", arguments->font, "Font file; without it, the language table's");
    command->add_option("--from", arguments->from, "Folder with catalogue and key map")
        ->check(CLI::ExistingDirectory);
    command->callback([&resources, arguments] { run(resources, *arguments); });
}

} // namespace layouts
