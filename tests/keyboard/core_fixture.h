#ifndef TESTS_KEYBOARD_CORE_FIXTURE_H
#define TESTS_KEYBOARD_CORE_FIXTURE_H

#include <memory>
#include <string>

#include <gmock/gmock.h>

#include "core_steps.h"
#include "keyboard_core.h"
#include "layout_folder.h"
#include "layout_sample.h"
#include "log_capture.h"
#include "recording_display.h"

const char kFontSetting[] = "VIRTUAL_KEYBOARD_FONT_PATH";

// The window belongs to the process; this asks for its layer, so that a test sees the same calls
// whether or not another test ran before it in the same process.
struct LayerAskedFor {
    LayerAskedFor();
    static bool inThisProcess;
};

// A core on a recording display, with three layouts that have a key of each kind. The host's
// surface is `surface1`; the keyboard's own is `surface2`.
class CoreTest : public testing::Test
{
protected:
    CoreTest();
    ~CoreTest() override;

    // Makes a core, starts the one that is there, or does both at once. Only startIt leaves a
    // trace.
    void create();
    void startIt() { m_core->OnIMEStart(m_display.dfb(), m_host_surface); }
    void start();

    // The first start of a core: what it does before it reads the names, and from there on.
    steps::Steps begun();
    steps::Steps entered();
    steps::Steps firstStart() { return begun() + entered(); }

    // Replaces the key at a place of English's default set.
    void writeEnglish(int place, const test_support::Key& key);

    static steps::Keys keys(const std::string& layout = "English", bool shift = false,
                            bool alt = false);
    velmora::browser::vkb::Button_t focused();
    void focus(int place);

    // Focuses a key and presses OK on it; the trace holds the press alone.
    int press(int place);

    // The whole size of the sample's keyboard: four columns and two rows.
    static constexpr int kWidth = 4 * 64 + 4;
    static constexpr int kHeight = 2 * 56 + 6;

    LayerAskedFor m_layer_asked_for;
    test_support::LayoutFolder m_folder;
    test_support::RecordingDisplay m_display;
    test_support::LogCapture m_log;
    IDirectFBSurface* m_host_surface = m_display.newSurface(800, 600);
    steps::Renderer m_renderer{"surface2"};
    steps::Core m_expected{m_renderer};
    steps::Keys m_none;
    std::unique_ptr<velmora::browser::vkb::KeyBoardCore> m_core;
};

#endif
