// layouts check: says what is wrong in a folder of layout files.
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <memory>

#include <CLI/CLI.hpp>

#include "checker.h"
#include "commands.h"
#include "font_files.h"
#include "resources.h"

namespace layouts
{
namespace
{

struct Arguments {
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

int run(const Resources& resources, const Arguments& arguments)
{
    const LayoutSet set = readLayoutSet(arguments.folder);
    CheckOptions options;
    parseScreen(arguments.screen, options);
    const std::vector<Language> languages = readLanguages(resources.table());
    // A catalogue of a few, with the key maps of all languages beside it.
    if (std::filesystem::equivalent(arguments.folder, resources.folder()))
        for (const Language& language : languages)
            options.known.insert(language.name);

    FontCache fonts;
    if (!arguments.font.empty())
        options.font = [&](const std::string&) { return &fonts.open(arguments.font); };
    else if (arguments.ownFonts)
        options.font = [&](const std::string& layout) {
            const Language* language = findLanguage(languages, layout);
            return language != nullptr ? &fonts.open(language->font) : nullptr;
        };
    const Findings findings = Checker(resources.schemas()).check(set, options);
    std::fprintf(stderr, "%zu files checked, %zu findings\n", set.size(), findings.size());
    return report(findings);
}

} // namespace

void addCheck(CLI::App& app, const Resources& resources, int& status)
{
    const auto arguments = std::make_shared<Arguments>();
    CLI::App* command =
        app.add_subcommand("check", "Say everything that is wrong in a folder of layout files");
    command->add_option("DIR", arguments->folder, "Folder with Language_Name.json")
        ->required()
        ->check(CLI::ExistingDirectory);
    CLI::Option* font = command->add_option(
        "--font", arguments->font, "Measure the labels with this font, a file or its name");
    command
        ->add_flag("--fonts", arguments->ownFonts,
                   "Measure each layout's labels with the font that the language table names")
        ->excludes(font);
    command->add_option("--screen", arguments->screen, "Size of the screen in pixels")
        ->capture_default_str();
    command->callback([&resources, &status, arguments] { status = run(resources, *arguments); });
}

} // namespace layouts
