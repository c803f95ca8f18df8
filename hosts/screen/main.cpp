// A page with a text field on a DirectFB screen, for a remote control or a keyboard in its place.
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "host_log.h"
#include "keyboard_model.h"
#include "planner.h"
#include "program.h"
#include "screen.h"
#include "untypable.h"

#include "form.h"
#include "player.h"
#include "remote_keys.h"

using namespace host;

namespace
{

const char kName[] = "screen_host";
const int kGivenUp = 1;

const Screen::Option kScreenOptions[] = {{"no-deinit-check", nullptr}, {nullptr, nullptr}};

struct Options {
    std::string log;
    std::string type;
    std::vector<std::string> record;
};

int fail(const std::string& message)
{
    return program::fail(kName, message);
}

Form::Progress serve(const Screen& screen, Form& form)
{
    IDirectFBEventBuffer* events = nullptr;
    require(screen.directFB()->CreateInputEventBuffer(screen.directFB(), DICAPS_KEYS, DFB_TRUE,
                                                      &events),
            "CreateInputEventBuffer");
    std::fputs("screen_host: ready; OK or Enter enters the field, Back or Escape leaves\n", stderr);
    while (events->WaitForEvent(events) == DFB_OK) {
        DFBInputEvent event = {};
        while (events->GetEvent(events, DFB_EVENT(&event)) == DFB_OK) {
            if (event.type == DIET_KEYRELEASE)
                form.release();
            if (event.type != DIET_KEYPRESS)
                continue;
            const Form::Progress progress = form.press(remoteKey(event.key_symbol));
            if (progress != Form::Progress::Goes) {
                form.end(progress);
                return progress;
            }
        }
    }
    return Form::Progress::Left;
}

int run(const Options& options)
{
    if (!options.log.empty() && !openLog(options.log))
        return fail(options.log + ": cannot be opened for the log");
    const std::string font = chooseFont();
    if (font.empty())
        return fail(noFontMessage());
    const KeyboardModel model(installedLayouts());
    Plan plan;
    if (!options.type.empty() && !model.layouts().empty()) {
        plan = planComposing(model, Spelling(model), KeyboardState(), options.type);
        if (!plan.possible)
            return fail("--type: " + whyNotTyped(plan, model));
    }

    const Screen screen(kScreenOptions);
    Form form(screen, model, font);
    if (!form.hasKeyboard())
        return fail(noLayoutsMessage());
    const Form::Progress progress = options.type.empty()
                                        ? serve(screen, form)
                                        : Player(form, screen, options.record).play(plan);
    if (progress != Form::Progress::Submitted)
        return kGivenUp;
    std::puts(form.text().c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("A page with a text field and the on-screen keyboard, on a DirectFB screen.\n"
                 "DFBARGS chooses the screen, such as system=x11,mode=1920x1080,quiet,no-cursor.\n"
                 "The submitted text goes to standard output.");
    app.name(kName);
    Options options;
    app.add_option("--log", options.log, "Append the keyboard's log lines to FILE")
        ->type_name("FILE");
    CLI::Option* type =
        app.add_option("--type", options.type, "Play the shortest row of presses that types TEXT")
            ->type_name("TEXT");
    app.add_option("--record", options.record,
                   "Keep what --type shows: FILE.gif, or FILE.png for FILE-001.png ...; at once, "
                   "not at a viewer's pace")
        ->type_name("FILE")
        ->needs(type)
        ->allow_extra_args(false);
    if (const std::optional<int> end = program::readOptions(app, argc, argv))
        return *end;
    int status = 0;
    try {
        status = run(options);
    } catch (const std::exception& error) {
        status = fail(error.what());
    }
    endProcess(program::flushOutput(kName, status));
}
