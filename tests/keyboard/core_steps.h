#ifndef TESTS_KEYBOARD_CORE_STEPS_H
#define TESTS_KEYBOARD_CORE_STEPS_H

#include <string>
#include <utility>

#include "renderer_steps.h"

namespace steps
{

// A log line of the core.
Steps core(const std::string& function, const std::string& message, uint32_t level = kTrace);

Steps imeStarts(bool started);

// A parser is made that finds the catalogue and, as no layout is chosen yet, no key map.
Steps parserMade();

Steps windowShown(const std::string& window);
Steps windowWanted(int width, int height);
Steps windowMade(const std::string& window, int width, int height);

// enter, up to the number of layouts, which the parser knows.
Steps namesRead(int count);

// The change to a layout that has a key map.
Steps layoutChange(const std::string& name);

// Error lines that several operations share.
const char kNoUi[] = "Can not find Keboard UI!\n\n";
const char kNoParser[] = "Can not find Keboard parser!\n\n";
const char kNoTarget[] = "Target keybutton is error,no need to change focus!\n";

const char kExpectedFont[] = "/usr/local/opt/font/TarvoL2700.ttf";

// What the core does around a change of keys or focus. It counts the fonts that were loaded, as
// each reload of the keys loads another one, and remembers which locks the renderer knows, as a
// reload repaints with those before it sends the new ones.
class Core
{
public:
    explicit Core(Renderer renderer) : m_renderer(std::move(renderer)) {}

    std::string lastFont() const { return "font" + std::to_string(m_fonts); }
    void countFont() { ++m_fonts; }

    Steps updateKeyMap(const Keys& keys);
    Steps focusChange(const Keys& keys, const Keys& locked, int id, const vkb::Button_t& focused);
    Steps refusedFocusChange(const Keys& keys, const Keys& locked, int id,
                             const vkb::Button_t& focused);

    // updateKeyBoardUI, and the same written out in a handler of its own.
    Steps reload(const Keys& keys, const Keys& locked, const vkb::Button_t& focused);
    Steps reloadIn(const std::string& handler, const Keys& keys, const Keys& locked,
                   const vkb::Button_t& focused);

private:
    Steps repaint(const Keys& keys);
    Steps marks(const std::string& function, const Keys& keys, const Keys& locked,
                const vkb::Button_t& focused);

    Renderer m_renderer;
    Keys m_shown_locks;
    int m_fonts = 0;
};

} // namespace steps

#endif
