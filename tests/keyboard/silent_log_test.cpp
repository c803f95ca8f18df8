// With every level off, no operation evaluates anything for the log, and each does the same.

#include <string>

#include "core_fixture.h"
#include "keyboard_ui.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using namespace sample;

class SilentLog : public CoreTest
{
protected:
    SilentLog() { m_log.switchOffAll(); }

    ~SilentLog() override
    {
        m_core.reset();
        EXPECT_GT(m_log.levelsAsked(), 0u);
        EXPECT_EQ(m_log.baseNamesAsked(), 0u);
        EXPECT_THAT(m_log.lines(), testing::IsEmpty());
    }

    void callWhatNeedsNoRenderer()
    {
        m_core->leave();
        m_core->Show();
        m_core->Hide();
        m_core->getWidth();
        m_core->getHeight();
        m_core->updateKeyMap();
        m_core->setKeyBoardButton();
        m_core->clearButtonHandle();
        m_core->getKeyBoardButton();
        OsButton_t result;
        m_core->getKeyBoardButton(result);
        for (const int code : {13, 37, 38, 39, 40})
            m_core->onKeyEvent(code);
        m_core->LeftMoveProc();
        m_core->RightMoveProc();
        m_core->UpMoveProc();
        m_core->DownMoveProc();
    }
};

TEST_F(SilentLog, BeforeAStart)
{
    create();
    callWhatNeedsNoRenderer();
}

TEST_F(SilentLog, WhileStarted)
{
    start();
    callWhatNeedsNoRenderer();
    m_core->OnIMEStart(m_display.dfb(), m_host_surface);
    for (const int place : {kLetter, kShift, kLetter, kAlt, kAlt, kLanguage, kUnknown, kMute}) {
        focus(place);
        m_core->onKeyEvent(13);
    }
    for (int i = 0; i < 3; ++i)
        press(kShift);
    press(kHide);
}

TEST_F(SilentLog, AfterACancel)
{
    start();
    m_core->OnIMECancelled();
    callWhatNeedsNoRenderer();
    m_core->onLayoutChanged();
}

TEST_F(SilentLog, WithoutARenderer)
{
    startWithoutRenderer();
    callWhatNeedsNoRenderer();
    m_core->enter();
}

TEST_F(SilentLog, WithoutLayouts)
{
    m_folder.removeCatalogue();
    create();
    startIt();
    EXPECT_FALSE(m_core->isKeyBoardEnable());
}

TEST_F(SilentLog, WithoutAFont)
{
    KeyBoardUI ui(m_display.dfb(), m_host_surface);
    Keys none;
    EXPECT_FALSE(ui.setLayoutData(&none, 30, nullptr));
    EXPECT_FALSE(ui.setLayoutData(&none, 30, "/opt/font/missing.ttf"));
    ui.draw(true);
}

TEST_F(SilentLog, TheDrawingIsTheSame)
{
    start();
    const Keys shown = keys();
    m_core->sendFocusButtonToUI();
    EXPECT_EQ(takeTrace(), callsOf(linesOf(m_renderer.setfocus(shown, m_none, shown[0]))));
}

} // namespace
