// The driver's test window, painted by its own commands. The font here has no Chinese: the last key
// shows its boxes for missing letters.

#include <cstdlib>

#include <gmock/gmock.h>

#include "display.h"
#include "kb_ui_test.h"
#include "layout_folder.h"

namespace
{

class TestWindowPicture : public testing::Test
{
protected:
    TestWindowPicture()
    {
        folder.linkFile("/opt/font/TarvoL2700.ttf", VKB_TEST_FONT);
        setenv("VKB_TEST_SLEEPS", "/dev/null", 1);
        prepareDisplay();
        initDFB(0, nullptr, {100, 100, 800, 600});
    }

    test_support::LayoutFolder folder;
};

} // namespace

TEST_F(TestWindowPicture, Show)
{
    EXPECT_EQ(kb_ui_test("show", ""), 0);
    EXPECT_PICTURE("kbui-show", shownOn(surface));
}

TEST_F(TestWindowPicture, Lock)
{
    kb_ui_test("lock", "");
    EXPECT_PICTURE("kbui-lock", shownOn(surface));
}

TEST_F(TestWindowPicture, PressEndsWithTheFocus)
{
    kb_ui_test("press", "");
    EXPECT_PICTURE("kbui-press", shownOn(surface));
}

TEST_F(TestWindowPicture, LoopFocusEndsOnTheLastKey)
{
    kb_ui_test("loop-focus", "1");
    EXPECT_PICTURE("kbui-loop-focus", shownOn(surface));
}

TEST_F(TestWindowPicture, LoopShowHideEndsTransparent)
{
    kb_ui_test("loop-showhide", "1");
    EXPECT_THAT(shownOn(surface).pixels, testing::Each(0u));
}
