#include "core_steps.h"

namespace steps
{

using velmora::browser::vkb::Button_t;

Steps coreLogged(uint32_t level, const std::string& function, const std::string& message)
{
    return logged("keyboard_core.cpp", level, function, message);
}

Steps parserLogged(const std::string& function, const std::string& message)
{
    return logged("Language_Parser.cpp", kTrace, function, message);
}

Step call(const std::string& line)
{
    return {line, ""};
}

Steps imeStarts(bool started)
{
    return coreLogged(kTrace, "OnIMEStart",
                      "KeyboardStatus:" + std::string(started ? "1" : "0") + "\n");
}

Steps parserMade()
{
    return parserLogged("ParseLayout", "called\n") +
           parserLogged("ParseLayout", "Layout Parse Successfully !\n") +
           parserLogged("ParseCurrentLayoutKeyMaps", "called\n");
}

Steps windowShown(const std::string& window)
{
    return {call(window + ".SetOpacity(255)"), call(window + ".RaiseToTop()")};
}

Steps windowWanted(int width, int height)
{
    const std::string size =
        " width=" + std::to_string(width) + " height=" + std::to_string(height);
    const Steps calls = {call("layer.CreateWindow({flags=0x237 caps=0x3" + size +
                              " pixelformat=0x418C04 posx=600 posy=600 surface_caps=0x15"
                              " stacking=1})"),
                         call("layer.SetCooperativeLevel(ADMINISTRATIVE)")};
    return coreLogged(kDetail, "CreateDFBWindow", "CreateDFBWindow!\n\n") + calls;
}

Steps windowMade(const std::string& window, int width, int height)
{
    const Steps surface = {call(window + ".GetSurface()")};
    return windowWanted(width, height) + surface + windowShown(window);
}

Steps namesRead(int count)
{
    return coreLogged(kTrace, "enter", "enter the VKB!\n\n") +
           parserLogged("getLayoutsName", "called\n") +
           coreLogged(kTrace, "enter", "language num :" + std::to_string(count) + " \n");
}

Steps Core::updateKeyMap(const Keys& keys, const std::string& fontPath)
{
    ++m_fonts;
    return parserLogged("getKeyMap", "called\n") +
           m_renderer.setLayoutData(keys.size(), fontPath, lastFont());
}

Steps Core::marks(const Keys& keys, const Keys& locked, const Button_t& focused)
{
    m_shownLocks = locked;
    return m_renderer.setLocked(keys, locked) + m_renderer.setfocus(keys, locked, focused);
}

namespace
{

Steps target(int id)
{
    return coreLogged(kTrace, "getTargetButtonByButtonId",
                      "Target button num is " + std::to_string(id) + "\n");
}

Steps focusName(const std::string& function, const Button_t& focused)
{
    return coreLogged(kTrace, function, "focus button:" + focused.text + "\n");
}

} // namespace

Steps Core::focusChange(const Keys& keys, const Keys& locked, int id, const Button_t& focused)
{
    return coreLogged(kTrace, "FocusButtonChangedTo", "called\n") + target(id) +
           focusName("FocusButtonChangedTo", focused) + marks(keys, locked, focused);
}

Steps Core::refusedFocusChange(const Keys& keys, const Keys& locked, int id,
                               const Button_t& focused)
{
    return coreLogged(kTrace, "FocusButtonChangedTo", "called\n") + target(id) +
           coreLogged(kError, "getTargetButtonByButtonId",
                      "Target keybutton is error,no need to change focus!\n") +
           focusName("FocusButtonChangedTo", focused) + marks(keys, locked, focused);
}

Steps Core::repaint(const Keys& keys)
{
    return updateKeyMap(keys) + m_renderer.draw(keys, m_shownLocks, true);
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
    return repainted + target(focused.id) + focusName(handler, focused) +
           marks(keys, locked, focused);
}

Steps Core::layoutChange(const std::string& name)
{
    return coreLogged(kTrace, "onLayoutChanged", "language name :" + name + " \n") +
           parserLogged("onLayoutchanged", "Current Layout is :" + name + " \n") +
           parserLogged("ParseCurrentLayoutKeyMaps", "called\n") +
           parserLogged("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n");
}

} // namespace steps
