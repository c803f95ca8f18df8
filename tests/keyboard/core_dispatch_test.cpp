// What the remote control's keys do: key results, Shift, Alt, language, clear-all and hide.

#include <string>
#include <utility>
#include <vector>

#include "core_fixture.h"
#include "drawn_keyboard.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace sample;
using namespace steps;

const Steps kOkPressed = core("EnterPressProc", "called\n");

Steps resultMade(const std::string& hexCode)
{
    return core("setKeyBoardButton", "called\n") +
           core("setKeyBoardButton", "keycode:0x" + hexCode + "\n", kResult);
}

Steps modeWas(const std::string& handler, int mode)
{
    return core(handler, "ShiftMode:" + std::to_string(mode) + "!\n");
}

Steps unlocked(const std::string& text)
{
    return core("removeLockButton", "Cancel button(" + text + ")focus!\n");
}

// A special key at place 0 or 1 that has this text.
Key special(const std::string& text, int place = Letter, bool isLanguage = false)
{
    return {place, text, true, isLanguage, 5, 0, place - 1, place + 1, 0, place + 4, text, 0};
}

class CoreDispatch : public CoreTest
{
protected:
    // "CODE/MODIFIER/CHARACTER TEXT"
    std::string result()
    {
        OsButton_t taken;
        m_core->getKeyBoardButton(taken);
        takeTrace();
        return std::to_string(taken.keyCode) + "/" + std::to_string(taken.modifier) + "/" +
               std::to_string(taken.character) + " " + taken.text;
    }

    // The labels that the renderer draws sunken, read from a repaint.
    Lines lockedLabels()
    {
        takeTrace();
        m_core->sendLockButtonToUI();
        return drawnKeyboard(takeTrace()).sunken;
    }

    // OK on a key: "ANSWER", the key result when there is one, and " | LABEL..." of the keys that
    // are locked then.
    std::string pressed(int place)
    {
        const int answer = press(place);
        std::string brought = std::to_string(answer) + (answer == 1 ? " " + result() : "");
        std::string mark = " |";
        for (const std::string& label : lockedLabels())
            brought += std::exchange(mark, "") + " " + label;
        return brought;
    }

    void expectRefused(const std::vector<int>& codes)
    {
        for (const int code : codes) {
            takeTrace();
            EXPECT_EQ(m_core->onKeyEvent(code), 2) << code;
            expectTrace(core("onKeyEvent", "Received Keycode: " + std::to_string(code) + "\n"));
        }
    }
};

TEST_F(CoreDispatch, EveryCodeIsLoggedAndNotHandledBeforeAStart)
{
    create();
    expectRefused({0, 13, 37, -5, 1000});
}

TEST_F(CoreDispatch, OtherCodesAreNotHandled)
{
    start();
    std::vector<int> codes = {-1, 0, 12, 41, 42, 100, 65549};
    for (int code = 14; code <= 36; ++code)
        codes.push_back(code);
    expectRefused(codes);
}

TEST_F(CoreDispatch, HiddenOrCancelledNoKeyIsHandledAndNothingChanges)
{
    start();
    m_core->Hide();
    expectRefused({13, 37, 38, 39, 40});
    EXPECT_EQ(focused().id, Letter);
    m_core->Show();
    EXPECT_EQ(m_core->onKeyEvent(13), 1);
    m_core->OnIMECancelled();
    EXPECT_TRUE(m_core->isShow()) << "it still counts as shown";
    expectRefused({13, 39});
}

TEST_F(CoreDispatch, AResultStaysUntilTheNextAndIsLoggedEachTime)
{
    start();
    press(Shift);
    press(Letter);
    takeTrace();
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    const Steps asked = core("getKeyBoardButton", "button.text = A,button.keyCode = 65\n");
    expectTrace(asked + asked);

    OsButton_t taken;
    m_core->getKeyBoardButton(taken);
    expectTrace(
        core("getKeyBoardButton", "button.text = A,button.keyCode = 65,button.modifier = 2\n"));
    press(Mute);
    press(Unknown);
    EXPECT_EQ(result(), "65/2/65 A");
    EXPECT_EQ(result(), "65/2/65 A");
}

