// Every look of single keys, on a small window: three keys in a row, the last higher and wider
// than the others.

#include <gmock/gmock.h>

#include "display.h"
#include "keyboard_ui.h"

using test_support::Picture;
using velmora::browser::vkb::Button_t;
using velmora::browser::vkb::KeyBoardUI;

namespace
{

const int kFontSize = 30;
const uint32_t kBackground = 0xFF1E1E1E;
const uint32_t kNormalFill = 0xFF323232;
const uint32_t kSunkenFill = 0xFF191919;
const uint32_t kShadow = 0xFF0A0A0A;
const uint32_t kWhite = 0xFFFFFFFF;

Button_t key(const std::string& text, int16_t x, int16_t width, int16_t height)
{
    Button_t key = {};
    key.text = text;
    key.rect = {x, 10, width, height};
    return key;
}

class KeyLooks : public testing::Test
{
protected:
    void loadKeys() { ASSERT_TRUE(ui.setLayoutData(&keys, kFontSize, VKB_TEST_FONT)); }

    Picture shown() { return shownOn(surface); }

    uint32_t pixel(const Picture& picture, int x, int y)
    {
        return picture.pixels[size_t(y) * size_t(picture.width) + size_t(x)];
    }

    // Some pixels of a key tell its look: a corner and what lies inside it, the far corner and
    // what lies inside that, and the fill.
    std::vector<uint32_t> look(const Picture& picture, const Button_t& of)
    {
        const int x = of.rect.positionX;
        const int y = of.rect.positionY;
        const int right = x + of.rect.width;
        const int bottom = y + of.rect.height;
        return {pixel(picture, x, y), pixel(picture, x + 1, y + 1), pixel(picture, right, bottom),
                pixel(picture, right - 1, bottom - 1), pixel(picture, x + 3, y + 3)};
    }

