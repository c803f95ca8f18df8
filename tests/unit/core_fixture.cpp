#include "core_fixture.h"

#include <cstdlib>

using namespace velmora::browser::vkb;
using test_support::takeTrace;

namespace steps
{

Steps coreLogged(uint32_t level, const std::string& function, const std::string& message)
{
    return logged("keyboard_core.cpp", level, function, message);
}

Steps parserLogged(const std::string& function, const std::string& message)
{
    return logged("Language_Parser.cpp", kTrace, function, message);
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

bool LayerAskedFor::inThisProcess = false;

LayerAskedFor::LayerAskedFor()
{
    inThisProcess = true;
    test_support::RecordingDisplay display;
    KeyBoardCore core;
    core.CreateDFBWindow(display.dfb(), nullptr);
}

CoreTest::CoreTest()
{
    ::unsetenv(kFontVariable);
    sample::writeAllKinds(m_folder);
    m_folder.writeFile(kUsualFont, "");
}

CoreTest::~CoreTest()
{
    ::unsetenv(kFontVariable);
}

void CoreTest::start()
{
    m_core.reset(new KeyBoardCore);
    m_core->OnIMEStart(m_display.dfb(), m_hostSurface);
    ASSERT_TRUE(m_core->isKeyBoardEnable());
    m_expected.countFont();
    takeTrace();
}

steps::Keys CoreTest::keys(const std::string& layout, bool shift, bool alt)
{
    return sample::buttons(
        sample::allKindsCatalogue(),
        alt ? sample::allKindsSymbolKeys(layout) : sample::allKindsDefaultKeys(layout), shift);
}

Button_t CoreTest::focused()
{
    // No key has this number, so the focus stays.
    const Button_t button = m_core->getTargetButtonByButtonId(-1);
    takeTrace();
    return button;
}

void CoreTest::focus(int place)
{
    m_core->FocusButtonChangedTo(place);
    takeTrace();
}

int CoreTest::press(int place)
{
    focus(place);
    return m_core->EnterPressProc();
}
