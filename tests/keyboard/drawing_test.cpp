// The renderer's operations on a surface: the exact calls, log lines and states of each, and what a
// failing DirectFB call does to it.

#include <string>

#include <gmock/gmock.h>

#include "directfb_check.h"
#include "layout_folder.h"
#include "log_capture.h"
#include "recording_display.h"
#include "renderer_acts.h"
#include "renderer_steps.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace renderer_acts;
using steps::expectTrace;
using steps::kNoFont;
using steps::Renderer;
using steps::Steps;

const char kFont[] = "/opt/font/test.ttf";
const DFBResult kFailure = DFB_INVARG;

const Button_t kA = key("a", {4, 4, 60, 50});
const Button_t kShift = key("Shift", {68, 4, 125, 51});
const Button_t kStranger = key("?", {500, 400, 33, 21}); // in no list of keys
const Keys kBoth = {kA, kShift};
const Keys kSecond = {kShift};

const Renderer kUi("surface1");
const Renderer kWithoutFont("surface1", kNoFont);
const Steps kPainted = kUi.showHidden(kBoth, {});

// A renderer on a recording display, with two keys; the font is at its place.
struct Bench : renderer_acts::Painter {
    Bench() : Painter{nullptr, nullptr, kFont, kBoth}
    {
        folder.writeFile(kFont, "");
        dfb = display.dfb();
        surface = display.newSurface(800, 600);
    }

    LayoutFolder folder;
    RecordingDisplay display;
    LogCapture log;
};

const Act kCreate = [](Painter& on) { on.create(); };
const Act kLoad = [](Painter& on) { EXPECT_TRUE(on.load()); };
const Act kDestroy = [](Painter& on) { on.ui.reset(); };
const Act kLoadWithoutAPath = [](Painter& on) {
    EXPECT_FALSE(on.ui->setLayoutData(&on.keys, 30, nullptr));
};
const Act kLoadAMissingFont = [](Painter& on) {
    EXPECT_FALSE(on.ui->setLayoutData(&on.keys, 12, "/opt/font/missing.ttf"));
};

template <class... Each> Acts acts(const Each&... each)
{
    return {each...};
}

struct Operation : Row {
    Acts before;
    Acts acts;
    Steps expected;
};

const Acts kNew;
const Acts kCreated = {kCreate};
const Acts kLoaded = {kCreate, kLoad};
const Acts kFocused = {kCreate, kLoad, focus(0)};
const Acts kLocked = {kCreate, kLoad, lock(kSecond)};
const Keys kOddTexts = {key("", {4, 4, 60, 50}), key("%s%n", {68, 4, 125, 51})};