    Display display;
    IDirectFBSurface* surface = display.newWindow(300, 90);
    KeyBoardUI ui{display.dfb(), surface};
    std::vector<Button_t> keys = {key("a", 10, 50, 50), key("Shift", 70, 90, 50),
                                  key("space", 170, 120, 70)};
    std::vector<Button_t> locked = {keys[1]};
};

const std::vector<uint32_t> kNormal = {kNormalFill, kNormalFill, kShadow, kShadow, kNormalFill};
const std::vector<uint32_t> kSunken = {kShadow, kShadow, kSunkenFill, kSunkenFill, kSunkenFill};
const std::vector<uint32_t> kFocused = {kWhite, kNormalFill, kWhite, kShadow, kNormalFill};
const std::vector<uint32_t> kSunkenFocused = {kWhite, kShadow, kWhite, kSunkenFill, kSunkenFill};
const std::vector<uint32_t> kReleased = {kWhite, kNormalFill, kWhite, kNormalFill, kNormalFill};

TEST_F(KeyLooks, PictureOfANewKeyboardIsADarkPanel)
{
    EXPECT_PICTURE("panel", shown());
    EXPECT_THAT(shown().pixels, testing::Each(kBackground));
}

TEST_F(KeyLooks, PictureOfNormalKeys)
{
    loadKeys();
    ui.draw(true);
    EXPECT_PICTURE("normal", shown());
    for (const Button_t& each : keys)
        EXPECT_EQ(look(shown(), each), kNormal) << each.text;
}

TEST_F(KeyLooks, PictureOfALockedKey)
{
    loadKeys();
    ui.setLocked(locked);
    EXPECT_PICTURE("locked", shown());
    EXPECT_EQ(look(shown(), keys[0]), kNormal);
    EXPECT_EQ(look(shown(), keys[1]), kSunken);
}

TEST_F(KeyLooks, PictureOfAFocusedKey)
{
    loadKeys();
    ui.setfocus(keys[0]);
    EXPECT_PICTURE("focused", shown());
    EXPECT_EQ(look(shown(), keys[0]), kFocused);
    EXPECT_EQ(look(shown(), keys[1]), kNormal);
}

TEST_F(KeyLooks, FocusLeavesNoTraceOnTheKeyBefore)
{
    loadKeys();
    ui.setfocus(keys[0]);
    ui.setfocus(keys[2]);
    EXPECT_PICTURE("focused-last", shown());
    EXPECT_EQ(look(shown(), keys[0]), kNormal);
    EXPECT_EQ(look(shown(), keys[2]), kFocused);
}

TEST_F(KeyLooks, PictureOfALockedKeyWithTheFocus)
{
    loadKeys();
    ui.setLocked(locked);
    ui.setfocus(keys[1]);
    EXPECT_PICTURE("locked-focused", shown());
    EXPECT_EQ(look(shown(), keys[1]), kSunkenFocused);
}

TEST_F(KeyLooks, PictureOfAPressedKey)
{
    loadKeys();
    ui.setfocus(keys[0]);
    ui.press(keys[0]);
    EXPECT_PICTURE("pressed", shown());
    EXPECT_EQ(look(shown(), keys[0]), kSunken);
}

TEST_F(KeyLooks, PictureOfAReleasedKeyHasNoBevelUntilTheNextRedraw)
{
    loadKeys();
    ui.setfocus(keys[0]);
    ui.press(keys[0]);
    ui.pressed(keys[0]);
    EXPECT_PICTURE("released", shown());
    EXPECT_EQ(look(shown(), keys[0]), kReleased);

    ui.setfocus(keys[0]);
    EXPECT_PICTURE("focused", shown());
}

TEST_F(KeyLooks, PressShowsOnlyTheKeysOwnArea)
{
    loadKeys();
    ui.draw(true);
    const Picture before = shown();
    ui.clear(0xFF00FF00, false);
    ui.press(keys[0]);
    const Picture after = shown();
    for (int y = 0; y < after.height; ++y) {
        for (int x = 0; x < after.width; ++x) {
            const bool inside = x >= 10 && x <= 60 && y >= 10 && y <= 60;
            ASSERT_TRUE(inside || pixel(after, x, y) == pixel(before, x, y)) << x << "," << y;
        }
    }
    EXPECT_EQ(look(after, keys[0]), kSunken);
}

TEST_F(KeyLooks, PictureOfAPressedKeyOutsideTheLayout)
{
    loadKeys();
    ui.draw(true);
    ui.press(key("x", 100, 60, 70));
    EXPECT_PICTURE("pressed-outside-layout", shown());
}

TEST_F(KeyLooks, PictureOfAHiddenKeyboardIsTransparent)
{
    loadKeys();
    ui.show();
    ui.hide();
    EXPECT_PICTURE("hidden", shown());
    EXPECT_THAT(shown().pixels, testing::Each(0u));
}

TEST_F(KeyLooks, PictureOfAShownKeyboardIsThatOfNormalKeysAgain)
{
    loadKeys();
    ui.show();
    EXPECT_PICTURE("normal", shown());
    ui.hide();
    ui.show();
    EXPECT_PICTURE("normal", shown());
}

TEST_F(KeyLooks, EmptyLockListTakesSunkenKeysAndFocusAway)
{
    loadKeys();
    ui.setLocked(locked);
    ui.setfocus(keys[1]);
    std::vector<Button_t> none;
    ui.setLocked(none);
    EXPECT_PICTURE("normal", shown());
}

TEST_F(KeyLooks, DrawWithoutFlipShowsNothingYet)
{
    loadKeys();
    ui.draw(false);
    EXPECT_PICTURE("panel", shown());
    ui.show();
    EXPECT_PICTURE("panel", shown()) << "it counts as drawn already";
}

TEST_F(KeyLooks, EmptyKeyListPaintsTheBackgroundAlone)
{
    loadKeys();
    keys.clear();
    ui.draw(true);
    EXPECT_PICTURE("panel", shown());
}

TEST_F(KeyLooks, PictureOfFlatAndNarrowKeys)
{
    keys = {key("flat", 10, 90, 12), key("w", 120, 0, 50), key("wide text", 200, 40, 50)};
    loadKeys();
    ui.draw(true);
    EXPECT_PICTURE("odd-sizes", shown());
    // One pixel wide: the right-hand lines fall on the fill and left of it.
    EXPECT_EQ(pixel(shown(), 120, 20), kShadow);
    EXPECT_EQ(pixel(shown(), 119, 20), kShadow);
}

TEST_F(KeyLooks, WithoutFontFocusDrawsItsFrameAlone)
{
    EXPECT_FALSE(ui.setLayoutData(&keys, kFontSize, "/no/such/font.ttf"));
    ui.setfocus(keys[0]);
    EXPECT_PICTURE("frame-alone", shown());
    ui.setLocked(locked);
    EXPECT_PICTURE("panel", shown()) << "the other buffer comes to the front";
}

} // namespace
