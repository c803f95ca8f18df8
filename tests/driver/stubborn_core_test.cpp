// What the driver says of a keyboard that goes on taking keys while it is hidden. No real keyboard
// does, so the driver's commands run here on one of their own, linked in the keyboard's place.

#include <algorithm>

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

    const auto& lines = log.lines();
    const auto verdict = std::find_if(lines.begin(), lines.end(), [](const auto& line) {
        return line.function == "kb_test_hide" && line.message != "called\n";
    });
    ASSERT_NE(verdict, lines.end());
    EXPECT_EQ(verdict->message, "Failed to hide VKB\n");
    EXPECT_EQ(verdict->line, 299);
    EXPECT_EQ(verdict->record[0], 0x5F0FA0u);
    EXPECT_EQ(verdict->file, "kb_test.cpp");
}

} // namespace