const Operation kOperations[] = {
    {"ConstructionAsksForTheSizeAndClearsBothBuffers", kNew, acts(kCreate),
     kUi.construction(800, 600)},
    {"DestructionWithoutAFontOnlyLogs", kCreated, acts(kDestroy), kUi.destruction()},
    {"DestructionReleasesTheFontAndNothingElse", kLoaded, acts(kDestroy), kUi.destruction("font1")},
    {"SetLayoutDataLoadsTheFont", kCreated, acts(kLoad), kUi.setLayoutData(2, kFont, "font1")},
    {"ASecondSetLayoutDataMakesANewFontAndLosesTheFirst", kLoaded, acts(kLoad, kDestroy),
     kUi.setLayoutData(2, kFont, "font2") + kUi.destruction("font2")},
    {"SetLayoutDataWithoutAPathLoadsNoFont", kCreated, acts(kLoadWithoutAPath),
     kUi.logged("setLayoutData", "called lines;2\n") +
         kUi.logged("setLayoutData", "font file is null\n", steps::kError)},
    {"SetLayoutDataWithAMissingFontStillTakesTheKeysAndKeepsTheFontBefore", kLoaded,
     acts(take(kSecond), kLoadAMissingFont, draw(true)),
     kUi.setLayoutDataWithoutFile(1) + kUi.draw(kSecond, {}, true)},
    {"ClearWithoutFlipFillsTheBackBuffer", kCreated, acts(clear(0x12345678, false)),
     kUi.clear("52,86,120,18", false)},
    {"ClearWithFlipFillsBothBuffers", kCreated, acts(clear(0xFEDCBA98, true)),
     kUi.clear("220,186,152,254", true)},
    {"DrawPaintsEveryKeyInListOrderAndFlips", kLoaded, acts(draw(true)), kUi.draw(kBoth, {}, true)},
    {"DrawReadsTheCallersListEachTime", kLoaded, acts(take({kA, kShift, kStranger}), draw(true)),
     kUi.draw({kA, kShift, kStranger}, {}, true)},
    {"DrawBeforeSetLayoutDataOnlyLogsAndStillCountsAsHidden", kCreated, acts(draw(true), hide()),
     kWithoutFont.draw(kBoth, {}, true) + kUi.hideHidden()},
    {"DrawWithoutFlipLeavesTheVisibleBufferButCountsAsShown", kLoaded, acts(draw(false), show()),
     kUi.draw(kBoth, {}, false) + kUi.showShown()},
    {"AnEmptyKeyListDrawsOnlyTheBackgroundAndTheLockedKeys", kLoaded,
     acts(take({}), draw(true), lock(kSecond)),
     kUi.draw({}, {}, true) + kUi.setLocked({}, kSecond)},
    {"AnEmptyLabelAndFormatCharactersAreLoggedAndDrawnAsTheyStand", kLoaded,
     acts(take(kOddTexts), draw(true)), kUi.draw(kOddTexts, {}, true)},
    {"ShowTwicePaintsOnceHideTwiceClearsOnce", kLoaded,
     acts(show(), show(), hide(), hide(), show()),
     kPainted + kUi.showShown() + kUi.hideShown() + kUi.hideHidden() + kPainted},
    {"AnyClearMakesShowPaintAgain", acts(kCreate, kLoad, draw(true)),
     acts(clear(0xFF010203, false), show(), clear(0xFF010203, true), show()),
     kUi.clear("1,2,3,255", false) + kPainted + kUi.clear("1,2,3,255", true) + kPainted},
    {"SetfocusRepaintsEverythingWithOneWhiteFrameAndCountsAsShown", kLoaded, acts(focus(0), show()),
     kUi.setfocus(kBoth, {}, kA) + kUi.showShown()},
    {"SetfocusOnAnotherKeyTakesTheFrameFromTheFirst", kFocused, acts(focus(1)),
     kUi.setfocus(kBoth, {}, kShift)},
    {"SetfocusOnALockedKeyKeepsItSunkenInsideTheFrame", kLocked, acts(focus(1)),
     kUi.setfocus(kBoth, kSecond, kShift)},
    {"WithoutAFontSetfocusDrawsOnlyTheFrameAndSetLockedOnlyFlips", kCreated,
     acts(focus(0), lock(kSecond)),
     kWithoutFont.setfocus(kBoth, {}, kA) + kWithoutFont.setLocked(kBoth, {})},
    // DirectFB refuses the text then.
    {"WithoutAFontPressAndPressedDrawAllTheSame", kCreated, acts(press(kA), release(kA)),
     kWithoutFont.press(kA) + kWithoutFont.pressed(kA)},
    {"PressShowsTheKeySunkenAndFlipsItsRegion", kLoaded, acts(press(kA)), kUi.press(kA)},
    {"PressedShowsTheKeyReleasedWithAFrameAndNoBevel", kLoaded, acts(release(kA)), kUi.pressed(kA)},
    {"PressOfAKeyOutsideTheLayoutIsDrawnWhereItsRectangleSays", kLoaded, acts(press(kStranger)),
     kUi.press(kStranger)},
    {"PressAndPressedDrawWhileHiddenAndStayHidden", kLoaded,
     acts(press(kA), release(kA), hide(), show()),
     kUi.press(kA) + kUi.pressed(kA) + kUi.hideHidden() + kPainted},
    {"SetLockedPaintsTheLockedKeysLastInTheirOrderAndCountsAsShown", kLoaded,
     acts(lock({kShift, kA}), show(), draw(true)),
     kUi.setLocked(kBoth, {kShift, kA}) + kUi.showShown() + kUi.draw(kBoth, {kShift, kA}, true)},
    {"SetLockedWithAnEmptyListRemovesSunkenKeysAndTheFrame",
     acts(kCreate, kLoad, lock(kSecond), focus(0)), acts(lock({})), kUi.setLocked(kBoth, {})},
};

std::string report(const std::string& text)
{
    return "directfb do: '" + text + "' failed!\n";
}

// Calls action(steps up to and with the failing one, number of the failing call from 1) for each
// checked call of an operation.
template <class Action> void forEachCheckedCall(const Steps& all, Action action)
{
    size_t call = 0;
    for (auto step = all.begin(); step != all.end(); ++step) {
        if (step->line.compare(0, 4, "log ") == 0)
            continue;
        ++call;
        SCOPED_TRACE("call " + std::to_string(call) + ": " + step->line);
        if (!step->checkedAs.empty())
            action(Steps(all.begin(), step + 1), call);
    }
}

using Drawing = testing::TestWithParam<Operation>;

TEST_P(Drawing, IsTheseCallsAndLines)
{
    Bench bench;
    doAll(GetParam().before, bench);
    takeTrace();
    doAll(GetParam().acts, bench);
    expectTrace(GetParam().expected);
}

