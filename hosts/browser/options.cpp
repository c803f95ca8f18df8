// The command line of browser_host.
#include "options.h"

#include "program.h"

namespace host
{

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
    if (const std::optional<int> end = program::readOptions(app, argc, argv)) {
        status = *end;
        return std::nullopt;
    }
    return options;
}

} // namespace host
