// Layouts as the keyboard's host meets them: the change from one to the next, bad files, no font.

#include <cstdlib>
#include <string>

#include "core_fixture.h"
#include "leaves_behind.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using sample::kKeys;
using sample::Language;
using testing::Contains;
using testing::HasSubstr;

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

class CoreBadInput : public CoreTest
{
protected:
    void startNew()
    {
        create();
        startIt();
    }

    void expectNotStarted()
    {
        EXPECT_FALSE(m_core->isKeyBoardEnable());
        EXPECT_FALSE(m_core->isShow());
        takeTrace();
        EXPECT_EQ(m_core->onKeyEvent(13), 2);
        expectTrace(core("onKeyEvent", "Received Keycode: 13\n"));
    }

    // What a parser does that finds no catalogue: the key map's reading looks for it once more.
    const Steps m_catalogue_missed = catalogueNotRead() + keyMapNotRead() + catalogueNotRead();

    // enter, when the list is empty with the catalogue read or not.
    static Steps noNames(bool catalogueIsRead)
    {
        return core("enter", "enter the VKB!\n\n") + parser("getLayoutsName", "called\n") +
               (catalogueIsRead ? catalogueRead() : catalogueNotRead()) +
               core("enter", "language num :0 \n") + core("enter", "Read language name error! \n");
    }

    // A start that finds no layouts; what it leaves behind stays.
    void expectNoStart(const Steps& expected)
    {
        {
            const LeavesBehind parserAndRenderer;
            startNew();
        }
        expectTrace(expected);
        expectNotStarted();
    }

    void expectStartWithGoodFiles(const Steps& expected)
    {
        sample::writeLayouts(m_folder);
        takeTrace();
        startIt();
        expectTrace(expected);
        EXPECT_TRUE(m_core->isKeyBoardEnable());
    }
};

TEST_F(CoreBadInput, AfterAnEmptyLayoutListTheNextStartBuildsAgainInTheSameWindow)
{
    Catalogue catalogue = sample::catalogue();
    catalogue.names.clear();
    m_folder.writeCatalogue(asJson(catalogue));
    expectNoStart(begun() + noNames(true));
    expectStartWithGoodFiles(imeStarts(false) + parserMade() + windowShown("window1") +
                             m_renderer.construction(kWidth, kHeight) + entered());
}

TEST_F(CoreBadInput, AMissingOrMalformedCatalogueGivesNoWindowUntilThereIsAGoodOne)
{
    const Steps expected =
        imeStarts(false) + m_catalogue_missed + windowWanted(0, 0) + noNames(false);
    m_folder.writeCatalogue("{\"language\": [\"English\"");
    expectNoStart(expected);
    m_folder.removeCatalogue();
    expectNoStart(expected);
    EXPECT_EQ(m_display.liveWindows(), 0u);
    m_core->Show();
    EXPECT_FALSE(m_core->isShow()) << "there is no renderer";
    expectStartWithGoodFiles(firstStart());
}

TEST_F(CoreBadInput, AWindowThatCannotBeMadeLeavesTheKeyboardNotStarted)
{
    m_display.failEvery("CreateWindow", DFB_NOVIDEOMEMORY);
    startNew();
    expectTrace(imeStarts(false) + parserMade() + windowWanted(kWidth, kHeight) + namesRead(3) +
                layoutChange("English") + core("updateKeyMap", kNoUi, kError) +
                core("enter", kNoUi, kError));
    expectNotStarted();
}

TEST_F(CoreBadInput, AMissingKeyMapStartsAKeyboardWithoutKeys)
{
    m_folder.removeKeyMap("English");
    startNew();
    expectTrace(begun() + namesRead(3) + core("onLayoutChanged", "language name :English \n") +
                layoutChosen("English") + keyMapNotRead() + parser("getKeyMap", "called\n") +
                keyMapNotRead() + m_renderer.setLayoutData(0, kExpectedFont, "font1") +
                m_renderer.showHidden(m_none, m_none) +
                m_expected.refusedFocusChange(m_none, m_none, 0, Button_t()));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->onKeyEvent(39), 0) << "a move on an empty key set is used up";
}

TEST_F(CoreBadInput, ACatalogueWithoutPositionsThrowsOutOfTheStart)
{
    m_folder.writeCatalogue("{\"language\": [\"English\"]}");
    create();
    EXPECT_ANY_THROW(startIt());
    expectTrace(imeStarts(false) + catalogueRead());
    EXPECT_EQ(m_display.liveWindows(), 0u);
    expectNotStarted();

    sample::writeLayouts(m_folder);
    startIt();
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreBadInput, AKeyThatCannotBeConvertedThrowsOutOfTheStart)
{
    m_folder.writeKeyMap("English", "{\"Keys\": {\"KeyMode_Default\": [{\"id\": \"x\"}]}}");
    m_core.reset(new KeyBoardCore);
    EXPECT_ANY_THROW(startIt());
    expectNotStarted();
    m_core->OnIMECancelled();
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

TEST_F(CoreBadInput, AKeyWithoutARectangleIsDrawnAtTheOriginWithNoSize)
{
    Catalogue catalogue = sample::catalogue();
    catalogue.rects.pop_back();
    m_folder.writeCatalogue(asJson(catalogue));
    startNew();
    EXPECT_THAT(takeTrace(), Contains("surface2.FillRectangle(0,0,1,1)"));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kKeys - 1).text, "mute");
}

TEST_F(CoreBadInput, WithoutAFontTheKeyboardStartsAndShowsOnlyTheFrame)
{
    ::setenv(kFontSetting, "/opt/font/missing.ttf", 1);
    startNew();
    const Keys shown = keys();
    const Renderer frameOnly("surface2", kNoFont);
    expectTrace(begun() + namesRead(3) + layoutChange("English") + parser("getKeyMap", "called\n") +
                Renderer::setLayoutDataWithoutFile(kKeys) + frameOnly.showHidden(shown, m_none) +
                Core(frameOnly).focusChange(shown, m_none, 0, shown[0]));
    EXPECT_TRUE(m_core->isShow());
    EXPECT_EQ(m_core->onKeyEvent(13), 1) << "keys work all the same";
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
}

TEST_F(CoreBadInput, ACheckedCallThatFailsWhileTheKeyboardStartsEndsTheProcess)
{
    create();
    m_display.failEvery("FillRectangle", DFB_INVARG);
    EXPECT_EXIT(startIt(), testing::ExitedWithCode(static_cast<int>(DFB_INVARG) & 0xFF),
                HasSubstr("directfb do: 'm_surface->FillRectangle(m_surface,x,y,w+1,h+1)' "
                          "failed!\n"));
}

} // namespace
