#include "core_steps.h"

namespace steps
{

using vkb::Button_t;

Steps core(const std::string& function, const std::string& message, uint32_t level)
{
    return logged("keyboard_core.cpp", function, message, level);
}

Steps imeStarts(bool started)
{
    return core("OnIMEStart", "KeyboardStatus:" + std::string(started ? "1" : "0") + "\n");
}

Steps parserMade()
{
    return catalogueRead() + keyMapNotRead();
}

Steps windowShown(const std::string& window)
{
    return calls({window + ".SetOpacity(255)", window + ".RaiseToTop()"});
}

Steps windowWanted(int width, int height)
{
    const std::string size =
        " width=" + std::to_string(width) + " height=" + std::to_string(height);
    return core("CreateDFBWindow", "CreateDFBWindow!\n\n", kDetail) +
           calls({"layer.CreateWindow({flags=0x237 caps=0x3" + size +
                      " pixelformat=0x418C04 posx=600 posy=600 surface_caps=0x15 stacking=1})",
                  "layer.SetCooperativeLevel(ADMINISTRATIVE)"});
}

Steps windowMade(const std::string& window, int width, int height)
{
    return windowWanted(width, height) + calls({window + ".GetSurface()"}) + windowShown(window);
}

Steps namesRead(int count)
{
    return core("enter", "enter the VKB!\n\n") + parser("getLayoutsName", "called\n") +
           core("enter", "language num :" + std::to_string(count) + " \n");
}

Steps layoutChange(const std::string& name)
{
    return core("onLayoutChanged", "language name :" + name + " \n") + layoutChosen(name) +
           keyMapRead();
}

namespace
{

Steps target(int id)
{
    return core("getTargetButtonByButtonId", "Target button num is " + std::to_string(id) + "\n");
}

} // namespace

Steps Core::updateKeyMap(const Keys& keys)
{
    ++m_fonts;
    return parser("getKeyMap", "called\n") +
           m_renderer.setLayoutData(keys.size(), kExpectedFont, lastFont());
}

// The focus' name, in the line of this function, and what the renderer is told.
Steps Core::marks(const std::string& function, const Keys& keys, const Keys& locked,
                  const Button_t& focused)
{
    m_shown_locks = locked;
    return core(function, "focus button:" + focused.text + "\n") +
           m_renderer.setLocked(keys, locked) + m_renderer.setfocus(keys, locked, focused);
}

Steps Core::focusChange(const Keys& keys, const Keys& locked, int id, const Button_t& focused)
{
    return core("FocusButtonChangedTo", "called\n") + target(id) +
           marks("FocusButtonChangedTo", keys, locked, focused);
}

Steps Core::refusedFocusChange(const Keys& keys, const Keys& locked, int id,
                               const Button_t& focused)
{
    return core("FocusButtonChangedTo", "called\n") + target(id) +
           core("getTargetButtonByButtonId", kNoTarget, kError) +
           marks("FocusButtonChangedTo", keys, locked, focused);
}

Steps Core::repaint(const Keys& keys)
{
    return updateKeyMap(keys) + m_renderer.draw(keys, m_shown_locks, true);
}

Steps Core::reload(const Keys& keys, const Keys& locked, const Button_t& focused)
{
    const Steps repainted = repaint(keys);
    return repainted + focusChange(keys, locked, focused.id, focused);
}

Steps Core::reloadIn(const std::string& handler, const Keys& keys, const Keys& locked,
                     const Button_t& focused)
{
    const Steps repainted = repaint(keys);
    return repainted + target(focused.id) + marks(handler, keys, locked, focused);
}

} // namespace steps
