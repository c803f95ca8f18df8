#include "core_fixture.h"

#include <cstdlib>

using namespace velmora::browser::vkb;
using test_support::takeTrace;
using namespace steps;

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
    ::unsetenv(kFontSetting);
    sample::writeLayouts(m_folder);
    m_folder.writeFile(kExpectedFont, "");
}

CoreTest::~CoreTest()
{
    ::unsetenv(kFontSetting);
}

void CoreTest::create()
{
    m_core.reset(new KeyBoardCore);
    takeTrace();
}

void CoreTest::start()
{
    create();
    startIt();
    ASSERT_TRUE(m_core->isKeyBoardEnable());
    m_expected.countFont();
    takeTrace();
}

Steps CoreTest::entered()
{
    const Keys shown = keys();
    return namesRead(3) + layoutChange("English") + m_expected.updateKeyMap(shown) +
           m_renderer.showHidden(shown, m_none) +
           m_expected.focusChange(shown, m_none, 0, shown[0]);
}

Steps CoreTest::begun()
{
    return imeStarts(false) + parserMade() + windowMade("window1", kWidth, kHeight) +
           m_renderer.construction(kWidth, kHeight);
}

void CoreTest::writeEnglish(int place, const test_support::Key& key)
{
    std::vector<test_support::Key> changed = sample::keySet("English");
    changed[static_cast<size_t>(place)] = key;
    m_folder.writeKeyMap("English", asJson(changed, changed));
}

Keys CoreTest::keys(const std::string& layout, bool shift, bool alt)
{
    return sample::buttons(sample::keySet(layout, alt), shift);
}

Button_t CoreTest::focused()
{
    // No key has this number, so the focus stays.
    Button_t button = m_core->getTargetButtonByButtonId(-1);
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