// One press after the other, each with all calls and log lines.
TEST_F(CoreDispatch, EachPressOfASessionIsTheseCallsAndLines)
{
    start();
    const Keys plain = keys();
    const Keys shifted = keys("English", true);
    const Keys symbols = keys("English", false, true);
    const Keys german = keys("German");
    const Keys shift = {plain[Shift]};
    const Keys alt = {plain[Alt]};

    const struct {
        const char* what;
        int place;
        int answer;
        Steps steps;
    } session[] = {
        {"a letter", Letter, 1, resultMade("41")},
        {"Shift for one key", Shift, 0,
         modeWas("shiftButtonHandle", 0) + m_expected.reload(shifted, shift, shifted[Shift])},
        {"a shifted letter", Letter, 1,
         resultMade("41") + unlocked("Shift") + m_expected.reload(plain, m_none, plain[Letter])},
        {"a letter behind it", Letter, 1, resultMade("41")},
        {"Shift again", Shift, 0,
         modeWas("shiftButtonHandle", 0) + m_expected.reload(shifted, shift, shifted[Shift])},
        {"Shift locked", Shift, 0,
         modeWas("shiftButtonHandle", 1) + m_expected.reload(shifted, shift, shifted[Shift])},
        {"a letter with Shift locked", Letter, 1, resultMade("41")},
        {"Shift off", Shift, 0,
         modeWas("shiftButtonHandle", 1) + unlocked("Shift") +
             m_expected.reloadIn("shiftButtonHandle", plain, m_none, plain[Shift])},
        {"Alt on", Alt, 0,
         modeWas("altButtonHandle", 0) + m_expected.reload(symbols, alt, symbols[Alt])},
        {"Alt off", Alt, 0,
         modeWas("altButtonHandle", 1) + unlocked("Alt") +
             m_expected.reloadIn("altButtonHandle", plain, m_none, plain[Alt])},
        {"a key that yields nothing", Mute, 0, {}},
        {"clear-all", ClearAll, 1, core("clearButtonHandle", "called\n") + resultMade("2e")},
        {"an unknown special key", Unknown, 2,
         core("specialButtonHandle", "Maybe not special key!\n", kError)},
        {"the next layout at the same place", Language, 0,
         core("languageButtonHandle", "called\n") + layoutChange("German") +
             m_expected.reload(german, m_none, german[Language])},
        {"hide", Hide, 0, core("Hide", "Hide the VKB!\n\n") + m_renderer.hideShown()},
    };
    for (const auto& each : session) {
        SCOPED_TRACE(each.what);
        EXPECT_EQ(press(each.place), each.answer);
        expectTrace(kOkPressed + each.steps);
    }
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());
}

// Presses of OK on these keys, and what each brings.
struct Presses : Row {
    std::vector<int> places;
    std::string brought;
    Key key = {-1, "", false, false, 0, 0, 0, 0, 0, 0, "", 0}; // stands at the place of its id
};

template <class... Places> std::vector<int> on(Places... places)
{
    return {places...};
}

const Presses kPresses[] = {
    {"ShiftLocksItsKeyOnceAndLocked", on(Shift, Shift, Shift, Shift),
     "0 | Shift, 0 | Shift, 0, 0 | Shift"},
    {"ALetterWithShiftOnceIsShiftedAndReleasesShift", on(Letter, Shift, Letter, Letter),
     "1 65/0/97 a, 0 | Shift, 1 65/2/65 A, 1 65/0/97 a"},
    {"ALetterWithShiftLockedStaysShiftedUntilShiftGoesOff",
     on(Shift, Shift, Letter, Letter, Shift, Letter),
     "0 | Shift, 0 | Shift, 1 65/2/65 A | Shift, 1 65/2/65 A | Shift, 0, 1 65/0/97 a"},
    {"ANegativeKeyCodeYieldsNothingAndDoesNotReleaseShift", on(Shift, Mute, Letter),
     "0 | Shift, 0 | Shift, 1 65/2/65 A"},
    {"ClearAllYieldsItsOwnCodesAndKeepsShift", on(ClearAll, Shift, ClearAll, Letter),
     "1 46/0/127 ClearAll, 0 | Shift, 1 46/2/127 ClearAll | Shift, 1 65/2/65 A"},
    {"ALetterInTheSymbolSetHasItsOwnCodesAndNoModifier", on(Alt, Letter, Letter, Alt),
     "0 | Alt, 1 49/0/49 1 | Alt, 1 49/0/49 1 | Alt, 0"},
    {"ShiftAndAltAreIndependent", on(Alt, Shift, Letter, Letter, Shift, Shift, Alt, Letter),
     "0 | Alt, 0 | Alt Shift, 1 49/2/33 ! | Alt, 1 49/0/49 1 | Alt, 0 | Alt Shift, "
     "0 | Alt Shift, 0 | Shift, 1 65/2/65 A | Shift"},
    {"ALayoutChangeSwitchesModesAndLocksOff",
     on(Shift, Shift, Alt, Language, Letter, Shift, Letter),
     "0 | Shift, 0 | Shift, 0 | Shift Alt, 0, 1 65/0/97 a, 0 | Shift, 1 65/2/65 A"},
    {"AnUnknownSpecialKeyYieldsNothing", on(Unknown), "2"},
    {"AKeyCodeOfZeroYieldsAResult",
     on(Letter),
     "1 0/0/122 z",
     {0, "z", false, false, 0, 122, 0, 1, 0, 4, "Z", 90}},
    {"AnOrdinaryKeyNamedLikeASpecialOneIsOrdinary",
     on(Letter),
     "1 7/0/8 Shift",
     {0, "Shift", false, true, 7, 8, 0, 1, 0, 4, "Shift", 9}},
    {"ASpecialKeyIsHandledWhateverItsKeyCode",
     on(Letter),
     "1 -9/0/3 ClearAll",
     {0, "ClearAll", true, false, -9, 3, 0, 1, 0, 4, "ClearAll", 3}},
    {"AShiftKeyInSmallLettersStaysLockedUntilTheNextLayout",
     on(Letter, Letter, Letter, Letter, Language),
     "0 | shift, 0 | shift, 0 | shift, 0 | shift shift, 0", special("shift")},
    {"ShiftInSmallLettersIsReleasedByALetter", on(Shift, Letter, Letter),
     "0 | shift, 1 65/2/65 A | shift, 1 65/0/97 a | shift", special("shift", Shift)},
    {"AnAltKeyInSmallLettersStaysLocked", on(Letter, Letter, Letter),
     "0 | alt, 0 | alt, 0 | alt alt", special("alt")},
};

