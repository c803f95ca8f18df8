#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include <CLI/CLI.hpp>

#include "catalogue.h"
#include "checker.h"
#include "coverage.h"
#include "font_files.h"
#include "generator.h"
#include "install.h"
#include "json_file.h"
#include "language.h"
#include "preview.h"
#include "text.h"

namespace
{

using namespace layouts;

// Where the keyboard looks for its files.
const char kInstalledFolder[] = "/usr/local/opt/nerovista/resources/oskeyboard_config";

struct Resources {
    std::string path = LAYOUTS_RESOURCES;

    std::string folder() const { return path + "/oskeyboard_config"; }
    std::string table() const { return path + "/languages.tsv"; }
    std::string leftOut() const { return path + "/left_out.tsv"; }
    std::string schemas() const { return path + "/schema"; }
};

std::vector<Language> chosen(const Resources& resources, const std::vector<std::string>& names)
{
    std::vector<Language> all = readLanguages(resources.table());
    if (names.empty())
        return all;
    std::vector<Language> result;
    for (const std::string& name : names) {
        const Language* language = findLanguage(all, name);
        if (!language)
            throw std::runtime_error(name + ": not in " + resources.table() +
                                     "; add a line for it there");
        result.push_back(*language);
    }
    return result;
}

int runGenerate(const Resources& resources, const std::vector<std::string>& names,
                const std::string& to)
{
    const Catalogue grid = readCatalogue(catalogueFile(resources.folder()));
    for (const Language& language : chosen(resources, names)) {
        const std::string file = keyMapFile(to.empty() ? resources.folder() : to, language.name);
        writeFile(file, writeKeyMap(generate(language, grid)));
        std::printf("%s\n", file.c_str());
    }
    return 0;
}

struct CheckArguments {
    std::string folder;
    std::string font;
    bool ownFonts = false;
    std::string screen = "1920x1080";
};

void parseScreen(const std::string& text, CheckOptions& options)
{
    const char* end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, options.screenWidth);
    const bool hasHeight = width.ec == std::errc() && width.ptr != end && *width.ptr == 'x';
    const auto height = std::from_chars(width.ptr + (hasHeight ? 1 : 0), end, options.screenHeight);
    if (!hasHeight || height.ec != std::errc() || height.ptr != end)
        throw CLI::ValidationError("--screen", "found " + text + ", expected WxH, as in 1920x1080");
}

int report(const Findings& findings)
{
    for (const Finding& finding : findings)
        std::printf("%s\n", asLine(finding).c_str());
    return findings.empty() ? 0 : 1;
}

int runCheck(const Resources& resources, const CheckArguments& arguments)
{
    const LayoutSet set = readLayoutSet(arguments.folder);
    CheckOptions options;
    parseScreen(arguments.screen, options);
    std::vector<Language> languages = readLanguages(resources.table());
    // A catalogue of a few, with the key maps of all languages beside it.
    if (std::filesystem::equivalent(arguments.folder, resources.folder()))
        for (const Language& language : languages)
            options.known.insert(language.name);

    FontCache fonts;
    if (!arguments.font.empty())
        options.font = [&](const std::string&) { return &fonts.open(arguments.font); };
    else if (arguments.ownFonts)
        options.font = [&](const std::string& layout) -> const Font* {
            const Language* language = findLanguage(languages, layout);
            return language ? &fonts.open(language->font) : nullptr;
        };
    const Findings findings = Checker(resources.schemas()).check(set, options);
    std::fprintf(stderr, "%zu files checked, %zu findings\n", set.size(), findings.size());
    return report(findings);
}

// Where the letters of a layout lie: by face, or behind several keys, and what is missing.
struct Coverage {
    std::map<std::string, std::vector<std::string>> typed;
    std::vector<std::string> missing;
};

const char kSeveralKeys[] = "with several keys";

Coverage coverageOf(const KeyMap& keyMap, const Language& language)
{
    Coverage coverage;
    for (const Spelling& spelling : spellAll(keyMap, neededTexts(language))) {
        if (spelling.keys.empty())
            coverage.missing.push_back(spelling.text);
        else
            coverage.typed[spelling.keys.size() > 1 ? kSeveralKeys : spelling.keys[0].face->name]
                .push_back(spelling.text);
    }
    return coverage;
}

void printCoverage(const Language& language, Coverage& coverage, bool each)
{
    std::vector<std::string> groups;
    for (const Face& face : kFaces)
        groups.push_back(face.name);
    groups.push_back(kSeveralKeys);

    std::printf("%s:", language.name.c_str());
    for (const std::string& group : groups)
        std::printf(" %zu %s,", coverage.typed[group].size(), group.c_str());
    std::printf(" %zu missing\n", coverage.missing.size());
    for (const std::string& text : coverage.missing)
        std::printf("%s: %s (%s) cannot be typed\n", language.name.c_str(), text.c_str(),
                    describe(text).c_str());
    for (const std::string& group : groups) {
        if (!each || coverage.typed[group].empty())
            continue;
        std::printf("  %s:", group.c_str());
        for (const std::string& text : coverage.typed[group])
            std::printf(" %s", text.c_str());
        std::printf("\n");
    }
}

int runCoverage(const Resources& resources, const std::vector<std::string>& names,
                const std::string& folder)
{
    bool complete = true;
    for (const Language& language : chosen(resources, names)) {
        Coverage coverage = coverageOf(readKeyMap(keyMapFile(folder, language.name)), language);
        printCoverage(language, coverage, !names.empty());
        complete = complete && coverage.missing.empty();
    }
    return complete ? 0 : 1;
}

