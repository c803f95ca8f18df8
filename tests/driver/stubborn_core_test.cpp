// What the driver says of a keyboard that goes on taking keys while it is hidden. No real keyboard
// does, so the driver's commands run here on one of their own, linked in the keyboard's place.

#include <gtest/gtest.h>

#include "kb_test.h"
#include "keyboard_core.h"
#include "log_capture.h"

namespace velmora::browser::vkb
{

KeyBoardCore::KeyBoardCore() : m_parser(), m_ui(), m_focus_button(), m_button() {}

void KeyBoardCore::OnIMEStart(IDirectFB*, IDirectFBSurface*) {}

void KeyBoardCore::Show() {}

void KeyBoardCore::Hide() {}

int KeyBoardCore::onKeyEvent(int)
{
    return 0;
}

int KeyBoardCore::getKeyBoardButton()
{
    return 0;
}

} // namespace velmora::browser::vkb

namespace
{

TEST(StubbornCore, FailsToHide)
{
    const test_support::LogCapture log;
    EXPECT_EQ(kb_test("hide", "", nullptr, nullptr), 0);

    // Between the command's own line and its time.
    ASSERT_EQ(log.lines().size(), 4u);
    const test_support::LogLine& verdict = log.lines()[2];
    EXPECT_EQ(verdict.function, "kb_test_hide");
    EXPECT_EQ(verdict.message, "Failed to hide VKB\n");
    EXPECT_EQ(verdict.line, 299);
    EXPECT_EQ(verdict.record[0], 0x5F0FA0u);
    EXPECT_EQ(verdict.file, "kb_test.cpp");
}

} // namespace
