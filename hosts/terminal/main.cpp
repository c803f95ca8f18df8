// Types a line of text with the on-screen keyboard, in a terminal or without one.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <string>

#include <fcntl.h>
#include <unistd.h>

#include "host_log.h"
#include "screen.h"
#include "text_line.h"

#include "interactive.h"
#include "keyboard_host.h"
#include "keyboard_model.h"
#include "options.h"
#include "planner.h"
#include "program.h"
#include "progress.h"
#include "recorder.h"
#include "session.h"
#include "standard_streams.h"
#include "terminal_events.h"
#include "terminal_mode.h"
#include "terminal_view.h"
#include "unseen_painting.h"
#include "untypable.h"

using namespace host;

namespace
{

const char kName[] = "terminal_host";
const int kGivenUp = 1;

// The size that the keyboard's place is made for; the dummy system has no display.
const Screen::Option kScreenOptions[] = {
    {"system", "dummy"},    {"mode", "1920x1080"},      {"quiet", nullptr},
    {"no-cursor", nullptr}, {"no-sighandler", nullptr}, {"no-deinit-check", nullptr},
    {nullptr, nullptr},
};

int fail(const std::string& message)
{
    return program::fail(kName, message);
}

// Why the keyboard cannot be shown on this terminal; empty when it can.
std::string whyNotShown(int terminal, const Options& options)
{
    const std::string advice = "; use --type TEXT to type without one";
    if (options.picture == PictureMode::None)
        return "--picture none: there is nothing to type with" + advice;
    if (terminal < 0)
        return "standard input: found no terminal, expected one to read keys from" + advice;
    const char* kind = std::getenv("TERM");
    if (kind == nullptr || *kind == '\0' || std::strcmp(kind, "dumb") == 0)
        return std::string("TERM: found ") +
               (kind == nullptr ? "nothing" : "'" + std::string(kind) + "'") +
               ", expected a terminal that can move its cursor, such as xterm" + advice;
    return "";
}

// The terminal that keys come from, to draw on; -1 when standard input is none.
int openTerminal()
{
    const char* name = program::startedWithInput() ? ::ttyname(STDIN_FILENO) : nullptr;
    return name == nullptr ? -1 : ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
}

// The plan's presses where nobody sees them.
Outcome playUnseen(const Plan& plan, int delay, Session& session)
{
    const int kLastFrameMilliseconds = 2500; // of a recording: long enough to read the text
    Progress progress(plan.presses.size());
    session.record(delay);
    for (const Press& press : plan.presses) {
        progress.step();
        const bool isLast = &press == &plan.presses.back();
        if (session.press(press, isLast ? kLastFrameMilliseconds : delay) ==
            Session::Progress::Submitted)
            return Outcome::Submitted;
    }
    return Outcome::GivenUp;
}

int printPlan(const Plan& plan)
{
    for (const Press press : plan.presses)
        std::puts(pressName(press));
    return 0;
}

// On a terminal, which gets back what it had at the end.
Outcome typeOnTerminal(const Options& options, const Plan& plan, int terminal,
                       KeyboardHost& keyboard, TerminalView& view, Session& session)
{
    TerminalMode mode(terminal);
    TerminalEvents events(terminal, mode);
    return options.type ? play(plan, options.delay, events, view, session)
                        : typeByHand(events, view, keyboard, session);
}

int run(const Options& options)
{
    if (!options.log.empty() && !openLog(options.log))
        return fail(options.log + ": cannot be opened for the log: " + std::strerror(errno));

    const KeyboardModel model(installedLayouts());
    if (model.layouts().empty())
        return fail(noLayoutsMessage());
    Plan plan;
    if (options.type) {
        if (!isUtf8(*options.type))
            return fail("--type: found bytes that are no UTF-8, expected text in UTF-8; "
                        "is the terminal's character set another one?");
        plan = planComposing(model, Spelling(model), KeyboardState(), *options.type);
        if (!plan.possible)
            return fail("--type: " + whyNotTyped(plan, model));
    }
    if (options.plan)
        return printPlan(plan);

    const int terminal = openTerminal();
    const std::string why = whyNotShown(terminal, options);
    if (!why.empty() && !options.type)
        return fail(why);
    const std::string font = chooseFont();
    if (font.empty())
        return fail(noFontMessage());

    std::unique_ptr<Recorder> recorder;
    if (!options.record.empty())
        recorder = makeRecorder(options.record);
    const Screen screen(kScreenOptions);
    if (!why.empty() && !recorder)
        leaveOutPainting(screen.directFB());
    Composer composer(screen, font, inputSettings(kName));
    KeyboardHost keyboard(screen, &model, &composer);
    if (!keyboard.show())
        return fail(noLayoutsMessage());
    std::unique_ptr<TerminalView> view;
    if (why.empty())
        view = std::make_unique<TerminalView>(terminal, options.picture);
    Session session(screen, keyboard, model, view.get(), recorder.get(), font);
    const Outcome outcome = view ? typeOnTerminal(options, plan, terminal, keyboard, *view, session)
                                 : playUnseen(plan, options.delay, session);
    keyboard.end();
    if (recorder)
        recorder->finish();
    if (outcome == Outcome::NotUtf8)
        return fail("the terminal shows letters beyond ASCII as others, expected one in UTF-8; use "
                    "--type TEXT --picture none to type without it");
    if (outcome == Outcome::GivenUp)
        return kGivenUp;
    std::puts(session.text().c_str());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    int status = 0;
    const std::optional<Options> options = readOptions(argc, argv, status);
    if (!options)
        return status;
    try {
        status = run(*options);
    } catch (const std::exception& error) {
        status = fail(error.what());
    }
    endProcess(program::flushOutput(kName, status));
}
