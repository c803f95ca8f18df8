// The test driver's display, and its `kbui` commands, which drive the renderer alone.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include "kb_ui_test.h"

#include <iostream>
#include <vector>

#include <time.h>
#include <unistd.h>

#include "command_line.h"
#include "directfb_check.h"
#include "elapsed_time.h"
#include "keyboard_ui.h"
#include "log.h"
#include "window_description.h"

using namespace velmora::browser::vkb;

IDirectFB* dfb = nullptr;
IDirectFBDisplayLayer* layer = nullptr;
IDirectFBSurface* surface = nullptr;

namespace
{

// Another path than the keyboard's own font: kept.
const char* const kTestFont = "/opt/font/TarvoL2700.ttf";
const int kTestFontSize = 30; // pixels

const int kDefaultPasses = 5;
const int kMaxFocusPasses = 50;
const useconds_t kShowPause = 100000;  // microseconds
const useconds_t kFocusPause = 200000; // microseconds
const unsigned int kPressPause = 1;    // seconds

const size_t kPressedKey = 3; // "d"
const size_t kLockedKey = 15; // "Shift"

struct TestKey {
    const char* text;
    Rect_t rect;
};

const TestKey kTestKeys[] = {
    {"a", {0, 0, 40, 40}},
    {"b", {50, 0, 40, 40}},
    {"c", {100, 0, 40, 40}},
    {"d", {150, 0, 40, 40}},
    {"e", {200, 0, 40, 40}},
    {"f", {250, 0, 40, 40}},
    {"g", {0, 50, 40, 40}},
    {"h", {50, 50, 40, 40}},
    {"i", {100, 50, 40, 40}},
    {"j", {150, 50, 40, 40}},
    {"k", {200, 50, 40, 40}},
    {"l", {250, 50, 40, 40}},
    {"m", {0, 100, 40, 40}},
    {"n", {50, 100, 80, 40}},
    {"space", {140, 100, 150, 40}},
    {"Shift", {0, 150, 90, 40}},
    {".com", {100, 150, 90, 40}},
    {"Enter", {200, 150, 90, 40}},
    // Glyphs outside Latin script.
    {"\xE4\xBD\xA0\xE5\xA5\xBD", {0, 200, 90, 40}},
};

// Both live until the process ends; the renderer paints from the list.
KeyBoardUI* g_test_ui = nullptr;
std::vector<Button_t> g_test_lines;

void kb_ui_test_init_lines()
{
    g_test_lines.clear();
    for (const TestKey& key : kTestKeys) {
        Button_t button = {};
        button.text = key.text;
        button.rect = key.rect;
        g_test_lines.push_back(button);
    }
}

// The slot of the log line is the command's that counts.
int countParameter(const std::string& param, const char* function)
{
    const int count = param.empty() ? kDefaultPasses : std::stoi(param);
    VKB_LOG_FORMAT(LogTrace, __LINE__, function, VKB_LOG_HEADER "param:%d\n", count);
    return count;
}

void kb_ui_test_draw(const std::string&)
{
    VKB_LOG(LogTrace, "called\n");
    g_test_ui->draw(true);
}

void kb_ui_test_hide(const std::string&)
{
    VKB_LOG(LogTrace, "called\n");
    g_test_ui->hide();
}

void kb_ui_test_show(const std::string&)
{
    VKB_LOG(LogTrace, "called\n");
    g_test_ui->show();
}

void kb_ui_test_loop_showhide(const std::string& param)
{
    const int passes = countParameter(param, __func__);
    for (int pass = 0; pass < passes; ++pass) {
        g_test_ui->show();
        usleep(kShowPause);
        g_test_ui->hide();
    }
}

void kb_ui_test_loop_draw(const std::string& param)
{
    const int passes = countParameter(param, __func__);
    for (int pass = 0; pass < passes; ++pass)
        g_test_ui->draw(true);
}

void kb_ui_test_loop_focus(const std::string& param)
{
    VKB_LOGF(LogTrace, "param:%s\n", param.c_str());
    int passes = countParameter(param, __func__);
    // A negative count is as long as the longest: kept.
    if (passes < 0 || passes > kMaxFocusPasses)
        passes = kMaxFocusPasses;

    for (int pass = 0; pass < passes; ++pass) {
        for (Button_t key : g_test_lines) {
            g_test_ui->setfocus(key);
            usleep(kFocusPause);
        }
    }
}

void kb_ui_test_press(const std::string&)
{
    Button_t key = g_test_lines[kPressedKey];
    g_test_ui->setfocus(key);
    g_test_ui->press(key);
    sleep(kPressPause);
    g_test_ui->pressed(key);
    g_test_ui->setfocus(key);
}

void kb_ui_test_lock(const std::string&)
{
    std::vector<Button_t> locked(1, g_test_lines[kLockedKey]);
    g_test_ui->setLocked(locked);
}

struct UiCommand {
    const char* name;
    void (*run)(const std::string& param);
    const char* announcement; // logged before the clock starts; null for none
    const char* timeFormat;   // whole format, with the elapsed milliseconds
};

const UiCommand kCommands[] = {
    {"draw", kb_ui_test_draw, nullptr, VKB_LOG_HEADER "=======>test_draw using:%lld ms\n"},
    {"hide", kb_ui_test_hide, nullptr, VKB_LOG_HEADER "=======>test hide using:%lld ms\n"},
    {"show", kb_ui_test_show, nullptr, VKB_LOG_HEADER "=======>test show using:%lld ms\n"},
    {"loop-showhide", kb_ui_test_loop_showhide, nullptr,
     VKB_LOG_HEADER "=======>test loop showhidew using:%lld ms\n"},
    {"loop-draw", kb_ui_test_loop_draw, nullptr,
     VKB_LOG_HEADER "=======>test loop-draw using:%lld ms\n"},
    {"loop-focus", kb_ui_test_loop_focus, "=======>test loop_focus ",
     VKB_LOG_HEADER "=======>test loop_focus using:%lld ms\n"},
    {"press", kb_ui_test_press, "=======>test press ",
     VKB_LOG_HEADER "=======>test press using:%lld ms\n"},
    {"lock", kb_ui_test_lock, "=======>lock press ",
     VKB_LOG_HEADER "=======>lock press using:%lld ms\n"},
};

void handle_tests(std::string cmd, std::string param)
{
    for (const UiCommand& command : kCommands) {
        if (cmd != command.name)
            continue;

        if (command.announcement != nullptr)
            VKB_LOGF(LogTrace, "%s\n", command.announcement);
        const timespec start = monotonicNow();
        command.run(param);
        VKB_LOG_FORMAT(LogTrace, __LINE__, __func__, command.timeFormat,
                       static_cast<long long>(elapsedMilliseconds(start, monotonicNow())));
        return;
    }
}

void get_inputs(std::string& cmd, std::string& param)
{
    VKB_LOG(LogTrace, "=>pls input cmd  [parames]\n");
    std::string line;
    std::getline(std::cin, line);
    splitCommandLine(line, cmd, param);
}

} // namespace

