// The change of layouts, and the loading of a layout's keys into the renderer.

#include <string>

#include "core_fixture.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using sample::Language;

using CoreLayouts = CoreTest;

TEST_F(CoreLayouts, EachLayoutChangeTakesTheNextNameAndWraps)
{
    create();
    EXPECT_EQ(m_core->currentLayout(), "");
    start();
    focus(Language);
    for (const char* layout : {"German", "Greek", "English", "German"}) {
        m_core->onLayoutChanged();
        expectTrace(layoutChange(layout));
        EXPECT_EQ(m_core->currentLayout(), layout);
        EXPECT_EQ(focused().text, "English") << "no key is fetched yet";
    }
    const Keys german = keys("German");
    m_core->updateKeyMap();
    expectTrace(m_expected.updateKeyMap(german));
    EXPECT_EQ(m_core->updateKeyBoardUI(), 1) << "draws too, and focuses the same place";
    expectTrace(m_expected.reload(german, m_none, german[Language]));
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
    Catalogue catalogue = sample::catalogue();
    catalogue.names = {""};
    m_folder.writeCatalogue(asJson(catalogue));
    m_folder.writeKeyMap("", asJson(sample::keySet("Unnamed"), {}));
    m_core.reset(new KeyBoardCore);
    startIt();
    EXPECT_EQ(m_core->currentLayout(), "English");
    EXPECT_EQ(m_core->getTargetButtonByButtonId(Language).text, "Unnamed");
}

} // namespace
