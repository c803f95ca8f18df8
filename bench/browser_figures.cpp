// What the keyboard adds to a browser: each time is taken with it and, in a process beside, of the
// engine alone that is fed by the same calls. Prints the rows that bench/run wants.
//
//   browser_figures          starts itself with each of the words below, and prints the rows
//   browser_figures with     the browser with its keyboard
//   browser_figures alone    without
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <glib.h>
#include <sys/resource.h>
#include <unistd.h>

#include "keyboard_constants.h"
#include "keyboard_model.h"
#include "screen.h"

#include "browser.h"

namespace
{

using namespace host;

const int kProcesses = 5; // of each kind, for what happens once in a process
const int kPresses = 60;
const int kShows = 10;
const int kIdleSeconds = 10;
const unsigned kLongestRun = 120; // seconds, and a process that waits in vain ends

// A caret that does not blink before the idle part, so that a picture is the answer to a press, and
// a field that holds all presses, so that each gives a picture.
const char kPage[] =
    "data:text/html,<!doctype html><style>*{caret-color:transparent;font-size:20px}"
    "input{width:1800px}</style>"
    "<input id=field><script>const tell=t=>webkit.messageHandlers.bench.postMessage(t);"
    "field.oninput=()=>tell('input');field.onfocus=()=>tell('focus');field.onblur=()=>tell('blur');"
    "onload=()=>requestAnimationFrame(()=>requestAnimationFrame(()=>tell('load')))</script>";

double now() // milliseconds
{
    return static_cast<double>(g_get_monotonic_time()) / 1000;
}

void waitFor(const std::function<bool()>& isThere)
{
    while (!isThere())
        g_main_context_iteration(nullptr, TRUE);
}

double processorTime() // milliseconds, of this process
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
}

// KiB of a process, what it shares counted by its share.
long memoryOf(const std::string& process)
{
    std::ifstream file("/proc/" + process + "/smaps_rollup");
    for (std::string word; file >> word;)
        if (word == "Pss:") {
            long size = 0;
            file >> size;
            return size;
        }
    return 0;
}

struct ProcessEntry {
    std::string name;
    std::string parent;
};

std::map<std::string, ProcessEntry> allProcesses()
{
    std::map<std::string, ProcessEntry> processes;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        std::ifstream stat(entry.path() / "stat");
        std::string number, name, state, parent;
        if (stat >> number >> name >> state >> parent)
            processes[number] = {name, parent};
    }
    return processes;
}

// Of this process and of the engine's, which are below it.
void printMemory()
{
    std::printf("memory-host %ld\n", memoryOf("self"));
    const std::map<std::string, ProcessEntry> processes = allProcesses();
    const std::string own = std::to_string(::getpid());
    for (const auto& process : processes) {
        auto above = process.second.parent;
        while (above != own && processes.count(above) > 0)
            above = processes.at(above).parent;
        if (above != own)
            continue;
        if (process.second.name.find("(WPEWeb") == 0)
            std::printf("memory-page %ld\n", memoryOf(process.first));
        if (process.second.name.find("(WPENetwork") == 0)
            std::printf("memory-network %ld\n", memoryOf(process.first));
    }
}

// One browser with the page above.
class Run
{
public:
    Run(const Screen& screen, const KeyboardModel& model)
        : m_browser(screen, model,
                    {chooseFont(), true, [] {}, [](const std::string&) {},
                     [this] {
                         ++m_pictures;
                         m_last_picture = now();
                     }})
    {
        WebKitUserContentManager* content =
            webkit_web_view_get_user_content_manager(m_browser.view());
        g_signal_connect(
            content, "script-message-received::bench",
            G_CALLBACK(+[](WebKitUserContentManager*, WebKitJavascriptResult* message, Run* run) {
                char* text = jsc_value_to_string(webkit_javascript_result_get_js_value(message));
                ++run->m_told[text];
                run->m_last_told = now();
                g_free(text);
            }),
            this);
        webkit_user_content_manager_register_script_message_handler(content, "bench");
    }

    Browser& browser() { return m_browser; }
    int pictures() const { return m_pictures; }

    void waitForLoad()
    {
        waitFor([this] { return m_told["load"] > 0; });
    }

    // Milliseconds from the call until the page told it; and, where it is asked for, until its
    // picture.
    double timeTo(const std::string& what, const std::function<void()>& begin,
                  double* picture = nullptr)
    {
        const int told = m_told[what];
        const int pictures = m_pictures;
        const double start = now();
        begin();
        waitFor([&] { return m_told[what] > told; });
        const double time = m_last_told - start;
        if (picture != nullptr) {
            waitFor([&] { return m_pictures > pictures; });
            *picture = m_last_picture - start;
        }
        bool settled = false;
        m_browser.whenShown([&settled] { settled = true; });
        waitFor([&settled] { return settled; });
        return time;
    }

    double timeToScript(const std::string& what, const char* script)
    {
        return timeTo(what, [this, script] {
            webkit_web_view_run_javascript(m_browser.view(), script, nullptr, nullptr, nullptr);
        });
    }

private:
    int m_pictures = 0;
    double m_last_picture = 0;
    std::map<std::string, int> m_told;
    double m_last_told = 0;
    Browser m_browser;
};

