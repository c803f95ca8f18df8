// One DirectFB call fails, at every position of a run in turn.
#include <cstdlib>
#include <set>

#include <gmock/gmock.h>

#include "fatal_trap.h"
#include "fault_layouts.h"
#include "keyboard_core.h"
#include "keyboard_ui.h"
#include "recording_display.h"
#include "trace.h"

using test_support::FatalError;
using test_support::FatalTrap;
using test_support::LayoutFolder;
using test_support::RecordingDisplay;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardCore;
using velmora::browser::vkb::KeyBoardUI;

namespace
{

// The calls without which the keyboard cannot go on. The others' failures are ignored.
const std::set<std::string> kGuarded = {
    "GetDisplayLayer", "GetSize",       "Clear",      "Flip",
    "SetColor",        "FillRectangle", "DrawString", "DrawLine"};

// Everything a viewer does, and a key pressed and released by the renderer itself.
void run(RecordingDisplay& display)
{
    KeyBoardCore core;
    core.OnIMEStart(display.dfb(), nullptr);
    const int keys[] = {39, 13, 37, 13, 39, 39, 13, 39, 13, 39, 13, 38, 40, 41};
    for (int key : keys)
        core.onKeyEvent(key);
    core.Hide();
    core.Show();
    // Started anew without a cancel, a keyboard that could not start would leave its parser behind.
    if (!core.isKeyBoardEnable())
        core.OnIMECancelled();
    core.OnIMEStart(display.dfb(), nullptr);
    core.OnIMECancelled();
    core.OnIMEStart(display.dfb(), nullptr);
    core.onKeyEvent(39);

    std::vector<Button_t> keysOfUi(1);
    keysOfUi[0].text = "a";
    keysOfUi[0].rect = {4, 4, 20, 16};
    KeyBoardUI ui(display.dfb(), display.newSurface(100, 44));
    if (ui.setLayoutData(&keysOfUi, 30, VKB_TEST_FONT)) {
        ui.draw(true);
        ui.press(keysOfUi[0]);
        ui.pressed(keysOfUi[0]);
    }
}

std::string methodOf(const std::string& line)
{
    const size_t dot = line.find('.');
    return line.substr(dot + 1, line.find('(') - dot - 1);
}

} // namespace

TEST(GuardedCalls, AFailureAtAnyPositionOfARunIsReportedOnceOrIgnored)
{
    setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
    setenv("CSP_DEBUG_LEVEL", "0", 1);
    LayoutFolder folder;
    writeGoodFiles(folder);
    FatalTrap trap;

    // The layer is asked for once in a process, so the first run has a call more than the others.
    size_t calls = 0;
    for (int i = 0; i < 2; ++i) {
        RecordingDisplay display;
        run(display);
        calls = test_support::takeTrace().size();
    }
    ASSERT_GT(calls, 500u);

    std::set<std::string> fatal, ignored;
    for (size_t position = 1; position <= calls; ++position) {
        RecordingDisplay display;
        std::string failed;
        size_t count = 0;
        size_t drawnAfterwards = 0; // the unwinding still releases and destroys
        display.onCall([&](const std::string& line) {
            if (++count == position)
                failed = methodOf(line);
            else if (count > position)
                drawnAfterwards += kGuarded.count(methodOf(line));
        });
        display.failCall(position, DFB_IO);
        bool reported = false;
        testing::internal::CaptureStderr();
        try {
            run(display);
        } catch (const FatalError& error) {
            reported = true;
            EXPECT_EQ(error.result, DFB_IO);
            EXPECT_THAT(error.text, testing::HasSubstr(failed + (failed == "Flip" ? "" : "(")));
            EXPECT_EQ(drawnAfterwards, 0u) << "the run went on after " << failed << " failed";
        }
        const std::string printed = testing::internal::GetCapturedStderr();
        SCOPED_TRACE("call " + std::to_string(position) + ", " + failed);
        const bool drawsWithoutFont = failed == "CreateFont";
        if (!drawsWithoutFont) {
            ASSERT_EQ(reported, kGuarded.count(failed) == 1);
        }
        ASSERT_EQ(printed.find("directfb do: '") == 0, reported);
        (reported ? fatal : ignored).insert(failed);
    }
    // Both kinds were met.
    EXPECT_THAT(fatal, testing::IsSupersetOf({"Clear", "Flip", "SetColor", "FillRectangle",
                                              "DrawString", "DrawLine", "GetSize"}));
    EXPECT_THAT(ignored, testing::IsSupersetOf({"CreateFont", "SetFont", "GetHeight", "Release",
                                                "SetOpacity", "RaiseToTop", "CreateWindow"}));
    std::printf("%zu positions\n", calls);
}
