#include <cstdio>
#include <exception>

#include <CLI/CLI.hpp>

#include "catalogue.h"
#include "generator.h"
#include "json_file.h"
#include "language.h"

namespace
{

using namespace layouts;

struct Options {
    std::string resources = LAYOUTS_RESOURCES;
    std::string folder() const { return resources + "/oskeyboard_config"; }
    std::string table() const { return resources + "/languages.tsv"; }
};

std::vector<Language> chosen(const Options& options, const std::vector<std::string>& names)
{
    const std::vector<Language> all = readLanguages(options.table());
    if (names.empty())
        return all;
    std::vector<Language> result;
    for (const std::string& name : names) {
        const Language* language = findLanguage(all, name);
        if (!language)
            throw std::runtime_error(name + ": not in " + options.table() +
                                     "; add a line for it there");
        result.push_back(*language);
    }
    return result;
}

void runGenerate(const Options& options, const std::vector<std::string>& names,
                 const std::string& to)
{
    const Catalogue grid = readCatalogue(catalogueFile(options.folder()));
    for (const Language& language : chosen(options, names))
        writeFile(keyMapFile(to.empty() ? options.folder() : to, language.name),
                  writeKeyMap(generate(language, grid)));
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    CLI::App app("Makes, checks and shows keyboard layouts", "layouts");
    app.require_subcommand(1);
    app.add_option("--resources", options.resources,
                   "Folder with languages.tsv and oskeyboard_config/")
        ->check(CLI::ExistingDirectory);

    std::vector<std::string> names;
    bool all = false;
    std::string to;
    CLI::App* generate = app.add_subcommand("generate", "Write the key maps of languages");
    generate->add_option("LANGUAGE", names, "Names from the language table");
    generate->add_flag("--all", all, "Every language of the table");
    generate->add_option("--to", to, "Folder to write to instead of the shipped one");
    generate->callback([&] {
        if (names.empty() != all)
            throw CLI::ValidationError("generate", "name languages or give --all");
        runGenerate(options, names, to);
    });

    try {
        app.parse(argc, argv);
    } catch (const CLI::Error& error) {
        return app.exit(error);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "layouts: %s\n", error.what());
        return 1;
    }
    return 0;
}
