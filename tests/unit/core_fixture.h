#ifndef TESTS_UNIT_CORE_FIXTURE_H
#define TESTS_UNIT_CORE_FIXTURE_H

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "keyboard_core.h"
#include "layout_folder.h"
#include "layout_sample.h"
#include "log_capture.h"
#include "recording_display.h"
#include "renderer_steps.h"

const char kFontVariable[] = "VIRTUAL_KEYBOARD_FONT_PATH";
const char kUsualFont[] = "/usr/local/opt/font/TarvoL2700.ttf";

namespace steps
{

Steps coreLogged(uint32_t level, const std::string& function, const std::string& message);
Steps parserLogged(const std::string& function, const std::string& message);

// What the core does around a change of keys or focus. It counts the fonts that were loaded, as
// each reload of the keys loads another one, and remembers which locks the renderer knows, as a
// reload repaints with those before it sends the new ones.
class Core
{
public:
    explicit Core(Renderer renderer) : m_renderer(std::move(renderer)) {}

    std::string lastFont() const { return "font" + std::to_string(m_fonts); }
    void countFont() { ++m_fonts; }

    Steps updateKeyMap(const Keys& keys, const std::string& fontPath = kUsualFont);
    Steps focusChange(const Keys& keys, const Keys& locked, int id, const vkb::Button_t& focused);
    Steps refusedFocusChange(const Keys& keys, const Keys& locked, int id,
                             const vkb::Button_t& focused);

    // updateKeyBoardUI, and the same written out in a handler of its own.
    Steps reload(const Keys& keys, const Keys& locked, const vkb::Button_t& focused);
    Steps reloadIn(const std::string& handler, const Keys& keys, const Keys& locked,
                   const vkb::Button_t& focused);

    // The change to a layout that has a key map.
    static Steps layoutChange(const std::string& name);

private:
    Steps repaint(const Keys& keys);
    Steps marks(const Keys& keys, const Keys& locked, const vkb::Button_t& focused);

    Renderer m_renderer;
    Keys m_shownLocks;
    int m_fonts = 0;
};

} // namespace steps

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

    // Makes a core, starts it, and forgets what that did.
    void start();

    static steps::Keys keys(const std::string& layout = "English", bool shift = false,
                            bool alt = false);
    velmora::browser::vkb::Button_t focused();
    void focus(int place);

    // Focuses a key and presses OK on it; the trace holds the press alone.
    int press(int place);

    LayerAskedFor m_layerAskedFor;
    test_support::LayoutFolder m_folder;
    test_support::RecordingDisplay m_display;
    test_support::LogCapture m_log;
    IDirectFBSurface* m_hostSurface = m_display.newSurface(800, 600);
    steps::Renderer m_renderer{"surface2"};
    steps::Core m_expected{m_renderer};
    steps::Keys m_none;
    std::unique_ptr<velmora::browser::vkb::KeyBoardCore> m_core;
};

#endif