TEST_P(Drawing, AFailureOfAnyCheckedCallIsReportedAndNothingIsDoneAfterIt)
{
    forEachCheckedCall(GetParam().expected, [](const Steps& done, size_t call) {
        Bench bench;
        doAll(GetParam().before, bench);
        takeTrace();
        bench.display.failCall(call, kFailure);
        bench.display.throwFatalErrors();

        testing::internal::CaptureStderr();
        FatalError fatal = {"", DFB_OK};
        try {
            doAll(GetParam().acts, bench);
        } catch (const FatalError& error) {
            fatal = error;
        }
        EXPECT_EQ(testing::internal::GetCapturedStderr(), report(done.back().checkedAs));
        EXPECT_EQ(fatal.text, done.back().checkedAs);
        EXPECT_EQ(fatal.result, kFailure);
        expectTrace(done);
    });
}

INSTANTIATE_TEST_SUITE_P(Operations, Drawing, testing::ValuesIn(kOperations), RowName());

TEST(CheckDirectFB, PrintsTheTextOfAFailureAsItStandsAndNothingElse)
{
    RecordingDisplay().throwFatalErrors();
    testing::internal::CaptureStderr();
    checkDirectFB(DFB_OK, "some call");
    EXPECT_THROW(checkDirectFB(DFB_FAILURE, "a %s %d text"), FatalError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), report("a %s %d text"));
}

TEST(DrawingFonts, AreAskedForInTheGivenSizeAndTellTheirHeight)
{
    Bench bench;
    kCreate(bench);
    bench.display.setFontHeight(20);
    bench.load(12);
    EXPECT_THAT(takeTrace(), testing::Contains("dfb.CreateFont(" + std::string(kFont) +
                                               ",{flags=HEIGHT height=12})"));
    draw(true)(bench);
    expectTrace(Renderer("surface1", 20).draw(kBoth, {}, true));
}

TEST(DrawingFonts, OfAnEarlierReloadStay)
{
    Bench bench;
    doAll({kCreate, kLoad, kLoad, kDestroy}, bench);
    EXPECT_EQ(bench.display.liveFonts(), 1u);
}

TEST(DrawingFonts, OneThatFailsToLoadIsNotFatalAndDrawsNothing)
{
    Bench bench;
    kCreate(bench);
    bench.display.failEvery("CreateFont", DFB_UNSUPPORTED);
    takeTrace();
    EXPECT_TRUE(bench.load());
    EXPECT_THAT(callsOf(takeTrace()), testing::ElementsAre("dfb.CreateFont(" + std::string(kFont) +
                                                               ",{flags=HEIGHT height=30})",
                                                           "surface1.SetFont(null)"));
    bench.ui->show();
    expectTrace(kWithoutFont.showHidden(kBoth, {}));
}

TEST(DrawingFonts, FailuresToSetOrMeasureOneAreIgnored)
{
    for (const char* method : {"SetFont", "GetHeight"}) {
        SCOPED_TRACE(method);
        Bench bench;
        kCreate(bench);
        bench.display.failEvery(method, DFB_FAILURE);
        EXPECT_TRUE(bench.load());
    }
}

// Numbers by hand. The font is 37 high.
struct Geometry : Row {
    Rect_t rect;
    Lines calls;
};

const Geometry kGeometries[] = {
    {"AKeyLowerThanTheFontHasItsTextAboveItsTopEdge",
     {10, 100, 60, 20},
     {"DrawString(\"x\",-1,40,92,TOPCENTER)", "FillRectangle(10,100,61,21)"}},
    {"AKeyOfNoWidthStillHasAFillAndItsBevel",
     {10, 20, 0, 40},
     {"FillRectangle(10,20,1,41)", "DrawLine(10,20,10,60)", "DrawLine(9,20,9,60)"}},
    {"ARectangleIsWidenedWithItsSign",
     {-27132, -2, 32767, 32767},
     {"FillRectangle(-27132,-2,32768,32768)"}},
    {"HalvesAreCutTowardsZero", {0, 0, 61, 50}, {"DrawString(\"x\",-1,30,6,TOPCENTER)"}},
    {"NegativeHalvesAreCutTowardsZero", {0, 0, -61, 50}, {"DrawString(\"x\",-1,-30,6,TOPCENTER)"}},
};

using DrawingGeometry = testing::TestWithParam<Geometry>;

TEST_P(DrawingGeometry, HasTheseNumbers)
{
    Bench bench;
    bench.keys = {key("x", GetParam().rect)};
    doAll({kCreate, kLoad, draw(true)}, bench);
    const Lines found = takeTrace();
    for (const std::string& call : GetParam().calls)
        EXPECT_THAT(found, testing::Contains("surface1." + call));
}

INSTANTIATE_TEST_SUITE_P(Keys, DrawingGeometry, testing::ValuesIn(kGeometries), RowName());

} // namespace