using CorePresses = WithRows<CoreDispatch, Presses>;

TEST_P(CorePresses, BringTheseResultsAndLocks)
{
    if (GetParam().key.id >= 0)
        writeEnglish(GetParam().key.id, GetParam().key);
    start();
    std::string brought;
    for (const int place : GetParam().places)
        brought += (brought.empty() ? "" : ", ") + pressed(place);
    EXPECT_EQ(brought, GetParam().brought);
}

INSTANTIATE_TEST_SUITE_P(Sessions, CorePresses, testing::ValuesIn(kPresses), RowName());

// A special key's text decides first, exactly as it is written.
struct SpecialWord : Row {
    const char* text;
    int result;
    const char* handler; // that logs, or nothing but the error
};

const SpecialWord kWords[] = {
    {"shift", "shift", 0, "shiftButtonHandle"},
    {"Shift", "Shift", 0, "shiftButtonHandle"},
    {"hide", "hide", 0, "Hide"},
    {"Hide", "Hide", 0, "Hide"},
    {"alt", "alt", 0, "altButtonHandle"},
    {"Alt", "Alt", 0, "altButtonHandle"},
    {"clearall", "clearall", 1, "clearButtonHandle"},
    {"ClearAll", "ClearAll", 1, "clearButtonHandle"},
    {"SHIFT", "SHIFT", 2, nullptr},
    {"ShiftAndBlank", "Shift ", 2, nullptr},
    {"Clearall", "Clearall", 2, nullptr},
    {"clearAll", "clearAll", 2, nullptr},
    {"HIDE", "HIDE", 2, nullptr},
    {"ALT", "ALT", 2, nullptr},
    {"Empty", "NULL", 2, nullptr},
};

class CoreSpecialWord : public WithRows<CoreDispatch, SpecialWord>
{
protected:
    void expectHandler(bool isLanguage, int result, const char* handler)
    {
        writeEnglish(Letter, special(GetParam().text, Letter, isLanguage));
        start();
        const size_t before = m_log.lines().size();
        EXPECT_EQ(press(Letter), result);
        std::string handlers;
        for (size_t i = before; i < m_log.lines().size(); ++i)
            for (const char* each : {"shiftButtonHandle", "Hide", "altButtonHandle",
                                     "clearButtonHandle", "languageButtonHandle"})
                if (m_log.lines()[i].function == each && handlers != each)
                    handlers += each;
        EXPECT_EQ(handlers, handler == nullptr ? "" : handler);
    }
};

TEST_P(CoreSpecialWord, DecidesTheHandler)
{
    expectHandler(false, GetParam().result, GetParam().handler);
}

TEST_P(CoreSpecialWord, ComesBeforeTheLanguageMark)
{
    if (GetParam().handler != nullptr)
        expectHandler(true, GetParam().result, GetParam().handler);
    else
        expectHandler(true, 0, "languageButtonHandle");
}

INSTANTIATE_TEST_SUITE_P(Words, CoreSpecialWord, testing::ValuesIn(kWords), RowName());

TEST_F(CoreDispatch, SetKeyBoardButtonTakesTheFocusedKeyAndSaysYes)
{
    start();
    EXPECT_TRUE(m_core->setKeyBoardButton());
    EXPECT_EQ(result(), "65/0/97 a");
}

TEST_F(CoreDispatch, RemovingTakesEveryEntryOfThatTextAndLogsEach)
{
    writeEnglish(Letter, special("shift"));
    start();
    m_core->removeLockButton("shift");
    expectTrace({});
    for (const int place : {Letter, Letter, Letter, Alt, Letter})
        press(place);
    ASSERT_EQ(lockedLabels(), (Lines{"shift", "Alt", "shift"}));
    m_core->removeLockButton("Shift");
    expectTrace({});
    m_core->removeLockButton("shift");
    expectTrace(unlocked("shift") + unlocked("shift"));
    EXPECT_EQ(lockedLabels(), Lines{"Alt"});
}

TEST_F(CoreDispatch, UpdatingTheLocksReplacesTheLastEntryByTheFocusedKey)
{
    start();
    focus(Hide);
    m_core->updateLockButton();
    expectTrace({});
    EXPECT_EQ(lockedLabels(), Lines{"Hide"});
    focus(ClearAll);
    m_core->updateLockButton();
    EXPECT_EQ(lockedLabels(), Lines{"ClearAll"});
    press(Shift);
    focus(Hide);
    m_core->updateLockButton();
    EXPECT_EQ(lockedLabels(), (Lines{"ClearAll", "Hide"}));
}

} // namespace
