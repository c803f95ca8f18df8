// The renderer's operations on a surface: the exact calls, log lines and states of each, and what a
// failing DirectFB call does to it.

#include <functional>
#include <memory>
#include <set>
#include <string>

#include <gmock/gmock.h>

#include <sys/wait.h>

#include "directfb_check.h"
#include "fatal_trap.h"
#include "keyboard_ui.h"
#include "layout_folder.h"
#include "log_capture.h"
#include "recording_display.h"
#include "renderer_steps.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using steps::expectTrace;
using steps::key;
using steps::Keys;
using steps::kNoFont;
using steps::Renderer;
using steps::Step;
using steps::Steps;
using testing::AllOf;
using testing::HasSubstr;

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

// A renderer on this surface, with two keys.
struct Bench {
    Bench() { folder.writeFile(kFont, ""); }

    void create() { ui.reset(new KeyBoardUI(display.dfb(), surface)); }
    bool load(int size = 30) { return ui->setLayoutData(&keys, size, kFont); }
    void lock(Keys keysLocked) { ui->setLocked(keysLocked); }

    LayoutFolder folder;
    RecordingDisplay display;
    LogCapture log;
    IDirectFBSurface* surface = display.newSurface(800, 600);
    Keys keys = kBoth;
    Keys locked = kSecond;
    std::unique_ptr<KeyBoardUI> ui;
};

void nothing(Bench&) {}

void create(Bench& bench)
{
    bench.create();
}

void load(Bench& bench)
{
    bench.create();
    bench.load();
}

void loadWithoutKeys(Bench& bench)
{
    bench.keys.clear();
    load(bench);
}

void lock(Bench& bench)
{
    load(bench);
    bench.lock(bench.locked);
}

using Act = void (*)(Bench&);

const Act kDraw = [](Bench& bench) { bench.ui->draw(true); };
const Act kShow = [](Bench& bench) { bench.ui->show(); };
const Act kHide = [](Bench& bench) { bench.ui->hide(); };
const Act kFocus = [](Bench& bench) { bench.ui->setfocus(bench.keys[0]); };
const Act kLock = [](Bench& bench) { bench.lock(bench.locked); };

// Several in a row.
std::function<void(Bench&)> all(const std::vector<Act>& acts)
{
    return [=](Bench& bench) {
        for (const Act act : acts)
            act(bench);
    };
}

struct Operation : Row {
    std::function<void(Bench&)> before;
    std::function<void(Bench&)> act;
    Steps expected;
};

