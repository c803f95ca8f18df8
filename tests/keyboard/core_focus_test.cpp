// The focus: which key has it, where the arrow keys move it, and what the renderer is told.

#include <ostream>
#include <string>

#include "core_fixture.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace sample;
using namespace steps;

const char kNoUi[] = "Can not find Keboard UI!\n";
const char kNoTarget[] = "Target keybutton is error,no need to change focus!\n";

class CoreFocus : public CoreTest
{
protected:
    // A change of the focus, as far as the core itself logs it when there is no renderer.
    static Steps unseenFocusChange(const std::string& targetLines)
    {
        return coreLogged(kTrace, "FocusButtonChangedTo", "called\n") +
               coreLogged(kTrace, "getTargetButtonByButtonId", targetLines) +
               coreLogged(kError, "getTargetButtonByButtonId", kNoTarget) +
               coreLogged(kTrace, "FocusButtonChangedTo", "focus button:\n") +
               coreLogged(kError, "sendLockButtonToUI", kNoUi) +
               coreLogged(kError, "sendFocusButtonToUI", kNoUi);
    }

    // Replaces the neighbours of English's keys.
    void startWithNeighbours(int place, int left, int right, int up, int down)
    {
        std::vector<Key> changed = allKindsDefaultKeys("English");
        Key& key = changed[static_cast<size_t>(place)];
        key.left = left;
        key.right = right;
        key.up = up;
        key.down = down;
        m_folder.writeKeyMap("English", asJson(changed, {}));
        start();
    }
};

TEST_F(CoreFocus, AValidKeyBecomesTheFocusedOneWithAllItsFields)
{
    start();
    const Button_t found = m_core->getTargetButtonByButtonId(kClearAll);
    expectTrace(coreLogged(kTrace, "getTargetButtonByButtonId", "Target button num is 4\n"));
    const Button_t expected = keys()[kClearAll];
    for (const Button_t& button : {found, focused()}) {
        EXPECT_EQ(button.text, "ClearAll");
        EXPECT_EQ(button.rect.positionX, expected.rect.positionX);
        EXPECT_EQ(button.rect.positionY, expected.rect.positionY);
        EXPECT_EQ(button.rect.width, expected.rect.width);
        EXPECT_EQ(button.rect.height, expected.rect.height);
        EXPECT_EQ(button.id, kClearAll);
        EXPECT_TRUE(button.isSpecial);
        EXPECT_FALSE(button.isLanguage);
        EXPECT_EQ(button.keyCode, 46);
        EXPECT_EQ(button.character, 127);
        EXPECT_EQ(button.left_button, 3);
        EXPECT_EQ(button.right_button, 5);
        EXPECT_EQ(button.up_button, 0);
        EXPECT_EQ(button.down_button, 8);
    }
}

TEST_F(CoreFocus, AnIdOutsideTheKeySetIsRefused)
{
    start();
    focus(kAlt);
    for (const int id : {-1, int(kKeys), int(kKeys) + 1, 2147483647, -2147483647 - 1}) {
        EXPECT_EQ(m_core->getTargetButtonByButtonId(id).text, "Alt");
        expectTrace(coreLogged(kTrace, "getTargetButtonByButtonId",
                               "Target button num is " + std::to_string(id) + "\n") +
                    coreLogged(kError, "getTargetButtonByButtonId", kNoTarget));
    }
}

TEST_F(CoreFocus, TheLastKeyIsValid)
{
    start();
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kKeys - 1).text, "mute");
}

TEST_F(CoreFocus, AChangeSendsTheLocksBeforeTheFocus)
{
    start();
    EXPECT_EQ(m_core->FocusButtonChangedTo(kHide), 1);
    const Keys shown = keys();
    expectTrace(m_expected.focusChange(shown, m_none, kHide, shown[kHide]));
}

TEST_F(CoreFocus, ARefusedChangeSendsTheUnchangedFocus)
{
    start();
    focus(kHide);
    EXPECT_EQ(m_core->FocusButtonChangedTo(99), 1);
    const Keys shown = keys();
    expectTrace(m_expected.refusedFocusChange(shown, m_none, 99, shown[kHide]));
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
    expectTrace(coreLogged(kError, "sendFocusButtonToUI", kNoUi) +
                coreLogged(kError, "sendLockButtonToUI", kNoUi));
    EXPECT_EQ(m_core->FocusButtonChangedTo(0), 0);
}

TEST_F(CoreFocus, AnEmptyKeySetIsMovedOnWithTheTargetError)
{
    m_folder.writeKeyMap("English", asJson({}, {}));
    start();
    for (const int code : {37, 38, 39, 40}) {
        EXPECT_EQ(m_core->onKeyEvent(code), 0);
        EXPECT_THAT(logLinesOf(takeTrace()),
                    testing::Contains(logTraceLine("keyboard_core.cpp", kError,
                                                   "getTargetButtonByButtonId", kNoTarget)));
        EXPECT_EQ(focused().text, "");
    }
}

