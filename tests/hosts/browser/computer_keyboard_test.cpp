// The events of a computer's keyboard in the same engine, without any of ours: they are those of
// the table in events.js, which the on-screen keyboard's are held to as well.
#include <chrono>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <wpe/webkit.h>
#include <wpe/wpe.h>

#include "engine.h"

namespace
{

using host::Engine;

const auto kPatience = std::chrono::seconds(240);

struct Stroke {
    uint32_t symbol;       // X11's
    uint32_t hardwareCode; // evdev's code + 8
    bool shift = false;    // held down with a key of its own
};

const uint32_t kShiftCode = 50;

// One for the process, as it cannot be taken apart.
Engine& engine()
{
    static Engine opened(1920, 1080, "", host::canSandbox(), [](const uint8_t*, int) {});
    return opened;
}

class ComputerKeyboard : public testing::Test
{
protected:
    // What the page says of its events when these keys were pressed.
    std::string pressOn(const std::string& name, const std::vector<Stroke>& strokes)
    {
        const std::string page = "file://" PAGES "/events.html?computer#" + name;
        webkit_web_view_load_uri(engine().view(), "about:blank");
        await("location.href", "about:blank");
        webkit_web_view_load_uri(engine().view(), page.c_str());
        await("document.body ? document.body.innerText.includes('ready') : false", "true");
        for (const Stroke& stroke : strokes)
            press(stroke);
        await("seen.length >= cases[wanted]().length", "true");
        return ask("document.dispatchEvent(new KeyboardEvent('keydown', {keyCode: 406})), "
                   "document.getElementById('said').innerText");
    }

private:
    void press(const Stroke& stroke)
    {
        if (stroke.shift)
            send(WPE_KEY_Shift_L, kShiftCode, true, false);
        send(stroke.symbol, stroke.hardwareCode, true, stroke.shift);
        send(stroke.symbol, stroke.hardwareCode, false, stroke.shift);
        if (stroke.shift)
            send(WPE_KEY_Shift_L, kShiftCode, false, true);
    }

    void send(uint32_t symbol, uint32_t hardwareCode, bool isPressed, bool shift)
    {
        wpe_input_keyboard_event event = {};
        event.time = static_cast<uint32_t>(g_get_monotonic_time() / 1000);
        event.key_code = symbol;
        event.hardware_key_code = hardwareCode;
        event.pressed = isPressed;
        event.modifiers = shift ? static_cast<uint32_t>(wpe_input_keyboard_modifier_shift) : 0;
        wpe_view_backend_dispatch_keyboard_event(engine().input(), &event);
    }

    void await(const std::string& script, const std::string& answer)
    {
        const auto end = std::chrono::steady_clock::now() + kPatience;
        std::string last;
        while ((last = ask(script)) != answer)
            if (std::chrono::steady_clock::now() > end)
                FAIL() << script << ": found " << last << ", expected " << answer;
    }

    std::string ask(const std::string& script)
    {
        struct Answer {
            bool isThere = false;
            std::string text;
        } answer;
        webkit_web_view_run_javascript(
            engine().view(), script.c_str(), nullptr,
            [](GObject* view, GAsyncResult* result, gpointer data) {
                Answer& got = *static_cast<Answer*>(data);
                WebKitJavascriptResult* value =
                    webkit_web_view_run_javascript_finish(WEBKIT_WEB_VIEW(view), result, nullptr);
                got.isThere = true;
                if (value == nullptr)
                    return;
                char* text = jsc_value_to_string(webkit_javascript_result_get_js_value(value));
                got.text = text;
                g_free(text);
                webkit_javascript_result_unref(value);
            },
            &answer);
        while (!answer.isThere)
            g_main_context_iteration(nullptr, TRUE);
        return answer.text;
    }
};

const Stroke kA = {'a', 38};
const Stroke kB = {'b', 56};
const Stroke kEnter = {WPE_KEY_Return, 36};

struct Case {
    const char* name;
    std::vector<Stroke> strokes;
};

const Case kCases[] = {
    {"letters", {kA, {'B', 56, true}, {'1', 10}, {'.', 60}, {' ', 65}}},
    {"accents", {{WPE_KEY_eacute, 26}}},
    {"editing",
     {kA,
      kB,
      {WPE_KEY_Left, 113},
      {WPE_KEY_Delete, 119},
      {WPE_KEY_BackSpace, 22},
      {WPE_KEY_Right, 114}}},
    {"submit", {kA, kEnter}},
    {"lines", {kA, kEnter, kB}},
    {"tab", {kA, {WPE_KEY_Tab, 23}}},
};

TEST_F(ComputerKeyboard, MakesTheEventsThatOursDoes)
{
    for (const Case& one : kCases) {
        const std::string said = pressOn(one.name, one.strokes);
        EXPECT_NE(said.find(" events as expected"), std::string::npos) << one.name << ": " << said;
    }
}

} // namespace
