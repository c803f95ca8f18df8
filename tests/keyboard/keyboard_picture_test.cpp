// The whole keyboard on the shipped layouts, as a viewer meets it.

#include <cstdlib>
#include <memory>

#include <gmock/gmock.h>

#include "display.h"
#include "keyboard_core.h"
#include "layout_folder.h"

using test_support::Picture;
using velmora::browser::vkb::KeyBoardCore;

namespace
{

const int kOk = 13;
const int kRight = 39;
const int kDown = 40;

class KeyboardPicture : public testing::Test
{
protected:
    KeyboardPicture()
    {
        for (const char* file :
             {"Language_Name.json", "Language_English.json", "Language_German.json"})
            folder.linkFile(std::string("/usr/local/opt/nerovista/resources/oskeyboard_config/") +
                                file,
                            std::string(VKB_TEST_LAYOUTS) + "/" + file);
        setenv("VIRTUAL_KEYBOARD_FONT_PATH", VKB_TEST_FONT, 1);
        core.reset(new KeyBoardCore());
        core->OnIMEStart(display.dfb(), nullptr);
        window = display.newestWindow();
    }

    void press(int key, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            core->onKeyEvent(key);
    }

    Picture shown() { return shownOn(window); }

    test_support::LayoutFolder folder;
    Display display;
    std::unique_ptr<KeyBoardCore> core;
    IDirectFBSurface* window = nullptr;
};

} // namespace

TEST_F(KeyboardPicture, StartsWithTheFocusOnTheFirstKey)
{
    EXPECT_PICTURE("english", shown());
}

TEST_F(KeyboardPicture, FocusMoves)
{
    press(kRight, 4);
    press(kDown, 2);
    EXPECT_PICTURE("english-focus", shown());
}

TEST_F(KeyboardPicture, ShiftOnce)
{
    press(kDown, 3);
    press(kOk);
    EXPECT_PICTURE("english-shift", shown());
}

TEST_F(KeyboardPicture, ShiftLockedLooksTheSame)
{
    press(kDown, 3);
    press(kOk, 2);
    EXPECT_PICTURE("english-shift", shown());
    press(kRight, 2);
    EXPECT_PICTURE("english-shift-locked", shown());
    press(kOk);
    EXPECT_PICTURE("english-shift-locked", shown()) << "it stays locked behind a letter";
}

TEST_F(KeyboardPicture, LetterReleasesShiftOnce)
{
    press(kDown, 3);
    press(kOk);
    press(kRight, 2);
    EXPECT_PICTURE("english-shift-locked", shown());
    press(kOk);
    EXPECT_PICTURE("english-shift-released", shown());
}

TEST_F(KeyboardPicture, SymbolSet)
{
    press(kDown, 2);
    press(kOk);
    EXPECT_PICTURE("english-symbols", shown());
}

TEST_F(KeyboardPicture, SymbolSetWithShift)
{
    press(kDown, 2);
    press(kOk);
    press(kDown);
    press(kOk);
    EXPECT_PICTURE("english-symbols-shift", shown());
}

TEST_F(KeyboardPicture, SecondLayout)
{
    press(kRight);
    press(kOk);
    EXPECT_PICTURE("german", shown());
}

TEST_F(KeyboardPicture, HiddenIsTransparentAndShowBringsItBack)
{
    press(kOk);
    EXPECT_THAT(shown().pixels, testing::Each(0u));
    core->Show();
    EXPECT_PICTURE("english", shown());
}
