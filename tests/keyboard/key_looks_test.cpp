// Every look of single keys, on a small window: three keys in a row, the last higher and wider
// than the others.

#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "display.h"
#include "keyboard_ui.h"
#include "row.h"

namespace
{

using namespace test_support;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardUI;

const int kFontSize = 30;
Button_t key(const std::string& text, int16_t x, int16_t width, int16_t height)
{
    Button_t key = {};
    key.text = text;
    key.rect = {x, 10, width, height};
    return key;
}

// The window and what is painted on it.
struct Panel {
    void load() { ASSERT_TRUE(ui.setLayoutData(&keys, kFontSize, VKB_TEST_FONT)); }
    void lock(std::vector<Button_t> locked) { ui.setLocked(locked); }
    Picture shown() { return shownOn(surface); }

    Display display;
    IDirectFBSurface* surface = display.newWindow(300, 90);
    KeyBoardUI ui{display.dfb(), surface};
    std::vector<Button_t> keys = {key("a", 10, 50, 50), key("Shift", 70, 90, 50),
                                  key("space", 170, 120, 70)};
};

// What a painting is made of; a number is a key's position.
using Act = std::function<void(Panel& panel)>;

Act draw(bool flip)
{
    return [=](Panel& panel) { panel.ui.draw(flip); };
}

Act focus(size_t key)
{
    return [=](Panel& panel) { panel.ui.setfocus(panel.keys[key]); };
}

Act press(size_t key)
{
    return [=](Panel& panel) { panel.ui.press(panel.keys[key]); };
}

Act release(size_t key)
{
    return [=](Panel& panel) { panel.ui.pressed(panel.keys[key]); };
}

const Act kShow = [](Panel& panel) { panel.ui.show(); };
const Act kHide = [](Panel& panel) { panel.ui.hide(); };
const Act kLockSecond = [](Panel& panel) { panel.lock({panel.keys[1]}); };
const Act kLockNone = [](Panel& panel) { panel.lock({}); };
const Act kClearUnseen = [](Panel& panel) { panel.ui.clear(0xFF00FF00, false); };
const Act kTakeKeys = [](Panel& panel) { panel.keys.clear(); };
const Act kTakeOddKeys = [](Panel& panel) {
    panel.keys = {key("flat", 10, 90, 12), key("w", 120, 0, 50), key("wide text", 200, 40, 50)};
};
const Act kPressStranger = [](Panel& panel) { panel.ui.press(key("x", 100, 60, 70)); };

struct Painting : Row {
    std::vector<Act> acts;
    const char* picture;
};

const Painting kPaintings[] = {
    {"OfANewKeyboardIsADarkPanel", {}, "panel"},
    {"OfNormalKeys", {draw(true)}, "normal"},
    {"OfALockedKey", {kLockSecond}, "locked"},
    {"OfAFocusedKey", {focus(0)}, "focused"},
    {"OfTheFocusHasNoTraceOnTheKeyBefore", {focus(0), focus(2)}, "focused-last"},
    {"OfALockedKeyWithTheFocus", {kLockSecond, focus(1)}, "locked-focused"},
    {"OfAPressedKey", {focus(0), press(0)}, "pressed"},
    {"OfAReleasedKeyHasNoBevel", {focus(0), press(0), release(0)}, "released"},
    {"OfAReleasedKeyBehindTheNextRedraw", {release(0), focus(0)}, "focused"},
    {"OfAPressedKeyOutsideTheLayout", {draw(true), kPressStranger}, "pressed-outside-layout"},
    // Behind an unseen clear: the rest of the window stays as it was.
    {"OfAPressedKeyShowsOnlyItsOwnArea", {focus(0), kClearUnseen, press(0)}, "pressed"},
    {"OfAHiddenKeyboardIsTransparent", {kShow, kHide}, "hidden"},
    {"OfAKeyboardShownAgain", {kShow, kHide, kShow}, "normal"},
    {"OfAnEmptyLockListIsWithoutFocus", {kLockSecond, focus(1), kLockNone}, "normal"},
    {"OfADrawWithoutFlipCountsAsDrawn", {draw(false), kShow}, "panel"},
    {"OfNoKeys", {kTakeKeys, draw(true)}, "panel"},
    {"OfFlatAndNarrowKeys", {kTakeOddKeys, draw(true)}, "odd-sizes"},
};

class KeyLooks : public testing::TestWithParam<Painting>
{
};

TEST_P(KeyLooks, Picture)
{
    Panel panel;
    panel.load();
    for (const Act& act : GetParam().acts)
        act(panel);
    EXPECT_PICTURE(GetParam().picture, panel.shown());
}

INSTANTIATE_TEST_SUITE_P(Paintings, KeyLooks, testing::ValuesIn(kPaintings), RowName());

TEST(KeyLook, WithoutAFontTheFocusDrawsItsFrameAlone)
{
    Panel panel;
    EXPECT_FALSE(panel.ui.setLayoutData(&panel.keys, kFontSize, "/no/such/font.ttf"));
    panel.ui.setfocus(panel.keys[0]);
    EXPECT_PICTURE("frame-alone", panel.shown());
    panel.lock({panel.keys[1]});
    EXPECT_PICTURE("panel", panel.shown()) << "the other buffer comes to the front";
}

} // namespace
