// The renderer's operations on a surface: the exact calls, log lines and states of each.

#include <memory>

#include <gmock/gmock.h>

#include "keyboard_ui.h"
#include "layout_folder.h"
#include "log_capture.h"
#include "recording_display.h"
#include "renderer_steps.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using steps::expectTrace;
using steps::key;
using steps::Keys;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

const char kFont[] = "/opt/font/test.ttf";

class Drawing : public testing::Test
{
protected:
    Drawing() { m_folder.writeFile(kFont, ""); }

    void create() { m_ui.reset(new KeyBoardUI(m_display.dfb(), m_surface)); }

    void loadKeys()
    {
        create();
        ASSERT_TRUE(m_ui->setLayoutData(&m_keys, 30, kFont));
        takeTrace();
    }

    // Calls a drawing operation and gives the DirectFB calls that it made.
    template <class Operation> Lines callsOfOperation(Operation operation)
    {
        takeTrace();
        operation();
        return callsOf(takeTrace());
    }

    Lines show()
    {
        return callsOfOperation([this] { m_ui->show(); });
    }
    Lines hide()
    {
        return callsOfOperation([this] { m_ui->hide(); });
    }

    LayoutFolder m_folder;
    RecordingDisplay m_display;
    LogCapture m_log;
    IDirectFBSurface* m_surface = m_display.newSurface(800, 600);
    steps::Renderer m_expected{"surface1"};
    Keys m_keys = {key("a", {4, 4, 60, 50}), key("Shift", {68, 4, 125, 51})};
    Keys m_none;
    std::unique_ptr<KeyBoardUI> m_ui;
};

TEST_F(Drawing, ConstructionAsksForTheSizeAndClearsBothBuffers)
{
    create();
    expectTrace(m_expected.construction(800, 600));
}

TEST_F(Drawing, DestructionWithoutAFontOnlyLogs)
{
    create();
    takeTrace();
    m_ui.reset();
    expectTrace(m_expected.destruction(""));
}

TEST_F(Drawing, DestructionReleasesTheFontAndNothingElse)
{
    loadKeys();
    m_ui.reset();
    expectTrace(m_expected.destruction("font1"));
    EXPECT_EQ(m_display.liveFonts(), 0u);
}

TEST_F(Drawing, SetLayoutDataLoadsTheFont)
{
    create();
    takeTrace();
    EXPECT_TRUE(m_ui->setLayoutData(&m_keys, 30, kFont));
    expectTrace(m_expected.setLayoutData(2, kFont, "font1"));
}

TEST_F(Drawing, SetLayoutDataAsksForTheGivenFontSize)
{
    create();
    m_ui->setLayoutData(&m_keys, 12, kFont);
    EXPECT_THAT(takeTrace(),
                Contains("dfb.CreateFont(" + std::string(kFont) + ",{flags=HEIGHT height=12})"));
}

TEST_F(Drawing, ASecondSetLayoutDataMakesANewFontAndLosesTheFirst)
{
    loadKeys();
    EXPECT_TRUE(m_ui->setLayoutData(&m_keys, 30, kFont));
    expectTrace(m_expected.setLayoutData(2, kFont, "font2"));
    m_ui.reset();
    expectTrace(m_expected.destruction("font2"));
    EXPECT_EQ(m_display.liveFonts(), 1u);
}

TEST_F(Drawing, SetLayoutDataWithoutAPathLoadsNoFont)
{
    create();
    takeTrace();
    EXPECT_FALSE(m_ui->setLayoutData(&m_keys, 30, nullptr));
    expectTrace(steps::Renderer::logged(steps::kTrace, "setLayoutData", "called lines;2\n") +
                steps::Renderer::logged(steps::kError, "setLayoutData", "font file is null\n"));
}

TEST_F(Drawing, SetLayoutDataWithAMissingFontStillTakesTheKeysAndTheSize)
{
    loadKeys();
    Keys others = {key("z", {1, 2, 30, 40})};
    EXPECT_FALSE(m_ui->setLayoutData(&others, 12, "/opt/font/missing.ttf"));
    expectTrace(m_expected.setLayoutDataWithoutFile(1));

    m_ui->draw(true); // with the font loaded before
    expectTrace(m_expected.draw(others, m_none, true));
}

TEST_F(Drawing, AFontThatFailsToLoadIsNotFatalAndDrawsNothing)
{
    create();
    m_display.failEvery("CreateFont", DFB_UNSUPPORTED);
    takeTrace();
    EXPECT_TRUE(m_ui->setLayoutData(&m_keys, 30, kFont));
    EXPECT_THAT(callsOf(takeTrace()), testing::ElementsAre("dfb.CreateFont(" + std::string(kFont) +
                                                               ",{flags=HEIGHT height=30})",
                                                           "surface1.SetFont(null)"));
    m_ui->show();
    expectTrace(m_expected.showShown() + m_expected.drawWithoutFont());
}

TEST_F(Drawing, FailuresToSetOrMeasureTheFontAreIgnored)
{
    for (const char* method : {"SetFont", "GetHeight"}) {
        SCOPED_TRACE(method);
        create();
        m_display.failEvery(method, DFB_FAILURE);
        EXPECT_TRUE(m_ui->setLayoutData(&m_keys, 30, kFont));
    }
}

