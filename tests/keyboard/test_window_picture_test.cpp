// The driver's test window, painted by its own commands. The font here has no Chinese: the last key
// shows its boxes for missing letters.

#include <cstdlib>

#include "display.h"
#include "kb_ui_test.h"
#include "layout_folder.h"
#include "row.h"

namespace
{

struct Command : test_support::Row {
    const char* command;
    const char* parameter;
    const char* picture; // null: transparent
};

const Command kCommands[] = {
    {"Show", "show", "", "kbui-show"},
    {"Lock", "lock", "", "kbui-lock"},
    {"PressEndsWithTheFocus", "press", "", "kbui-press"},
    {"LoopFocusEndsOnTheLastKey", "loop-focus", "1", "kbui-loop-focus"},
    {"LoopShowHideEndsTransparent", "loop-showhide", "1", nullptr},
};

using TestWindowPicture = testing::TestWithParam<Command>;

TEST_P(TestWindowPicture, Shows)
{
    test_support::LayoutFolder folder;
    folder.linkFile("/opt/font/TarvoL2700.ttf", VKB_TEST_FONT);
    setenv("VKB_TEST_SLEEPS", "/dev/null", 1);
    prepareDisplay();
    initDFB(0, nullptr, {100, 100, 800, 600});
    EXPECT_EQ(kb_ui_test(GetParam().command, GetParam().parameter), 0);
    expectShown(GetParam().picture, surface);
}

INSTANTIATE_TEST_SUITE_P(Commands, TestWindowPicture, testing::ValuesIn(kCommands),
                         test_support::RowName());

} // namespace
