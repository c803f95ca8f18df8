// The change of layouts, and the loading of a layout's keys into the renderer.

#include <string>

#include "core_fixture.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using sample::kLanguage;

class CoreLayouts : public CoreTest
{
};

TEST_F(CoreLayouts, EachLayoutChangeTakesTheNextNameAndWraps)
{
    start();
    for (const char* layout : {"German", "Greek", "English", "German"}) {
        m_core->onLayoutChanged();
        expectTrace(layoutChange(layout));
    }
}

TEST_F(CoreLayouts, TheCurrentLayoutIsToldWithoutALine)
{
    create();
    EXPECT_EQ(m_core->currentLayout(), "");
    start();
    EXPECT_EQ(m_core->currentLayout(), "English");
    expectTrace({});
    press(kLanguage);
    EXPECT_EQ(m_core->currentLayout(), "German");
}

TEST_F(CoreLayouts, ALayoutChangeDoesNotRedrawUntilTheKeysAreFetched)
{
    start();
    m_core->onLayoutChanged();
    takeTrace();
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "English");
    takeTrace();
    m_core->updateKeyMap();
    expectTrace(m_expected.updateKeyMap(keys("German")));
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "German");
}

TEST_F(CoreLayouts, UpdateKeyBoardUIReloadsRedrawsAndFocusesTheSameIndex)
{
    start();
    focus(kLanguage);
    m_core->onLayoutChanged();
    takeTrace();
    EXPECT_EQ(m_core->updateKeyBoardUI(), 1);
    const Keys german = keys("German");
    expectTrace(m_expected.reload(german, m_none, german[kLanguage]));
}

TEST_F(CoreLayouts, ALayoutChangeWithoutAParserStillChangesTheName)
{
    start();
    m_core->OnIMECancelled();
    takeTrace();
    for (const std::string layout : {"English", "German"}) {
        m_core->onLayoutChanged();
        expectTrace(core("onLayoutChanged", "language name :" + layout + " \n") +
                    core("onLayoutChanged", kNoParser, kError));
    }
}

TEST_F(CoreLayouts, AnEmptyLayoutNameBecomesEnglishAtTheNextUpdate)
{
    create();
    m_core->updateKeyMap();
    expectTrace(core("updateKeyMap", kNoParser, kError));
    EXPECT_EQ(m_core->currentLayout(), "English");
}

TEST_F(CoreLayouts, AnEmptyNameInTheCatalogueShowsTheUnnamedKeyMap)
{
    Catalogue catalogue = sample::allKindsCatalogue();
    catalogue.names = {""};
    m_folder.writeCatalogue(asJson(catalogue));
    m_folder.writeKeyMap("", asJson(sample::allKindsDefaultKeys("Unnamed"), {}));
    m_core.reset(new KeyBoardCore);
    startIt();
    EXPECT_EQ(m_core->currentLayout(), "English");
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "Unnamed");
}

TEST_F(CoreLayouts, WithoutARendererEnterLeavesTheKeyboardNotStarted)
{
    startWithoutRenderer();
    m_core->enter();
    expectTrace(namesRead(3) + layoutChange("English") + core("updateKeyMap", kNoUi, kError) +
                core("enter", kNoUi, kError));
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());
}

} // namespace
