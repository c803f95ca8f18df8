#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

#include "host_log.h"
#include "screen.h"
#include "text_line.h"

#include "interactive.h"
#include "keyboard_host.h"
#include "keyboard_model.h"
#include "options.h"
#include "planner.h"
#include "recorder.h"
#include "session.h"
#include "standard_input.h"
#include "terminal_mode.h"
#include "terminal_view.h"

using namespace host;

namespace
{

const int kGivenUp = 1;
const int kCannotRun = 2;
const int kLastFrameMilliseconds = 2500; // of a recording: long enough to read the text

// The size that the keyboard's place is made for; the dummy system has no display.
const Screen::Option kScreenOptions[] = {
    {"system", "dummy"},    {"mode", "1920x1080"},      {"quiet", nullptr},
    {"no-cursor", nullptr}, {"no-sighandler", nullptr}, {"no-deinit-check", nullptr},
    {nullptr, nullptr},
};

int fail(const std::string& message)
{
    std::fprintf(stderr, "terminal_host: %s\n", message.c_str());
    return kCannotRun;
}

std::string describe(const std::string& character)
{
    return character == "\n" ? "a line end" : "'" + character + "'";
}

std::string whyNot(const Plan& plan, const KeyboardModel& model)
{
    std::string names;
    for (const Layout& layout : model.layouts())
        names += (names.empty() ? "" : ", ") + layout.name;
    const std::string found = plan.obstacle.empty() ? "no way to an Enter key"
                                                    : "no way to type " + describe(plan.obstacle);
    return "--type: " + found + ", expected characters of the installed layouts (" + names +
           "); install the layout that has it";
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
    const char* name = startedWithInput() ? ::ttyname(STDIN_FILENO) : nullptr;
    return name == nullptr ? -1 : ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
}

void pause(int milliseconds)
{
    timespec rest = {milliseconds / 1000, milliseconds % 1000 * 1000000L};
    while (::nanosleep(&rest, &rest) != 0) {
    }
}

bool play(const Plan& plan, Session& session, bool isSeen, int delay)
{
    session.draw();
    session.record(delay);
    for (const Press& press : plan.presses) {
        if (isSeen)
            pause(delay);
        const bool isLast = &press == &plan.presses.back();
        if (session.press(press, isLast ? kLastFrameMilliseconds : delay) ==
            Session::Progress::Submitted)
            return true;
    }
    return false;
}

int printPlan(const Plan& plan)
{
    for (const Press press : plan.presses)
        std::puts(pressName(press));
    return 0;
}

struct Typed {
    bool submitted;
    std::string text;
};

// terminal: to be shown on, or -1.
Typed typeText(const Options& options, const Plan& plan, const KeyboardModel& model,
               const std::string& font, int terminal, const Screen& screen, KeyboardHost& keyboard,
               Recorder* recorder)
{
    std::unique_ptr<TerminalMode> mode;
    std::unique_ptr<TerminalView> view;
    if (terminal >= 0) {
        mode = std::make_unique<TerminalMode>(terminal);
        view = std::make_unique<TerminalView>(terminal, options.picture);
    }
    Session session(screen, keyboard, model, view.get(), recorder, font);
    const bool submitted = options.type ? play(plan, session, terminal >= 0, options.delay)
                                        : typeByHand(terminal, *mode, *view, keyboard, session);
    return {submitted, session.text()};
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
        plan = planTyping(model, KeyboardState(), *options.type);
        if (!plan.possible)
            return fail(whyNot(plan, model));
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
    KeyboardHost keyboard(screen, &model);
    if (!keyboard.show())
        return fail(noLayoutsMessage());
    const Typed typed = typeText(options, plan, model, font, why.empty() ? terminal : -1, screen,
                                 keyboard, recorder.get());
    keyboard.end();
    if (recorder)
        recorder->finish();
    if (!typed.submitted)
        return kGivenUp;
    std::puts(typed.text.c_str());
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
    if (std::fflush(stdout) != 0)
        status = fail(std::string("standard output: ") + std::strerror(errno));
    endProcess(status);
}