void initDFB(int argc, char** argv, Rect_t rect)
{
    // The window outlives this function and is never released: it stands until the process ends.
    IDirectFBWindow* window = nullptr;
    const DFBWindowDescription win_desc =
        windowDescription(rect.positionX, rect.positionY, rect.width, rect.height);

    checkDirectFB(DirectFBInit(&argc, &argv), "DirectFBInit(&argc, &argv)");
    checkDirectFB(DirectFBCreate(&dfb), "DirectFBCreate(&dfb)");
    checkDirectFB(dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer),
                  "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &layer)");
    // Set twice, before and after the window: kept.
    checkDirectFB(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE),
                  "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)");
    checkDirectFB(layer->CreateWindow(layer, &win_desc, &window),
                  "layer->CreateWindow( layer, &win_desc, &window )");
    checkDirectFB(layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE),
                  "layer->SetCooperativeLevel(layer, DLSCL_ADMINISTRATIVE)");
    checkDirectFB(window->GetSurface(window, &surface), "window->GetSurface(window,&surface)");
    checkDirectFB(window->SetOpacity(window, 0xFF), "window->SetOpacity(window, 0xFF)");
    checkDirectFB(window->RequestFocus(window), "window->RequestFocus(window)");
    checkDirectFB(window->RaiseToTop(window), "window->RaiseToTop(window)");
}

int kb_ui_test(std::string cmd, std::string param)
{
    VKB_LOGF(LogTrace, "cmd:%s,param:%s\n", cmd.c_str(), param.c_str());
    g_test_ui = new KeyBoardUI(dfb, surface);
    kb_ui_test_init_lines();
    g_test_ui->setLayoutData(&g_test_lines, kTestFontSize, kTestFont);
    if (cmd != "more") {
        handle_tests(cmd, param);
        return 0;
    }

    // The end of the input reads as empty lines, and the loop goes on: kept.
    for (;;) {
        // "press" and "lock" are not in it: kept.
        VKB_LOG(LogTrace, "usage:\t =>cmd:[show|hide|draw | loop-showhide |loop-draw | "
                          "loop-focus ] \n\n");
        std::string command;
        std::string parameter;
        get_inputs(command, parameter);
        VKB_LOGF(LogTrace, "=>cmd:[%s] [%s] \n", command.c_str(), shownParameter(parameter));
        if (command.find("quit") != std::string::npos)
            return 0;

        handle_tests(command, parameter);
    }
}