int measure(bool withKeyboard)
{
    ::alarm(kLongestRun);
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // a reader sees how far a run got
    const double start = now();
    const Screen::Option options[] = {{"no-deinit-check", nullptr}, {nullptr, nullptr}};
    const KeyboardModel model(withKeyboard ? installedLayouts() : std::vector<Layout>());
    if (withKeyboard && model.layouts().empty())
        return 1;
    const Screen screen(options);
    Run run(screen, model);
    webkit_web_view_load_uri(run.browser().view(), kPage);
    waitFor([&run] { return run.pictures() > 0; });
    std::printf("start %f\n", now() - start);
    run.waitForLoad();

    std::printf("first-show %f\n", run.timeToScript("focus", "field.focus()"));
    for (int i = 0; i < kShows; ++i) {
        run.timeToScript("blur", "field.blur()");
        std::printf("show %f\n", run.timeToScript("focus", "field.focus()"));
    }
    if (withKeyboard != run.browser().keyboardIsShown())
        return 1;

    Browser& browser = run.browser();
    const RemoteKey right = {RemoteKey::ForKeyboard, velmora::browser::vkb::RemoteRight};
    const RemoteKey down = {RemoteKey::ForKeyboard, velmora::browser::vkb::RemoteDown};
    const RemoteKey ok = {RemoteKey::ForKeyboard, velmora::browser::vkb::RemoteOk};
    if (withKeyboard) { // to the letter q
        browser.press(down);
        browser.press(right);
    }
    for (int i = 0; i < kPresses; ++i) {
        double picture = 0;
        const double input = run.timeTo(
            "input",
            [&] {
                if (withKeyboard)
                    browser.press(ok);
                else
                    browser.input().edit({KeyAction::Insert, "q", 81, false});
            },
            &picture);
        std::printf("input %f\npixels %f\n", input, picture);
    }
    for (int i = 0; withKeyboard && i < kPresses; ++i) {
        const double pressed = now();
        browser.press(right);
        std::printf("redraw %f\n", now() - pressed);
    }

    // The caret blinks now, as on a page that nobody touches.
    webkit_web_view_run_javascript(browser.view(), "field.style.caretColor = 'auto'", nullptr,
                                   nullptr, nullptr);
    const int still = run.pictures();
    const double before = processorTime();
    bool isOver = false;
    g_timeout_add_seconds(
        kIdleSeconds,
        [](gpointer over) -> gboolean {
            *static_cast<bool*>(over) = true;
            return G_SOURCE_REMOVE;
        },
        &isOver);
    waitFor([&isOver] { return isOver; });
    std::printf("idle %f\n", (processorTime() - before) / kIdleSeconds);
    if (run.pictures() - still < kIdleSeconds)
        return 1; // it did not blink
    printMemory();
    return 0;
}

using Values = std::map<std::string, std::vector<double>>;

// Throws nothing: a run that fails leaves its values out, and that ends the program.
void collect(const std::string& program, const char* kind, Values& values)
{
    FILE* output = ::popen((program + " " + kind + " 2>/dev/null").c_str(), "r");
    char name[64];
    double value = 0;
    while (std::fscanf(output, "%63s %lf", name, &value) == 2)
        values[name].push_back(value);
    if (::pclose(output) != 0) {
        std::fprintf(stderr, "browser_figures: a run '%s' failed\n", kind);
        std::exit(1);
    }
}

double quantile(const Values& values, const std::string& name, double part)
{
    const auto found = values.find(name);
    if (found == values.end() || found->second.empty()) {
        std::fprintf(stderr, "browser_figures: '%s' was not measured\n", name.c_str());
        std::exit(1);
    }
    std::vector<double> sorted = found->second;
    std::sort(sorted.begin(), sorted.end());
    return sorted[static_cast<size_t>(part * static_cast<double>(sorted.size() - 1))];
}

std::string bothOf(const Values& values, const std::string& name)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.1f (95%%: %.1f)", quantile(values, name, 0.5),
                  quantile(values, name, 0.95));
    return text;
}

int printRows(const std::string& program)
{
    Values with, alone;
    for (int i = 0; i < kProcesses; ++i) {
        collect(program, "with", with);
        collect(program, "alone", alone);
    }

    struct Row {
        const char* name;
        const char* value;
        double atMost; // milliseconds that the keyboard may add
    };
    const Row rows[] = {
        {"browser: press to input event", "input", 8},    {"browser: press to pixels", "pixels", 8},
        {"browser: first show", "first-show", 50},        {"browser: later show", "show", 50},
        {"browser: start to first picture", "start", 50}, {"browser: idle, of a second", "idle", 1},
    };
    for (const Row& row : rows)
        std::printf("%s\t%.2f\t%g\tms\t%s ms with the keyboard - %s ms of the engine alone\n",
                    row.name, quantile(with, row.value, 0.5) - quantile(alone, row.value, 0.5),
                    row.atMost, bothOf(with, row.value).c_str(), bothOf(alone, row.value).c_str());
    std::printf("browser: arrow to redrawn\t%.2f\t8\tms\t%s ms of an arrow key on the keyboard\n",
                quantile(with, "redraw", 0.5), bothOf(with, "redraw").c_str());
    const double host = quantile(with, "memory-host", 0.5) - quantile(alone, "memory-host", 0.5);
    std::printf(
        "browser: memory\t%.0f\t8192\tKiB\t%.0f KiB of the host with the keyboard - %.0f alone; "
        "the page's process has %.0f, the network's %.0f\n",
        host, quantile(with, "memory-host", 0.5), quantile(alone, "memory-host", 0.5),
        quantile(with, "memory-page", 0.5), quantile(with, "memory-network", 0.5));
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1)
        return printRows(argv[0]);
    endProcess(measure(std::strcmp(argv[1], "with") == 0));
}