TEST_F(Drawing, ClearWithoutFlipFillsTheBackBuffer)
{
    create();
    takeTrace();
    m_ui->clear(0x12345678, false);
    expectTrace(m_expected.clear("52,86,120,18", false));
}

TEST_F(Drawing, ClearWithFlipFillsBothBuffers)
{
    create();
    takeTrace();
    m_ui->clear(0xFEDCBA98, true);
    expectTrace(m_expected.clear("220,186,152,254", true));
}

TEST_F(Drawing, AnyClearMakesShowPaintAgain)
{
    for (const bool flip : {false, true}) {
        loadKeys();
        m_ui->draw(true);
        EXPECT_THAT(show(), IsEmpty());
        m_ui->clear(0xFF000000, flip);
        EXPECT_THAT(show(), Not(IsEmpty()));
    }
}

TEST_F(Drawing, DrawPaintsEveryKeyInListOrderAndFlips)
{
    loadKeys();
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_keys, m_none, true));
}

TEST_F(Drawing, DrawReadsTheCallersListEachTime)
{
    loadKeys();
    m_keys.push_back(key("new", {100, 100, 20, 20}));
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_keys, m_none, true));
}

TEST_F(Drawing, DrawBeforeSetLayoutDataOnlyLogs)
{
    create();
    takeTrace();
    m_ui->draw(true);
    expectTrace(m_expected.drawWithoutFont());
    m_ui->hide(); // still counts as hidden
    expectTrace(m_expected.hideHidden());
}

TEST_F(Drawing, DrawWithoutFlipLeavesTheVisibleBufferButCountsAsShown)
{
    loadKeys();
    m_ui->draw(false);
    expectTrace(m_expected.draw(m_keys, m_none, false));
    EXPECT_THAT(show(), IsEmpty());
}

TEST_F(Drawing, AnEmptyKeyListDrawsOnlyTheBackground)
{
    m_keys.clear();
    loadKeys();
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_none, m_none, true));
}

TEST_F(Drawing, AnEmptyKeyListStillDrawsTheLockedKeys)
{
    m_keys.clear();
    loadKeys();
    Keys locked = {key("Shift", {0, 0, 90, 40})};
    m_ui->setLocked(locked);
    expectTrace(m_expected.setLocked(m_none, locked));
}

TEST_F(Drawing, ShowTwicePaintsOnceHideTwiceClearsOnce)
{
    loadKeys();
    m_ui->show();
    expectTrace(m_expected.showHidden(m_keys, m_none));
    m_ui->show();
    expectTrace(m_expected.showShown());
    m_ui->hide();
    expectTrace(m_expected.hideShown());
    m_ui->hide();
    expectTrace(m_expected.hideHidden());
    m_ui->show();
    expectTrace(m_expected.showHidden(m_keys, m_none));
}

TEST_F(Drawing, AKeyLowerThanTheFontHasItsTextAboveItsTopEdge)
{
    m_keys = {key("low", {10, 100, 60, 20})}; // the font is 37 high: (20 - 37) / 2 is -8
    loadKeys();
    m_ui->draw(true);
    const Lines found = takeTrace();
    EXPECT_THAT(found, Contains("surface1.DrawString(\"low\",-1,40,92,TOPCENTER)"));
    EXPECT_THAT(found, Contains("surface1.FillRectangle(10,100,61,21)"));
}

TEST_F(Drawing, AKeyOfNoWidthStillHasAFillAndItsBevel)
{
    m_keys = {key("i", {10, 20, 0, 40})};
    loadKeys();
    m_ui->draw(true);
    const Lines found = takeTrace();
    EXPECT_THAT(found, Contains("surface1.FillRectangle(10,20,1,41)"));
    EXPECT_THAT(found, Contains("surface1.DrawLine(10,20,10,60)"));
    EXPECT_THAT(found, Contains("surface1.DrawLine(9,20,9,60)"));
}

TEST_F(Drawing, ARectangleIsWidenedWithItsSign)
{
    m_keys = {key("far", {-27132, -2, 32767, 32767})};
    loadKeys();
    m_ui->draw(true);
    EXPECT_THAT(takeTrace(), Contains("surface1.FillRectangle(-27132,-2,32768,32768)"));
}

TEST_F(Drawing, HalvesAreCutTowardsZero)
{
    m_keys = {key("odd", {0, 0, 61, 50}), key("negative", {0, 0, -61, 50})};
    loadKeys();
    m_ui->draw(true);
    const Lines found = takeTrace();
    EXPECT_THAT(found, Contains("surface1.DrawString(\"odd\",-1,30,6,TOPCENTER)"));
    EXPECT_THAT(found, Contains("surface1.DrawString(\"negative\",-1,-30,6,TOPCENTER)"));
}

TEST_F(Drawing, TextIsCentredWithTheHeightThatTheFontReports)
{
    m_display.setFontHeight(20);
    loadKeys();
    m_ui->draw(true);
    expectTrace(steps::Renderer("surface1", 20).draw(m_keys, m_none, true));
}

