#include "options.h"

#include "program.h"

namespace host
{

namespace
{

struct ModeName {
    const char* name;
    PictureMode mode;
};

const ModeName kPictureModes[] = {
    {"auto", PictureMode::Auto},       {"sixel", PictureMode::Sixel}, {"kitty", PictureMode::Kitty},
    {"symbols", PictureMode::Symbols}, {"none", PictureMode::None},
};

PictureMode pictureMode(const std::string& name)
{
    for (const ModeName& each : kPictureModes)
        if (name == each.name)
            return each.mode;
    throw CLI::ValidationError("--picture: found " + name +
                               ", expected auto, sixel, kitty, symbols or none");
}

} // namespace

std::optional<Options> readOptions(int argc, char** argv, int& status)
{
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
    app.add_option_function<std::string>(
           "--picture", [&](const std::string& name) { options.picture = pictureMode(name); },
           "How to show the keyboard: auto, sixel, kitty, symbols; none shows nothing")
        ->type_name("KIND");
    app.add_option("--delay", options.delay, "Milliseconds between two played presses")
        ->check(CLI::Range(0, 10000))
        ->type_name("MS")
        ->capture_default_str();
    if (const std::optional<int> end = program::readOptions(app, argc, argv)) {
        status = *end;
        return std::nullopt;
    }
    if (type->count() > 0)
        options.type = text;
    return options;
}

} // namespace host
