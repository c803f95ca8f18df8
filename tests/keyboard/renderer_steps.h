#ifndef TESTS_KEYBOARD_RENDERER_STEPS_H
#define TESTS_KEYBOARD_RENDERER_STEPS_H

#include <string>
#include <utility>

#include "steps.h"

namespace steps
{

const int kNoFont = 0;

// What the renderer does on one surface, operation by operation.
class Renderer
{
public:
    // The font's height is that which the display's fonts report, in pixels.
    explicit Renderer(std::string surface, int fontHeight = 37)
        : m_surface(std::move(surface)), m_font_height(fontHeight)
    {
    }

    static Steps logged(const std::string& function, const std::string& message,
                        uint32_t level = kTrace);

    Steps construction(int width, int height) const;
    static Steps destruction(const std::string& font = ""); // empty: there is none

    Steps setLayoutData(size_t keys, const std::string& fontPath, const std::string& font) const;
    static Steps setLayoutDataWithoutFile(size_t keys);

    // colour as "red,green,blue,alpha"
    Steps clear(const std::string& colour, bool flip) const;
    Steps draw(const Keys& keys, const Keys& locked, bool flip) const;
    static Steps showShown();
    Steps showHidden(const Keys& keys, const Keys& locked) const;
    Steps hideShown() const;
    static Steps hideHidden();

    Steps setfocus(const Keys& keys, const Keys& locked, const vkb::Button_t& key) const;
    Steps setLocked(const Keys& keys, const Keys& locked) const;
    Steps press(const vkb::Button_t& key) const;
    Steps pressed(const vkb::Button_t& key) const;

private:
    std::string m_surface;
    int m_font_height;
};

} // namespace steps

#endif
