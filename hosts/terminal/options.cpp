#include "options.h"

#include <map>

#include <CLI/CLI.hpp>

namespace host
{

namespace
{

const int kUsageError = 2;

} // namespace

std::optional<Options> readOptions(int argc, char** argv, int& status)
{
    const std::map<std::string, PictureMode> pictureModes = {
        {"auto", PictureMode::Auto},   {"sixel", PictureMode::Sixel},
        {"kitty", PictureMode::Kitty}, {"symbols", PictureMode::Symbols},
        {"none", PictureMode::None},
    };

    CLI::App app("Types a line of text with the on-screen keyboard, in a terminal.\n"
                 "Arrows move, Enter presses, Escape hides the keyboard and then leaves.\n"
                 "The submitted text goes to standard output: name=$(terminal_host)");
    app.name("terminal_host");

    Options options;
    std::string text;
    CLI::Option* type = app.add_option("--type", text, "Plan the presses for TEXT and play them");
    type->type_name("TEXT");
    app.add_flag("--plan", options.plan, "With --type: print the presses, one per line")
        ->needs(type);
    app.add_option("--record", options.record, "Keep what was shown: FILE.gif, or FILE-NNN.png")
        ->type_name("FILE");
    app.add_option("--log", options.log, "Append the keyboard's log lines to FILE")
        ->type_name("FILE");
    app.add_option("--picture", options.picture, "auto, sixel, kitty, symbols or none")
        ->transform(CLI::CheckedTransformer(pictureModes))
        ->type_name("KIND");
    app.add_option("--delay", options.delay, "Milliseconds between two played presses")
        ->check(CLI::Range(0, 10000))
        ->type_name("MS")
        ->capture_default_str();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        status = app.exit(error) == 0 ? 0 : kUsageError;
        return std::nullopt;
    }
    if (type->count() > 0)
        options.type = text;
    return options;
}

} // namespace host
