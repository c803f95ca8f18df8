// layouts install: puts chosen layouts into a folder.
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>

#include <CLI/CLI.hpp>

#include "checker.h"
#include "commands.h"
#include "font_files.h"
#include "install.h"
#include "keyboard_constants.h"
#include "lookup.h"
#include "resources.h"
#include "territory.h"

namespace layouts
{
namespace
{

struct Arguments {
    std::vector<std::string> names;
    std::string country;
    std::string font;
    std::string to = velmora::browser::vkb::kLayoutFolder;
};

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

// The country's languages first, then those that were named, each once.
std::vector<std::string> chosenLayouts(const Resources& resources, const Arguments& arguments)
{
    const std::vector<Language> languages = readLanguages(resources.table());
    std::vector<std::string> chosen;
    const auto add = [&chosen](const Language& language) {
        if (std::find(chosen.begin(), chosen.end(), language.name) == chosen.end())
            chosen.push_back(language.name);
    };
    if (!arguments.country.empty()) {
        const Territory territory = territoryOf(languages, arguments.country);
        for (const Language* language : territory.languages)
            add(*language);
        if (!territory.others.empty())
            std::printf("No layout for: %s\n", joined(territory.others).c_str());
    }
    for (const std::string& name : arguments.names)
        add(meantLanguage(languages, name));
    if (chosen.empty() && !arguments.country.empty())
        throw std::runtime_error(arguments.country +
                                 ": CLDR has no language for this country, expected names");
    if (chosen.empty())
        throw std::runtime_error("found no layout to install, expected names or a --country");
    return chosen;
}

Findings checked(const Resources& resources, const LayoutSet& set, const Font* font)
{
    CheckOptions options;
    if (font != nullptr)
        options.font = [font](const std::string&) { return font; };
    return Checker(resources.schemas()).check(set, options);
}

// The fonts of the language table, the one for the most languages first.
std::vector<std::string> fontNames(const Resources& resources)
{
    std::map<std::string, size_t> uses;
    for (const Language& language : readLanguages(resources.table()))
        ++uses[language.font];
    std::vector<std::string> names;
    names.reserve(uses.size());
    for (const auto& use : uses)
        names.push_back(use.first);
    std::stable_sort(names.begin(), names.end(),
                     [&uses](const auto& a, const auto& b) { return uses[a] > uses[b]; });
    return names;
}

// The keyboard has one font for all its languages, so say which one has all their labels.
void tellFont(const Resources& resources, const LayoutSet& set)
{
    FontCache fonts;
    std::string best;
    Findings fewest;
    for (const std::string& name : fontNames(resources)) {
        const Font* font = nullptr;
        try {
            font = &fonts.open(name);
        } catch (const std::runtime_error&) {
            std::printf("Not tried, as it is not installed: %s\n", name.c_str());
            continue;
        }
        const Findings findings = checked(resources, set, font);
        if (best.empty() || findings.size() < fewest.size()) {
            best = name;
            fewest = findings;
        }
        if (findings.empty())
            break;
    }
    if (best.empty())
        return;
    if (fewest.empty()) {
        std::printf("One font shows all labels: %s\n", findFontFile(best).c_str());
        return;
    }
    std::map<std::string, size_t> byFile;
    for (const Finding& finding : fewest)
        ++byFile[finding.file];
    std::vector<std::string> lacking;
    lacking.reserve(byFile.size());
    for (const auto& file : byFile)
        lacking.push_back(file.first + " " + std::to_string(file.second));
    std::printf("No font of the language table shows all labels. The nearest is %s; faults: %s\n",
                findFontFile(best).c_str(), joined(lacking).c_str());
}

void refuseFolder(const Resources& resources, const std::string& folder)
{
    namespace fs = std::filesystem;
    std::error_code error;
    if (fs::equivalent(folder, resources.folder(), error))
        throw std::runtime_error(folder +
                                 ": is where the layouts come from, and all others would be lost; "
                                 "give another folder with --to");
    fs::path there = fs::absolute(folder);
    while (there.has_relative_path() && access(there.c_str(), F_OK) != 0 && errno == ENOENT)
        there = there.parent_path();
    if (access(there.c_str(), W_OK) != 0)
        throw std::runtime_error(there.string() + ": is not yours to write; run the command as "
                                                  "root, or give another folder with --to");
}

int run(const Resources& resources, const Arguments& arguments)
{
    refuseFolder(resources, arguments.to);
    const std::vector<std::string> names = chosenLayouts(resources, arguments);
    const LayoutSet set = selectLayouts(readLayoutSet(resources.folder()), names);
    FontCache fonts;
    const Findings findings =
        checked(resources, set, arguments.font.empty() ? nullptr : &fonts.open(arguments.font));
    if (!findings.empty()) {
        std::fprintf(stderr, "nothing installed, as the set has faults:\n");
        return report(findings);
    }
    installSet(set, arguments.to);
    std::printf("Installed in %s: %s\n", arguments.to.c_str(), joined(names).c_str());
    if (arguments.font.empty())
        tellFont(resources, set);
    return 0;
}

} // namespace

void addInstall(CLI::App& app, const Resources& resources, int& status)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        app.add_subcommand("install", "Install just these layouts, the first one first");
    command->add_option("NAME", arguments->names,
                        "Names of layouts, their codes or own names: French, fr, français");
    command->add_option("--country", arguments->country,
                        "Its languages, the most spoken first: those that are official or that "
                        "one in a hundred speaks; CH, for one");
    command->add_option("--font", arguments->font,
                        "Install only what this font, a file or its name, can show");
    command->add_option("--to", arguments->to, "Folder to install to")->capture_default_str();
    command->callback([&resources, &status, arguments] { status = run(resources, *arguments); });
}

} // namespace layouts
