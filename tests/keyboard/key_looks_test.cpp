// Every look of single keys, on a small window: three keys in a row, the last higher and wider
// than the others.

#include "display.h"
#include "renderer_acts.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace renderer_acts;

const Button_t kA = key("a", {10, 10, 50, 50});
const Button_t kShift = key("Shift", {70, 10, 90, 50});
const Button_t kSpace = key("space", {170, 10, 120, 70});
const Button_t kStranger = key("x", {100, 10, 60, 70}); // in no list of keys
const Keys kOdd = {key("flat", {10, 10, 90, 12}), key("w", {120, 10, 0, 50}),
                   key("wide text", {200, 10, 40, 50})};

// The window and what is painted on it.
struct Panel : renderer_acts::Painter {
    Panel() : Painter{nullptr, nullptr, VKB_TEST_FONT, {kA, kShift, kSpace}}
    {
        dfb = display.dfb();
        surface = display.newWindow(300, 90);
        create();
    }

    Display display;
};

struct Painting : Row {
    Acts acts;
    const char* picture;
};

const Painting kPaintings[] = {
    {"OfANewKeyboardIsADarkPanel", {}, "panel"},
    {"OfNormalKeys", {draw(true)}, "normal"},
    {"OfALockedKey", {lock({kShift})}, "locked"},
    {"OfAFocusedKey", {focus(0)}, "focused"},
    {"OfTheFocusHasNoTraceOnTheKeyBefore", {focus(0), focus(2)}, "focused-last"},
    {"OfALockedKeyWithTheFocus", {lock({kShift}), focus(1)}, "locked-focused"},
    {"OfAPressedKey", {focus(0), press(kA)}, "pressed"},
    {"OfAReleasedKeyHasNoBevel", {focus(0), press(kA), release(kA)}, "released"},
    {"OfAReleasedKeyBehindTheNextRedraw", {release(kA), focus(0)}, "focused"},
    {"OfAPressedKeyOutsideTheLayout", {draw(true), press(kStranger)}, "pressed-outside-layout"},
    // Behind an unseen clear: the rest of the window stays as it was.
    {"OfAPressedKeyShowsOnlyItsOwnArea",
     {focus(0), clear(0xFF00FF00, false), press(kA)},
     "pressed"},
    {"OfAHiddenKeyboardIsTransparent", {show(), hide()}, "hidden"},
    {"OfAKeyboardShownAgain", {show(), hide(), show()}, "normal"},
    {"OfAnEmptyLockListIsWithoutFocus", {lock({kShift}), focus(1), lock({})}, "normal"},
    {"OfADrawWithoutFlipCountsAsDrawn", {draw(false), show()}, "panel"},
    {"OfNoKeys", {take({}), draw(true)}, "panel"},
    {"OfFlatAndNarrowKeys", {take(kOdd), draw(true)}, "odd-sizes"},
};

using KeyLooks = testing::TestWithParam<Painting>;

TEST_P(KeyLooks, Picture)
{
    Panel panel;
    ASSERT_TRUE(panel.load());
    doAll(GetParam().acts, panel);
    expectShown(GetParam().picture, panel.surface);
}

INSTANTIATE_TEST_SUITE_P(Paintings, KeyLooks, testing::ValuesIn(kPaintings), RowName());

TEST(KeyLook, WithoutAFontTheFocusDrawsItsFrameAlone)
{
    Panel panel;
    panel.font = "/no/such/font.ttf";
    EXPECT_FALSE(panel.load());
    focus(0)(panel);
    expectShown("frame-alone", panel.surface);
    lock({kShift})(panel);
    expectShown("panel", panel.surface); // the other buffer comes to the front
}

} // namespace
