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

    // What needs no renderer.
    void callAll()
    {
        m_core->leave();
        m_core->Show();
        m_core->Hide();
        m_core->getWidth();
        m_core->getHeight();
        m_core->updateKeyMap();
        m_core->clearButtonHandle();
        m_core->getKeyBoardButton();
        OsButton_t result;
        m_core->getKeyBoardButton(result);
        for (const auto move : {&KeyBoardCore::LeftMoveProc, &KeyBoardCore::RightMoveProc,
                                &KeyBoardCore::UpMoveProc, &KeyBoardCore::DownMoveProc})
            (m_core.get()->*move)();
    }
};

TEST_F(SilentLog, InAnyStateOfTheCore)
{
    create();
    callAll();
    startIt();
    callAll();
    startIt();
    for (const int place :
         {Letter, Shift, Letter, Alt, Alt, Language, Unknown, Mute, Shift, Shift, Shift, Hide}) {
        focus(place);
        m_core->onKeyEvent(13);
    }
    m_core->OnIMECancelled();
    callAll();
    m_core->onLayoutChanged();
}

TEST_F(SilentLog, WithoutARendererOrLayouts)
{
    startWithoutRenderer();
    callAll();
    m_core->enter();
    m_core.reset();
    m_folder.removeCatalogue();
    create();
    startIt();
}

TEST_F(SilentLog, WithoutAFont)
{
    KeyBoardUI ui(m_display.dfb(), m_host_surface);
    EXPECT_FALSE(ui.setLayoutData(&m_none, 30, nullptr));
    EXPECT_FALSE(ui.setLayoutData(&m_none, 30, "/opt/font/missing.ttf"));
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
