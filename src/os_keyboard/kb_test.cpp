// The test driver's `kb` commands: scripts of remote keys for one keyboard, each timed.
// Texts, function names, line numbers and the order of calls are an interface, misspellings
// included.

#include "kb_test.h"

#include <iostream>

#include <time.h>
#include <unistd.h>

#include "command_line.h"
#include "elapsed_time.h"
#include "keyboard_constants.h"
#include "keyboard_core.h"

using namespace velmora::browser::vkb;

namespace
{

const useconds_t kStepPause = 500000; // microseconds

// Never deleted and never cancelled: each command starts from what the last one left.
KeyBoardCore* g_test_core = nullptr;

// OK on the focused key, and what it yielded. The log carries the low 8 bits of the key code as
// a character, which is readable for keys that type ASCII.
void kb_test_get_key(KeyBoardCore* core)
{
    VKB_LOG_TEXT(LogTrace, 13, __func__, "called\n");
    const int result = core->onKeyEvent(RemoteOk);
    if (result == AnswerKeyResult) {
        const std::string key(1, static_cast<char>(core->getKeyBoardButton()));
        VKB_LOG_FORMAT(LogTrace, 20, __func__, VKB_LOG_HEADER "curernt key :%s\n", key.c_str());
        return;
    }
    VKB_LOG_FORMAT(LogTrace, 22, __func__, VKB_LOG_HEADER "key result :%d\n", result);
}

// What a script is made of. value is a key code or a number of seconds, where one is needed.
void press(KeyBoardCore* core, int value)
{
    core->onKeyEvent(value);
}

void rest(KeyBoardCore*, int)
{
    usleep(kStepPause);
}

void move(KeyBoardCore* core, int value)
{
    press(core, value);
    rest(core, value);
}

void probe(KeyBoardCore* core, int)
{
    kb_test_get_key(core);
}

void wait_seconds(KeyBoardCore*, int value)
{
    sleep(static_cast<unsigned int>(value));
}

void probe_and_wait(KeyBoardCore* core, int value)
{
    probe(core, value);
    wait_seconds(core, value);
}

void hide(KeyBoardCore* core, int)
{
    core->Hide();
}

void show(KeyBoardCore* core, int)
{
    core->Show();
}

// A hidden keyboard must leave OK to the page.
void expect_hidden(KeyBoardCore* core, int)
{
    if (core->onKeyEvent(RemoteOk) == AnswerNotHandled)
        VKB_LOG_TEXT(LogTrace, 295, "kb_test_hide", "Hide VKB\n");
    else
        VKB_LOG_TEXT(LogTrace, 299, "kb_test_hide", "Failed to hide VKB\n");
}

// How often a step is done, besides a fixed number of times. The count is read from the
// parameter when its step comes, after the keys before it: a bad one ends the process there.
enum Times { TimesOfParameter = -1, TimesOnceWithoutParameter = -2 };

struct Step {
    void (*act)(KeyBoardCore* core, int value);
    int value;
    int times;
};

const int kNoFirstLine = 0; // the first step logs it

struct Script {
    const char* command;
    const char* function;
    int firstLine; // of "called", or of "param:" where the command takes a count
    bool counts;
    Step steps[6]; // up to the first without an action
    int timeLine;
    const char* timeFormat; // whole format, with the elapsed milliseconds
};

// One text for five commands and one for six: kept.
const char* const kRightMoveTime = VKB_LOG_HEADER "=======>test right move using:%lld ms\n";
const char* const kShowTime = VKB_LOG_HEADER "=======>test show using:%lld ms\n";

// Written against the key positions of the default layout, from the focus on key 0. Three lines a
// command.
// clang-format off
const Script kScripts[] = {
    {"left", "kb_test_left_move", 27, true,
     {{move, RemoteLeft, TimesOfParameter}, {probe, 0, 1}},
     384, VKB_LOG_HEADER "=======>test left move using:%lld ms\n"},
    {"right", "kb_test_right_move", 38, true,
     {{move, RemoteRight, TimesOfParameter}, {probe, 0, 1}},
     389, kRightMoveTime},
    {"up", "kb_test_up_move", 49, true,
     {{move, RemoteUp, TimesOfParameter}, {probe, 0, 1}},
     394, VKB_LOG_HEADER "=======>test up move using:%lld ms\n"},
    {"down", "kb_test_down_move", 60, true,
     {{move, RemoteDown, TimesOfParameter}, {probe, 0, 1}},
     399, VKB_LOG_HEADER "=======>test down move using:%lld ms\n"},
    {"loop-left", "kb_test_loop_left", 71, false,
     {{move, RemoteLeft, 111}, {probe, 0, 1}},
     404, kRightMoveTime},
    {"loop-right", "kb_test_loop_right", 81, false,
     {{move, RemoteRight, 111}, {probe, 0, 1}},
     409, kRightMoveTime},
    {"loop-up", "kb_test_loop_up", 92, false,
     {{move, RemoteUp, 111}, {probe, 0, 1}},
     414, kRightMoveTime},
    {"loop-down", "kb_test_loop_down", 103, false,
     {{move, RemoteDown, 111}, {probe, 0, 1}},
     419, kRightMoveTime},
    {"shift", "kb_test_shift", 114, false,
     {{move, RemoteDown, 3}, {probe, 0, 1}, {wait_seconds, 5, 1}, {probe, 0, 1}},
     424, VKB_LOG_HEADER "=======>test shift using:%lld ms\n"},
    {"shift-right", "kb_test_shift_right", 127, true,
     {{move, RemoteDown, 3}, {probe, 0, 1}, {move, RemoteRight, TimesOfParameter}, {probe, 0, 1}},
     429, VKB_LOG_HEADER "=======>test shift-right using:%lld ms\n"},
    {"shift-lock", "kb_test_shift_lock", 144, true,
     {{move, RemoteDown, 3}, {probe_and_wait, 3, 1}, {probe_and_wait, 1, 1}, {move, RemoteRight, TimesOfParameter}, {probe, 0, 1}},
     434, VKB_LOG_HEADER "=======>test shift-lock using:%lld ms\n"},
    {"alt", "kb_test_alt", 165, false,
     {{move, RemoteDown, 2}, {probe, 0, 1}, {wait_seconds, 5, 1}, {probe, 0, 1}},
     439, VKB_LOG_HEADER "=======>test alt using:%lld ms\n"},
    {"alt-right", "kb_test_alt_right", 178, true,
     {{move, RemoteDown, 2}, {probe, 0, 1}, {move, RemoteRight, TimesOfParameter}, {probe, 0, 1}},
     444, VKB_LOG_HEADER "=======>test alt-right using:%lld ms\n"},
    {"alt-shift", "kb_test_alt_shift", 195, false,
     {{move, RemoteDown, 2}, {probe, 0, 1}, {rest, 0, 1}, {press, RemoteDown, 1}, {probe, 0, 1}},
     449, VKB_LOG_HEADER "=======>test alt-shift using:%lld ms\n"},
    {"language", "kb_test_language", 209, true,
     {{press, RemoteRight, 1}, {probe, 0, TimesOnceWithoutParameter}, {probe_and_wait, 5, TimesOfParameter}},
     454, VKB_LOG_HEADER "=======>test switch language using:%lld ms\n"},
    {"clear", "kb_test_clear", 237, false,
     {{press, RemoteDown, 1}, {move, RemoteRight, 13}, {probe, 0, 1}},
     459, kShowTime},
    {"clear-all", "kb_test_clear_all", 249, false,
     {{move, RemoteRight, 2}, {probe, 0, 1}},
     464, kShowTime},
    {"submit", "kb_test_submit", 222, false,
     {{move, RemoteDown, 2}, {move, RemoteRight, 13}, {probe, 0, 1}},
     469, kShowTime},
    {"space", "kb_test_space", 260, false,
     {{move, RemoteRight, 3}, {move, RemoteDown, 4}, {probe, 0, 1}},
     474, kShowTime},
    {"show", "kb_test_show", 275, false,
     {{move, RemoteRight, 3}, {probe, 0, 1}, {hide, 0, 1}, {wait_seconds, 2, 1}, {show, 0, 1}, {probe, 0, 1}},
     479, kShowTime},
    {"hide", "kb_test_hide", 288, false,
     {{hide, 0, 1}, {expect_hidden, 0, 1}},
     484, kShowTime},
    {"getkey", "kb_test_get_key", kNoFirstLine, false,
     {{probe, 0, 1}},
     489, VKB_LOG_HEADER "=======>test getkey using:%lld ms\n"},
};
// clang-format on

int times(const Step& step, const std::string& param)
{
    if (step.times == TimesOfParameter)
        return std::stoi(param);
    if (step.times == TimesOnceWithoutParameter)
        return param.empty() ? 1 : 0;
    return step.times;
}

void run_script(const Script& script, KeyBoardCore* core, const std::string& param)
{
    if (script.counts)
        VKB_LOG_FORMAT(LogTrace, script.firstLine, script.function, VKB_LOG_HEADER "param:%s\n",
                       param.c_str());
    else if (script.firstLine != kNoFirstLine)
        VKB_LOG_TEXT(LogTrace, script.firstLine, script.function, "called\n");

    for (const Step& step : script.steps) {
        if (step.act == nullptr)
            return;
        const int count = times(step, param);
        for (int i = 0; i < count; ++i)
            step.act(core, step.value);
    }
}

void handle_kb_tests(std::string cmd, std::string param)
{
    for (const Script& script : kScripts) {
        if (cmd != script.command)
            continue;

        const timespec start = monotonicNow();
        run_script(script, g_test_core, param);
        VKB_LOG_FORMAT(LogTrace, script.timeLine, __func__, script.timeFormat,
                       static_cast<long long>(elapsedMilliseconds(start, monotonicNow())));
        return;
    }
}

void get_kb_inputs(std::string& cmd, std::string& param)
{
    VKB_LOG_TEXT(LogTrace, 358, __func__, "=>pls input cmd  [parames]\n");
    std::string line;
    std::getline(std::cin, line);
    // Not handed on, unlike in the renderer's loop: "quit " with a blank ends this one. Kept.
    if (line == "quit")
        return;
    splitCommandLine(line, cmd, param);
}

} // namespace

int kb_test(std::string cmd, std::string param, IDirectFB* dfb, IDirectFBSurface* surface)
{
    VKB_LOG_FORMAT(LogTrace, 307, __func__, VKB_LOG_HEADER "cmd:%s,param:%s\n", cmd.c_str(),
                   param.c_str());
    g_test_core = new KeyBoardCore();
    g_test_core->OnIMEStart(dfb, surface);
    if (cmd != "more") {
        handle_kb_tests(cmd, param);
        return 0;
    }

    VKB_LOG_WHOLE(LogTrace, 329, __func__, KB_USAGE_FORMAT);
    // The end of the input reads as empty lines, and the loop goes on: kept.
    for (;;) {
        std::string command;
        std::string parameter;
        get_kb_inputs(command, parameter);
        VKB_LOG_FORMAT(LogTrace, 334, __func__, VKB_LOG_HEADER "=>cmd:[%s] [%s] \n",
                       command.c_str(), shownParameter(parameter));
        if (command == "quit")
            return 0;

        handle_kb_tests(command, parameter);
        VKB_LOG_WHOLE(LogTrace, 351, __func__, KB_USAGE_FORMAT);
    }
}
