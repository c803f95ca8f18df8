#ifndef TESTS_LAYOUTS_CORE_WALK_H
#define TESTS_LAYOUTS_CORE_WALK_H

#include <memory>
#include <string>
#include <vector>

#include "coverage.h"
#include "key_map.h"
#include "keyboard_core.h"
#include "layout_folder.h"
#include "log_capture.h"
#include "recording_display.h"

// A keyboard that runs one shipped layout, with English as the next one, and is worked with arrows
// and OK alone. It has no font, so that it does not spend its time on drawing.
class CoreWalk
{
public:
    explicit CoreWalk(const std::string& layout);

    // Moves to the keys one after another, over Shift and Alt where the face asks for it, and
    // presses each. Returns what the host got.
    std::string type(const std::vector<layouts::Place>& keys);

    IDirectFB* dfb() { return m_display.dfb(); }
    IDirectFBSurface* surface() { return m_display.newSurface(800, 600); }

private:
    void changeFace(const layouts::Face& face);
    void moveTo(size_t key);
    void press(int keyCode);

    test_support::LayoutFolder m_folder;
    test_support::RecordingDisplay m_display;
    layouts::KeyMap m_key_map;
    std::unique_ptr<velmora::browser::vkb::KeyBoardCore> m_core;
    size_t m_focus = 0;
    bool m_shift = false;
    bool m_alt = false;
    int m_result = 0;
};

// What a script of the test driver does on a layout, in order: "Shift" and the like for a special
// key, TEXT/KEYCODE for a key result.
std::vector<std::string> runScript(CoreWalk& keyboard, const std::string& command,
                                   const std::string& parameter);

#endif
