// The focus: which key has it, where the arrow keys move it, and what the renderer is told.

#include <string>

#include "core_fixture.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace sample;
using namespace steps;

const char kNoUiHere[] = "Can not find Keboard UI!\n";

class CoreFocus : public CoreTest
{
protected:
    // English's key at this place has these neighbours.
    Keys startWithNeighbours(int place, int left, int right, int up, int down)
    {
        std::vector<Key> keys = keySet("English");
        Key& key = keys[static_cast<size_t>(place)];
        key.left = left;
        key.right = right;
        key.up = up;
        key.down = down;
        writeEnglish(place, key);
        start();
        focus(place);
        return buttons(keys, false);
    }

    // The key at place 4 says that it is at place 1.
    void startWithAnIdOfAnother()
    {
        Key key = keySet("English")[4];
        key.id = 1;
        writeEnglish(4, key);
        start();
    }
};

TEST_F(CoreFocus, AValidKeyBecomesTheFocusedOneWithAllItsFields)
{
    start();
    const Button_t found = m_core->getTargetButtonByButtonId(ClearAll);
    expectTrace(core("getTargetButtonByButtonId", "Target button num is 4\n"));
    const Button_t expected = {"ClearAll", {4, 62, 60, 50}, 4, true, false, 46, 127, 3, 5, 0, 8};
    EXPECT_EQ(found, expected);
    EXPECT_EQ(focused(), expected);
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kKeys - 1).text, "mute") << "the last one";
}

TEST_F(CoreFocus, AnIdOutsideTheKeySetIsRefused)
{
    start();
    focus(Alt);
    for (const int id : {-1, int(kKeys), int(kKeys) + 1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(m_core->getTargetButtonByButtonId(id).text, "Alt");
        expectTrace(
            core("getTargetButtonByButtonId", "Target button num is " + std::to_string(id) + "\n") +
            core("getTargetButtonByButtonId", kNoTarget, kError));
    }
}

TEST_F(CoreFocus, AChangeSendsTheLocksBeforeTheFocus)
{
    start();
    const Keys shown = keys();
    EXPECT_EQ(m_core->FocusButtonChangedTo(Hide), 1);
    expectTrace(m_expected.focusChange(shown, m_none, Hide, shown[Hide]));
    EXPECT_EQ(m_core->FocusButtonChangedTo(99), 1) << "refused, the focus is sent all the same";
    expectTrace(m_expected.refusedFocusChange(shown, m_none, 99, shown[Hide]));
}

TEST_F(CoreFocus, SendingReachesTheRenderer)
{
    start();
    const Keys shown = keys();
    EXPECT_EQ(m_core->sendFocusButtonToUI(), 1);
    expectTrace(m_renderer.setfocus(shown, m_none, shown[0]));
    EXPECT_EQ(m_core->sendLockButtonToUI(), 1);
    expectTrace(m_renderer.setLocked(shown, m_none));
}

TEST_F(CoreFocus, SendingWithoutARendererFails)
{
    create();
    EXPECT_EQ(m_core->sendFocusButtonToUI(), 0);
    EXPECT_EQ(m_core->sendLockButtonToUI(), 0);
    expectTrace(core("sendFocusButtonToUI", kNoUiHere, kError) +
                core("sendLockButtonToUI", kNoUiHere, kError));
    EXPECT_EQ(m_core->FocusButtonChangedTo(0), 0);
}

TEST_F(CoreFocus, TheNeighbourIsAPositionWhateverItsOwnIdSays)
{
    startWithAnIdOfAnother();
    focus(Language);
    EXPECT_EQ(m_core->RightMoveProc(), 0);
    EXPECT_EQ(focused().text, "ClearAll");
    EXPECT_EQ(focused().id, 1);
}

TEST_F(CoreFocus, AfterAReloadTheFocusIsFoundByItsOwnId)
{
    startWithAnIdOfAnother();
    focus(ClearAll);
    m_core->updateKeyBoardUI();
    EXPECT_EQ(focused().text, "Shift");
}

// The four moves, from place 1 to the neighbours 3, 4, 5 and 6.
struct Move : Row {
    int (KeyBoardCore::*move)();
    int code;
    int to;
};

const Move kMoves[] = {{"LeftMoveProc", &KeyBoardCore::LeftMoveProc, 37, 3},
                       {"RightMoveProc", &KeyBoardCore::RightMoveProc, 39, 4},
                       {"UpMoveProc", &KeyBoardCore::UpMoveProc, 38, 5},
                       {"DownMoveProc", &KeyBoardCore::DownMoveProc, 40, 6}};

class CoreMove : public WithRows<CoreFocus, Move>
{
protected:
    int move() { return ((*m_core).*GetParam().move)(); }
    static Steps called() { return core(GetParam().name, "called\n"); }
};

TEST_P(CoreMove, FollowsItsOwnNeighbourAndTellsTheRenderer)
{
    const Keys shown = startWithNeighbours(1, 3, 4, 5, 6);
    EXPECT_EQ(move(), 0);
    const int to = GetParam().to;
    expectTrace(called() +
                m_expected.focusChange(shown, m_none, to, shown[static_cast<size_t>(to)]));
    focus(1);
    EXPECT_EQ(m_core->onKeyEvent(GetParam().code), 0) << "what its key code does";
    EXPECT_EQ(focused().id, to);
}

TEST_P(CoreMove, TowardsNoNeighbourStaysIsUsedUpAndStillTellsTheRenderer)
{
    // Left and right before the first key, up and down behind the last one.
    const int none = GetParam().to < 5 ? -1 : int(kKeys);
    const Keys shown = startWithNeighbours(1, -1, -1, kKeys, kKeys);
    EXPECT_EQ(move(), 0);
    expectTrace(called() + m_expected.refusedFocusChange(shown, m_none, none, shown[1]));
    EXPECT_EQ(focused().id, 1);
}

TEST_P(CoreMove, WithoutARendererFails)
{
    create();
    EXPECT_EQ(move(), 2);
    expectTrace(called() + core("FocusButtonChangedTo", "called\n") +
                core("getTargetButtonByButtonId", "Target button num is 0\n") +
                core("getTargetButtonByButtonId", kNoTarget, kError) +
                core("FocusButtonChangedTo", "focus button:\n") +
                core("sendLockButtonToUI", kNoUiHere, kError) +
                core("sendFocusButtonToUI", kNoUiHere, kError) +
                core(GetParam().name, "Failed to handle the key!\n", kError));
}

INSTANTIATE_TEST_SUITE_P(All, CoreMove, testing::ValuesIn(kMoves), RowName());

} // namespace
