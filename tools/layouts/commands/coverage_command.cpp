// layouts coverage: says what of its language a layout types, and where.
#include <cstdio>
#include <memory>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "coverage.h"
#include "key_map.h"
#include "layout_set.h"
#include "resources.h"
#include "text.h"
#include "usage.h"

namespace layouts
{
namespace
{

struct Arguments {
    std::vector<std::string> names;
    std::string from;
};

void print(const Language& language, const Coverage& coverage, const Usage& usage, bool each)
{
    std::printf("%s:", language.name.c_str());
    for (const Coverage::Group& group : coverage.groups)
        std::printf(" %zu %s,", group.texts.size(), group.name);
    std::printf(" %zu missing\n", coverage.missing.size());
    if (usage.words == 0)
        std::printf("%s: no words in the locale data\n", language.name.c_str());
    else
        std::printf("%s: %zu words, %zu cannot be typed, %.2f presses a character, %.1f%% of the "
                    "characters behind Alt\n",
                    language.name.c_str(), usage.words, usage.untypable.size(), usage.presses,
                    100 * usage.behindAlt);
    for (const std::string& text : coverage.missing)
        std::printf("%s: %s (%s) cannot be typed\n", language.name.c_str(), text.c_str(),
                    describe(text).c_str());
    for (const Coverage::Group& group : coverage.groups) {
        if (!each || group.texts.empty())
            continue;
        std::printf("  %s:", group.name);
        for (const std::string& text : group.texts)
            std::printf(" %s", text.c_str());
        std::printf("\n");
    }
}

int run(const Resources& resources, const Arguments& arguments)
{
    const std::string folder = arguments.from.empty() ? resources.folder() : arguments.from;
    int status = 0;
    for (const Language& language : chosenLanguages(resources, arguments.names)) {
        const KeyMap keyMap = readKeyMap(keyMapFile(folder, language.name));
        const Coverage coverage = coverageOf(keyMap, language);
        print(language, coverage, usageOf(keyMap, language), !arguments.names.empty());
        if (!coverage.missing.empty())
            status = 1;
    }
    return status;
}

} // namespace

void addCoverage(CLI::App& app, const Resources& resources, int& status)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command = app.add_subcommand(
        "coverage", "Say which letters of a language can be typed, and on which face");
    command->add_option("LANGUAGE", arguments->names,
                        "Names from the language table; all without any");
    command->add_option("--from", arguments->from, "Folder with the key maps")
        ->check(CLI::ExistingDirectory);
    command->callback([&resources, &status, arguments] { status = run(resources, *arguments); });
}

} // namespace layouts
