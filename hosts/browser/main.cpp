// A television's browser with the on-screen keyboard.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <memory>
#include <stdexcept>

#include <glib.h>

#include "host_log.h"
#include "keyboard_model.h"
#include "screen.h"

#include "browser.h"
#include "options.h"
#include "player.h"
#include "recording.h"
#include "remote_input.h"
#include "start_page.h"
#include "steps.h"

using namespace host;

namespace
{

const int kStepFailed = 1;
const int kCannotRun = 2;

const Screen::Option kScreenOptions[] = {{"no-deinit-check", nullptr}, {nullptr, nullptr}};

void complain(const std::string& message)
{
    std::fprintf(stderr, "browser_host: %s\n", message.c_str());
}

// What the main loop ends with.
struct Outcome {
    GMainLoop* loop;
    int status = 0;

    void end(int how)
    {
        status = how;
        g_main_loop_quit(loop);
    }
};

int run(const Options& options)
{
    if (!options.log.empty() && !openLog(options.log))
        throw std::runtime_error(options.log +
                                 ": cannot be opened for the log: " + std::strerror(errno));
    std::vector<Step> steps;
    if (!options.play.empty())
        steps = readSteps(options.play);
    const KeyboardModel model(installedLayouts());
    const bool sandbox = canSandbox();
    if (!sandbox)
        complain("this system forbids the engine's sandbox, so pages run without it");

    const Screen screen(kScreenOptions);
    Outcome outcome = {g_main_loop_new(nullptr, FALSE)};
    Browser browser(screen, model,
                    {chooseFont(), sandbox, [&outcome] { outcome.end(0); }, complain, nullptr});
    const RemoteInput remote(screen.directFB(), [&browser](const RemoteKey& key, bool isHeld) {
        browser.press(key, isHeld);
    });
    std::unique_ptr<Recording> recording;
    if (!options.record.empty()) {
        recording = std::make_unique<Recording>(screen, chooseFont(), options.record);
        browser.hideCaret();
    }
    Player player({screen, model, browser, recording.get()}, steps, options.patience,
                  [&outcome](const std::string& failure) {
                      if (!failure.empty())
                          complain(failure);
                      outcome.end(failure.empty() ? 0 : kStepFailed);
                  });

    browser.open(options.url.empty() ? startPage() : urlOf(options.url));
    if (!options.play.empty())
        player.start();
    g_main_loop_run(outcome.loop);
    if (recording)
        recording->finish();
    return outcome.status;
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
        complain(error.what());
        status = kCannotRun;
    }
    endProcess(status);
}