// As docs/languages.md has it.
int runList(const Resources& resources)
{
    std::printf(
        "# Languages\n\n`layouts list` writes this page. The font is one that has all labels of "
        "the layout;\n[layouts.md](layouts.md) names its package.\n\n"
        "| name | locale | keyboard | font |\n| --- | --- | --- | --- |\n");
    for (const Language& language : readLanguages(resources.table())) {
        const std::string variant =
            language.xkbVariant.empty() ? std::string() : "(" + language.xkbVariant + ")";
        std::printf("| %s | %s | %s%s | %s |\n", language.name.c_str(), language.icuName.c_str(),
                    language.xkbLayout.c_str(), variant.c_str(), language.font.c_str());
    }
    std::printf("\n## Left out\n\n| locale | why |\n| --- | --- |\n");
    for (const LeftOut& leftOut : readLeftOut(resources.leftOut()))
        std::printf("| %s | %s |\n", leftOut.icuName.c_str(), leftOut.reason.c_str());
    return 0;
}

int runPreview(const Resources& resources, const std::string& name, const std::string& folder,
               const std::string& font, const std::string& output)
{
    const std::vector<Language> languages = readLanguages(resources.table());
    const Language* language = findLanguage(languages, name);
    if (!language && font.empty())
        throw std::runtime_error(name + ": not in " + resources.table() +
                                 ", so its font is not known; give --font");
    writePreview(readKeyMap(keyMapFile(folder, name)), readCatalogue(catalogueFile(folder)),
                 findFontFile(language && font.empty() ? language->font : font),
                 output.empty() ? name + ".png" : output);
    return 0;
}

int runInstall(const Resources& resources, const std::vector<std::string>& names,
               const std::string& to)
{
    if (std::filesystem::exists(to) && std::filesystem::equivalent(to, resources.folder()))
        throw std::runtime_error(to + ": is where the layouts come from, and all others would be "
                                      "lost; give another folder with --to");
    const LayoutSet set = selectLayouts(readLayoutSet(resources.folder()), names);
    const Findings findings = Checker(resources.schemas()).check(set, CheckOptions());
    if (!findings.empty()) {
        std::fprintf(stderr, "nothing installed, as the set has faults:\n");
        return report(findings);
    }
    installSet(set, to);
    return 0;
}

int run(int argc, char** argv)
{
    Resources resources;
    CLI::App app("Makes, checks and shows keyboard layouts; docs/layouts.md is the manual",
                 "layouts");
    app.require_subcommand(1);
    app.add_option("--resources", resources.path,
                   "Folder with languages.tsv, oskeyboard_config/ and schema/")
        ->check(CLI::ExistingDirectory);
    int status = 0;

    std::vector<std::string> names;
    std::string to;
    bool all = false;
    CLI::App* generate = app.add_subcommand("generate", "Write the key maps of languages");
    generate->add_option("LANGUAGE", names, "Names from the language table");
    generate->add_flag("--all", all, "Every language of the table");
    generate->add_option("--to", to, "Folder to write to instead of the shipped one")
        ->check(CLI::ExistingDirectory);
    generate->callback([&] {
        if (names.empty() != all)
            throw CLI::ValidationError("generate", "name languages or give --all");
        status = runGenerate(resources, names, to);
    });

    CheckArguments check;
    CLI::App* checkCommand =
        app.add_subcommand("check", "Say everything that is wrong in a folder of layout files");
    checkCommand->add_option("DIR", check.folder, "Folder with Language_Name.json")
        ->required()
        ->check(CLI::ExistingDirectory);
    CLI::Option* font = checkCommand->add_option(
        "--font", check.font, "Measure the labels with this font, a file or its name");
    checkCommand
        ->add_flag("--fonts", check.ownFonts,
                   "Measure each layout's labels with the font that the language table names")
        ->excludes(font);
    checkCommand->add_option("--screen", check.screen, "Size of the screen in pixels")
        ->capture_default_str();
    checkCommand->callback([&] { status = runCheck(resources, check); });

    std::string from;
    const auto folder = [&] { return from.empty() ? resources.folder() : from; };
    CLI::App* coverage = app.add_subcommand(
        "coverage", "Say which letters of a language can be typed, and on which face");
    coverage->add_option("LANGUAGE", names, "Names from the language table; all without any");
    coverage->add_option("--from", from, "Folder with the key maps")->check(CLI::ExistingDirectory);
    coverage->callback([&] { status = runCoverage(resources, names, folder()); });

    app.add_subcommand("list", "List the languages, as in docs/languages.md")->callback([&] {
        status = runList(resources);
    });

    std::string name;
    std::string previewFont;
    std::string output;
    CLI::App* preview = app.add_subcommand("preview", "Draw the four faces of a layout as a PNG");
    preview->add_option("NAME", name, "Name of the layout")->required();
    preview->add_option("-o,--output", output, "The picture; NAME.png without it");
    preview->add_option("--font", previewFont, "Font file; without it, the language table's");
    preview->add_option("--from", from, "Folder with catalogue and key map")
        ->check(CLI::ExistingDirectory);
    preview->callback([&] { status = runPreview(resources, name, folder(), previewFont, output); });

    std::string target = kInstalledFolder;
    CLI::App* install =
        app.add_subcommand("install", "Install just these layouts, the first one first");
    install->add_option("NAME", names, "Names of layouts")->required();
    install->add_option("--to", target, "Folder to install to")->capture_default_str();
    install->callback([&] { status = runInstall(resources, names, target); });

    try {
        app.parse(argc, argv);
    } catch (const CLI::Error& error) {
        return app.exit(error);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "layouts: %s\n", error.what());
        return 1;
    }
    return status;
}

} // namespace

// Drawing leaves DirectFB's threads running. exit() would take its libraries apart under them,
// which crashes now and then; so this ends at once.
int main(int argc, char** argv)
{
    const int status = run(argc, argv);
    std::fflush(nullptr);
    std::_Exit(status);
}
