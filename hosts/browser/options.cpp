// The command line of browser_host.
#include "options.h"

#include <CLI/CLI.hpp>

namespace host
{

namespace
{

const int kUsageError = 2;

} // namespace

std::optional<Options> readOptions(int argc, char** argv, int& status)
{
    CLI::App app(
        "Web pages on a DirectFB screen, with the on-screen keyboard and a remote control.\n"
        "Arrows and OK (Enter) move and follow, Back (Escape) goes back and then ends.\n"
        "DFBARGS chooses the screen, such as system=x11,mode=1920x1080,quiet,no-cursor.");
    app.name("browser_host");
    Options options;
    app.add_option("url", options.url, "The page to open; without one, a start page")
        ->type_name("URL");
    app.add_option("--play", options.play, "Play the steps in FILE, then end")->type_name("FILE");
    CLI::Option* play = app.get_option("--play");
    app.add_option("--patience", options.patience, "Seconds that a played step may take")
        ->check(CLI::Range(1, 3600))
        ->needs(play)
        ->type_name("SECONDS")
        ->capture_default_str();
    app.add_option("--record", options.record, "Keep what was shown: FILE.gif, or FILE-NNN.png")
        ->needs(play)
        ->type_name("FILE");
    app.add_option("--log", options.log, "Append the keyboard's log lines to FILE")
        ->type_name("FILE");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        status = app.exit(error) == 0 ? 0 : kUsageError;
        return std::nullopt;
    }
    return options;
}

} // namespace host