TEST_F(CoreFocus, TheNeighbourIsAPositionWhateverItsOwnIdSays)
{
    std::vector<Key> changed = allKindsDefaultKeys("English");
    changed[4].id = 1;
    m_folder.writeKeyMap("English", asJson(changed, {}));
    start();
    focus(kLanguage);
    EXPECT_EQ(m_core->RightMoveProc(), 0);
    EXPECT_EQ(focused().text, "ClearAll");
    EXPECT_EQ(focused().id, 1);
}

TEST_F(CoreFocus, AfterAReloadTheFocusIsFoundByItsOwnId)
{
    std::vector<Key> changed = allKindsDefaultKeys("English");
    changed[4].id = 1;
    m_folder.writeKeyMap("English", asJson(changed, {}));
    start();
    focus(kClearAll);
    m_core->updateKeyBoardUI();
    EXPECT_EQ(focused().text, "Shift");
}

TEST_F(CoreFocus, AfterAChangeOfKeySetTheFocusStaysAtItsIndex)
{
    start();
    press(kAlt);
    focus(kLetter);
    EXPECT_EQ(focused().text, "1");
    press(kShift);
    focus(kLetter);
    EXPECT_EQ(focused().text, "!");
    press(kLanguage);
    EXPECT_EQ(focused().id, kLanguage);
    EXPECT_EQ(focused().text, "German");
}

// The four moves.
struct Move {
    const char* procedure;
    int (KeyBoardCore::*move)();
    int code;
    int to; // from the place 1, with the neighbours of the test below
};

std::ostream& operator<<(std::ostream& stream, const Move& move)
{
    return stream << move.procedure;
}

const int kLeft = 3, kRight = 4, kUp = 5, kDown = 6;
const Move kMoves[] = {{"LeftMoveProc", &KeyBoardCore::LeftMoveProc, 37, kLeft},
                       {"UpMoveProc", &KeyBoardCore::UpMoveProc, 38, kUp},
                       {"RightMoveProc", &KeyBoardCore::RightMoveProc, 39, kRight},
                       {"DownMoveProc", &KeyBoardCore::DownMoveProc, 40, kDown}};

class CoreMove : public CoreFocus, public testing::WithParamInterface<Move>
{
protected:
    int move() { return ((*m_core).*GetParam().move)(); }
    static Steps called() { return coreLogged(kTrace, GetParam().procedure, "called\n"); }

    void startAt1(int left, int right, int up, int down)
    {
        startWithNeighbours(1, left, right, up, down);
        focus(1);
    }
};

TEST_P(CoreMove, FollowsItsOwnNeighbour)
{
    startAt1(kLeft, kRight, kUp, kDown);
    EXPECT_EQ(move(), 0);
    EXPECT_EQ(focused().id, GetParam().to);
}

TEST_P(CoreMove, LogsAndTellsTheRenderer)
{
    startAt1(2, 2, 2, 2);
    EXPECT_EQ(move(), 0);
    Keys shown = keys();
    shown[1].left_button = shown[1].right_button = shown[1].up_button = shown[1].down_button = 2;
    expectTrace(called() + m_expected.focusChange(shown, m_none, 2, shown[2]));
}

TEST_P(CoreMove, IsWhatItsKeyCodeDoes)
{
    startAt1(kLeft, kRight, kUp, kDown);
    EXPECT_EQ(m_core->onKeyEvent(GetParam().code), 0);
    EXPECT_EQ(focused().id, GetParam().to);
}

TEST_P(CoreMove, TowardsNoNeighbourStaysAndIsUsedUp)
{
    for (const int none : {-1, int(kKeys)}) {
        SCOPED_TRACE(none);
        startAt1(none, none, none, none);
        EXPECT_EQ(move(), 0);
        const std::string target = "Target button num is " + std::to_string(none) + "\n";
        const Lines found = takeTrace();
        EXPECT_THAT(found, testing::Contains(logTraceLine("keyboard_core.cpp", kTrace,
                                                          "getTargetButtonByButtonId", target)));
        EXPECT_THAT(found, testing::Contains(logTraceLine("keyboard_core.cpp", kError,
                                                          "getTargetButtonByButtonId", kNoTarget)));
        EXPECT_EQ(focused().id, 1);
    }
}

TEST_P(CoreMove, TowardsNoNeighbourStillTellsTheRenderer)
{
    startAt1(-1, -1, -1, -1);
    EXPECT_EQ(move(), 0);
    Keys shown = keys();
    expectTrace(called() + m_expected.refusedFocusChange(shown, m_none, -1, shown[1]));
}

TEST_P(CoreMove, WithoutARendererFails)
{
    create();
    EXPECT_EQ(move(), 2);
    expectTrace(called() + unseenFocusChange("Target button num is 0\n") +
                coreLogged(kError, GetParam().procedure, "Failed to handle the key!\n"));
}

INSTANTIATE_TEST_SUITE_P(All, CoreMove, testing::ValuesIn(kMoves),
                         [](const auto& test) { return std::string(test.param.procedure); });

} // namespace