TEST_F(Drawing, AnEmptyLabelIsDrawnAsAnEmptyString)
{
    m_keys = {key("", {0, 0, 60, 50})};
    loadKeys();
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_keys, m_none, true));
}

TEST_F(Drawing, ALabelWithFormatCharactersIsLoggedAndDrawnAsItStands)
{
    m_keys = {key("%s%n", {0, 0, 60, 50})};
    loadKeys();
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_keys, m_none, true));
}

TEST_F(Drawing, SetfocusRepaintsEverythingWithOneWhiteFrame)
{
    loadKeys();
    m_ui->setfocus(m_keys[0]);
    expectTrace(m_expected.setfocus(m_keys, m_none, m_keys[0]));
}

TEST_F(Drawing, SetfocusOnAnotherKeyTakesTheFrameFromTheFirst)
{
    loadKeys();
    m_ui->setfocus(m_keys[0]);
    takeTrace();
    m_ui->setfocus(m_keys[1]);
    const Lines found = takeTrace();
    const Lines expected = steps::linesOf(m_expected.setfocus(m_keys, m_none, m_keys[1]));
    EXPECT_EQ(found, expected);
    EXPECT_EQ(std::count(found.begin(), found.end(), "surface1.DrawLine(4,4,64,4)"), 0)
        << "the first key's top edge is drawn by its frame alone";
}

TEST_F(Drawing, SetfocusOnALockedKeyKeepsItSunkenInsideTheFrame)
{
    loadKeys();
    Keys locked = {m_keys[1]};
    m_ui->setLocked(locked);
    takeTrace();
    m_ui->setfocus(m_keys[1]);
    expectTrace(m_expected.setfocus(m_keys, locked, m_keys[1]));
}

TEST_F(Drawing, SetfocusCountsAsShown)
{
    loadKeys();
    m_ui->setfocus(m_keys[0]);
    EXPECT_THAT(show(), IsEmpty());
}

TEST_F(Drawing, SetfocusWithoutAFontDrawsOnlyTheFrame)
{
    create();
    takeTrace();
    m_ui->setfocus(m_keys[0]);
    expectTrace(m_expected.setfocusWithoutFont(m_keys[0]));
}

TEST_F(Drawing, PressShowsTheKeySunkenAndFlipsItsRegion)
{
    loadKeys();
    m_ui->press(m_keys[0]);
    expectTrace(m_expected.press(m_keys[0]));
}

TEST_F(Drawing, PressedShowsTheKeyReleasedWithAFrameAndNoBevel)
{
    loadKeys();
    m_ui->pressed(m_keys[0]);
    expectTrace(m_expected.pressed(m_keys[0]));
}

TEST_F(Drawing, PressThenPressedOnTheFocusedKeyEndsWithTheFrame)
{
    loadKeys();
    m_ui->setfocus(m_keys[0]);
    takeTrace();
    m_ui->press(m_keys[0]);
    m_ui->pressed(m_keys[0]);
    expectTrace(m_expected.press(m_keys[0]) + m_expected.pressed(m_keys[0]));
}

TEST_F(Drawing, PressOfAKeyOutsideTheLayoutIsDrawnWhereItsRectangleSays)
{
    loadKeys();
    const Button_t stranger = key("?", {500, 400, 33, 21});
    m_ui->press(stranger);
    expectTrace(m_expected.press(stranger));
}

TEST_F(Drawing, PressAndPressedDrawWhileHiddenAndStayHidden)
{
    loadKeys();
    m_ui->press(m_keys[0]);
    m_ui->pressed(m_keys[0]);
    EXPECT_THAT(hide(), IsEmpty());
    EXPECT_THAT(show(), Not(IsEmpty()));
}

TEST_F(Drawing, SetLockedPaintsTheLockedKeysLastAndFlips)
{
    loadKeys();
    Keys locked = {m_keys[1], m_keys[0]};
    m_ui->setLocked(locked);
    expectTrace(m_expected.setLocked(m_keys, locked));
    EXPECT_THAT(show(), IsEmpty());
}

TEST_F(Drawing, SetLockedKeepsACopyOfItsOwn)
{
    loadKeys();
    Keys locked = {m_keys[1]};
    m_ui->setLocked(locked);
    const Keys kept = locked;
    locked.clear();
    takeTrace();
    m_ui->draw(true);
    expectTrace(m_expected.draw(m_keys, kept, true));
}

TEST_F(Drawing, SetLockedWithAnEmptyListRemovesSunkenKeysAndTheFrame)
{
    loadKeys();
    Keys locked = {m_keys[1]};
    m_ui->setLocked(locked);
    m_ui->setfocus(m_keys[0]);
    takeTrace();
    m_ui->setLocked(m_none);
    expectTrace(m_expected.setLocked(m_keys, m_none));
}

TEST_F(Drawing, SetLockedWithoutAFontOnlyFlips)
{
    create();
    takeTrace();
    Keys locked = {m_keys[1]};
    m_ui->setLocked(locked);
    expectTrace(m_expected.setLockedWithoutFont());
}

} // namespace