const Operation kOperations[] = {
    {"ConstructionAsksForTheSizeAndClearsBothBuffers", nothing, create, kUi.construction(800, 600)},
    {"DestructionWithoutAFontOnlyLogs", create, [](Bench& bench) { bench.ui.reset(); },
     kUi.destruction()},
    {"DestructionReleasesTheFontAndNothingElse", load, [](Bench& bench) { bench.ui.reset(); },
     kUi.destruction("font1")},

    {"SetLayoutDataLoadsTheFont", create, [](Bench& bench) { EXPECT_TRUE(bench.load()); },
     kUi.setLayoutData(2, kFont, "font1")},
    {"ASecondSetLayoutDataMakesANewFontAndLosesTheFirst", load,
     [](Bench& bench) {
         EXPECT_TRUE(bench.load());
         bench.ui.reset();
         EXPECT_EQ(bench.display.liveFonts(), 1u);
     },
     kUi.setLayoutData(2, kFont, "font2") + kUi.destruction("font2")},
    {"SetLayoutDataWithoutAPathLoadsNoFont", create,
     [](Bench& bench) { EXPECT_FALSE(bench.ui->setLayoutData(&bench.keys, 30, nullptr)); },
     kUi.logged("setLayoutData", "called lines;2\n") +
         kUi.logged("setLayoutData", "font file is null\n", steps::kError)},
    {"SetLayoutDataWithAMissingFontStillTakesTheKeysAndKeepsTheFontBefore", load,
     [](Bench& bench) {
         EXPECT_FALSE(bench.ui->setLayoutData(&bench.locked, 12, "/opt/font/missing.ttf"));
         bench.ui->draw(true);
     },
     kUi.setLayoutDataWithoutFile(1) + kUi.draw(kSecond, {}, true)},

    {"ClearWithoutFlipFillsTheBackBuffer", create,
     [](Bench& bench) { bench.ui->clear(0x12345678, false); }, kUi.clear("52,86,120,18", false)},
    {"ClearWithFlipFillsBothBuffers", create,
     [](Bench& bench) { bench.ui->clear(0xFEDCBA98, true); }, kUi.clear("220,186,152,254", true)},

    {"DrawPaintsEveryKeyInListOrderAndFlips", load, kDraw, kUi.draw(kBoth, {}, true)},
    {"DrawReadsTheCallersListEachTime", load,
     [](Bench& bench) {
         bench.keys.push_back(kStranger);
         bench.ui->draw(true);
     },
     kUi.draw({kA, kShift, kStranger}, {}, true)},
    {"DrawBeforeSetLayoutDataOnlyLogsAndStillCountsAsHidden", create, all({kDraw, kHide}),
     kWithoutFont.draw(kBoth, {}, true) + kUi.hideHidden()},
    {"DrawWithoutFlipLeavesTheVisibleBufferButCountsAsShown", load,
     [](Bench& bench) {
         bench.ui->draw(false);
         bench.ui->show();
     },
     kUi.draw(kBoth, {}, false) + kUi.showShown()},
    {"AnEmptyKeyListDrawsOnlyTheBackground", loadWithoutKeys, kDraw, kUi.draw({}, {}, true)},
    {"AnEmptyKeyListStillDrawsTheLockedKeys", loadWithoutKeys, kLock, kUi.setLocked({}, kSecond)},
    {"AnEmptyLabelAndFormatCharactersAreLoggedAndDrawnAsTheyStand",
     [](Bench& bench) {
         bench.keys[0].text = "";
         bench.keys[1].text = "%s%n";
         load(bench);
     },
     kDraw, kUi.draw({key("", {4, 4, 60, 50}), key("%s%n", {68, 4, 125, 51})}, {}, true)},
    {"TextIsCentredWithTheHeightThatTheFontReports",
     [](Bench& bench) {
         bench.display.setFontHeight(20);
         load(bench);
     },
     kDraw, Renderer("surface1", 20).draw(kBoth, {}, true)},

    {"ShowTwicePaintsOnceHideTwiceClearsOnce", load, all({kShow, kShow, kHide, kHide, kShow}),
     kPainted + kUi.showShown() + kUi.hideShown() + kUi.hideHidden() + kPainted},
    {"AnyClearMakesShowPaintAgain", all({load, kDraw}),
     [](Bench& bench) {
         bench.ui->clear(0xFF010203, false);
         bench.ui->show();
         bench.ui->clear(0xFF010203, true);
         bench.ui->show();
     },
     kUi.clear("1,2,3,255", false) + kPainted + kUi.clear("1,2,3,255", true) + kPainted},

    {"SetfocusRepaintsEverythingWithOneWhiteFrameAndCountsAsShown", load, all({kFocus, kShow}),
     kUi.setfocus(kBoth, {}, kA) + kUi.showShown()},
    {"SetfocusOnAnotherKeyTakesTheFrameFromTheFirst", all({load, kFocus}),
     [](Bench& bench) { bench.ui->setfocus(bench.keys[1]); }, kUi.setfocus(kBoth, {}, kShift)},
    {"SetfocusOnALockedKeyKeepsItSunkenInsideTheFrame", lock,
     [](Bench& bench) { bench.ui->setfocus(bench.keys[1]); }, kUi.setfocus(kBoth, kSecond, kShift)},
    {"WithoutAFontSetfocusDrawsOnlyTheFrameAndSetLockedOnlyFlips", create, all({kFocus, kLock}),
     kWithoutFont.setfocus(kBoth, {}, kA) + kWithoutFont.setLocked(kBoth, {})},

    {"PressShowsTheKeySunkenAndFlipsItsRegion", load,
     [](Bench& bench) { bench.ui->press(bench.keys[0]); }, kUi.press(kA)},
    {"PressedShowsTheKeyReleasedWithAFrameAndNoBevel", all({load, kFocus}),
     [](Bench& bench) { bench.ui->pressed(bench.keys[0]); }, kUi.pressed(kA)},
    {"PressOfAKeyOutsideTheLayoutIsDrawnWhereItsRectangleSays", load,
     [](Bench& bench) { bench.ui->press(kStranger); }, kUi.press(kStranger)},
    {"PressAndPressedDrawWhileHiddenAndStayHidden", load,
     [](Bench& bench) {
         bench.ui->press(bench.keys[0]);
         bench.ui->pressed(bench.keys[0]);
         bench.ui->hide();
         bench.ui->show();
     },
     kUi.press(kA) + kUi.pressed(kA) + kUi.hideHidden() + kUi.showHidden(kBoth, {})},

    {"SetLockedPaintsTheLockedKeysLastInTheirOrderAndCountsAsShown", load,
     [](Bench& bench) {
         bench.lock({bench.keys[1], bench.keys[0]});
         bench.ui->show();
     },
     kUi.setLocked(kBoth, {kShift, kA}) + kUi.showShown()},
    {"SetLockedKeepsACopyOfItsOwn", load,
     [](Bench& bench) {
         bench.ui->setLocked(bench.locked);
         bench.locked.clear();
         bench.ui->draw(true);
     },
     kUi.setLocked(kBoth, kSecond) + kUi.draw(kBoth, kSecond, true)},
    {"SetLockedWithAnEmptyListRemovesSunkenKeysAndTheFrame", all({lock, kFocus}),
     [](Bench& bench) { bench.lock({}); }, kUi.setLocked(kBoth, {})},
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

class Drawing : public testing::TestWithParam<Operation>
{
};

TEST_P(Drawing, IsTheseCallsAndLines)
{
    Bench bench;
    GetParam().before(bench);
    takeTrace();
    GetParam().act(bench);
    expectTrace(GetParam().expected);
}

TEST_P(Drawing, AFailureOfAnyCheckedCallIsReportedAndNothingIsDoneAfterIt)
{
    forEachCheckedCall(GetParam().expected, [](const Steps& done, size_t call) {
        Bench bench;
        GetParam().before(bench);
        takeTrace();
        bench.display.failCall(call, kFailure);

        const FatalTrap trap;
        testing::internal::CaptureStderr();
        FatalError fatal = {"", DFB_OK};
        try {
            GetParam().act(bench);
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

bool endedWithTheResult(int status)
{
    return WIFEXITED(status) && WEXITSTATUS(status) == (static_cast<int>(kFailure) & 0xFF);
}

auto reportedByBoth(const std::string& text)
{
    return AllOf(HasSubstr(report(text)), HasSubstr("DirectFBError [" + text + "]: "));
}

TEST(DrawingDeathTest, DirectFBItselfEndsTheProcessForEachText)
{
    std::set<std::string> seen;
    for (const Operation& operation : kOperations) {
        SCOPED_TRACE(operation.name);
        forEachCheckedCall(operation.expected, [&](const Steps& done, size_t call) {
            const std::string& text = done.back().checkedAs;
            if (!seen.insert(text).second)
                return;
            Bench bench;
            operation.before(bench);
            bench.display.failCall(call, kFailure);
            EXPECT_EXIT(operation.act(bench), endedWithTheResult, reportedByBoth(text));
        });
    }
    EXPECT_EQ(seen.size(), 18u);
}

TEST(DrawingDeathTest, DrawStringFailsWithoutAFont)
{
    Bench bench;
    bench.create();
    bench.display.failEvery("DrawString", kFailure);
    const char text[] = "m_surface->DrawString(m_surface,key.text.c_str(),-1,Xcenter,Ycenter,"
                        "DSTF_TOPCENTER)";
    EXPECT_EXIT(bench.ui->press(bench.keys[0]), endedWithTheResult, reportedByBoth(text));
    EXPECT_EXIT(bench.ui->pressed(bench.keys[0]), endedWithTheResult, reportedByBoth(text));
}

TEST(CheckDirectFB, PrintsTheTextOfAFailureAsItStandsAndNothingElse)
{
    const FatalTrap trap;
    testing::internal::CaptureStderr();
    checkDirectFB(DFB_OK, "some call");
    EXPECT_THROW(checkDirectFB(DFB_FAILURE, "a %s %d text"), FatalError);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), report("a %s %d text"));
}

TEST(DrawingFonts, TheGivenSizeIsAskedFor)
{
    Bench bench;
    bench.create();
    bench.load(12);
    EXPECT_THAT(takeTrace(), testing::Contains("dfb.CreateFont(" + std::string(kFont) +
                                               ",{flags=HEIGHT height=12})"));
}

TEST(DrawingFonts, OneThatFailsToLoadIsNotFatalAndDrawsNothing)
{
    Bench bench;
    bench.create();
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
        bench.create();
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

class DrawingGeometry : public testing::TestWithParam<Geometry>
{
};

TEST_P(DrawingGeometry, HasTheseNumbers)
{
    Bench bench;
    bench.keys = {key("x", GetParam().rect)};
    load(bench);
    bench.ui->draw(true);
    const Lines found = takeTrace();
    for (const std::string& call : GetParam().calls)
        EXPECT_THAT(found, testing::Contains("surface1." + call));
}

INSTANTIATE_TEST_SUITE_P(Keys, DrawingGeometry, testing::ValuesIn(kGeometries), RowName());

} // namespace
