// What the remote control's keys do: key results, Shift, Alt, language, clear-all and hide.

#include <ostream>
#include <string>

#include "core_fixture.h"
#include "drawn_keyboard.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace sample;
using namespace steps;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;

static_assert(std::is_same_v<decltype(OsButton_t::keyCode), int32_t>);
static_assert(std::is_same_v<decltype(OsButton_t::modifier), int32_t>);
static_assert(std::is_same_v<decltype(OsButton_t::character), int32_t>);

Steps trace(const std::string& function, const std::string& message)
{
    return coreLogged(kTrace, function, message);
}

Steps okPressed()
{
    return trace("EnterPressProc", "called\n");
}

Steps resultMade(const std::string& hexCode)
{
    return trace("setKeyBoardButton", "called\n") +
           coreLogged(kResult, "setKeyBoardButton", "keycode:0x" + hexCode + "\n");
}

Steps modeWas(const std::string& handler, int mode)
{
    return trace(handler, "ShiftMode:" + std::to_string(mode) + "!\n");
}

Steps unlocked(const std::string& text)
{
    return trace("removeLockButton", "Cancel button(" + text + ")focus!\n");
}

class CoreDispatch : public CoreTest
{
protected:
    OsButton_t result()
    {
        OsButton_t taken;
        m_core->getKeyBoardButton(taken);
        takeTrace();
        return taken;
    }

    void expectResult(int keyCode, int modifier, int character, const std::string& text)
    {
        const OsButton_t taken = result();
        EXPECT_EQ(taken.keyCode, keyCode);
        EXPECT_EQ(taken.modifier, modifier);
        EXPECT_EQ(taken.character, character);
        EXPECT_EQ(taken.text, text);
    }

    void pressShift(int times)
    {
        for (int i = 0; i < times; ++i)
            press(kShift);
        takeTrace();
    }

    // The labels that the renderer draws sunken, read from a repaint.
    std::vector<std::string> lockedLabels()
    {
        takeTrace();
        m_core->sendLockButtonToUI();
        return drawnKeyboard(takeTrace()).sunken;
    }

    using Labels = std::vector<std::string>;

    // Starts with English's first key made into this special key.
    void startWithSpecial(const std::string& text, bool isLanguage)
    {
        startWithKey(kLetter, {0, text, true, isLanguage, 5, 0, 0, 1, 0, 4, text, 0});
    }

    void startWithKey(int place, const Key& key)
    {
        std::vector<Key> changed = allKindsDefaultKeys("English");
        changed[static_cast<size_t>(place)] = key;
        m_folder.writeKeyMap("English", asJson(changed, changed));
        start();
    }
};

TEST_F(CoreDispatch, EveryCodeIsLogged)
{
    create();
    for (const int code : {0, 13, 37, -5, 1000}) {
        EXPECT_EQ(m_core->onKeyEvent(code), 2);
        expectTrace(trace("onKeyEvent", "Received Keycode: " + std::to_string(code) + "\n"));
    }
}

TEST_F(CoreDispatch, OtherCodesAreNotHandled)
{
    start();
    std::vector<int> codes = {-1, 0, 12, 41, 42, 100, 65549};
    for (int code = 14; code <= 36; ++code)
        codes.push_back(code);
    for (const int code : codes) {
        EXPECT_EQ(m_core->onKeyEvent(code), 2) << code;
        expectTrace(trace("onKeyEvent", "Received Keycode: " + std::to_string(code) + "\n"));
    }
}

TEST_F(CoreDispatch, WhileHiddenNoKeyIsHandledAndNothingChanges)
{
    start();
    press(kLetter);
    m_core->Hide();
    takeTrace();
    for (const int code : {13, 37, 38, 39, 40}) {
        EXPECT_EQ(m_core->onKeyEvent(code), 2);
        expectTrace(trace("onKeyEvent", "Received Keycode: " + std::to_string(code) + "\n"));
    }
    EXPECT_EQ(focused().id, kLetter);
    m_core->Show();
    EXPECT_EQ(m_core->onKeyEvent(13), 1);
}

TEST_F(CoreDispatch, AfterACancelNoKeyIsHandled)
{
    start();
    m_core->OnIMECancelled();
    EXPECT_EQ(m_core->onKeyEvent(13), 2) << "although it still counts as shown";
    EXPECT_EQ(m_core->onKeyEvent(39), 2);
}

TEST_F(CoreDispatch, OkReachesTheFocusedKey)
{
    start();
    EXPECT_EQ(m_core->onKeyEvent(13), 1);
    expectTrace(trace("onKeyEvent", "Received Keycode: 13\n") + okPressed() + resultMade("41"));
    expectResult(65, 0, 97, "a");
}

TEST_F(CoreDispatch, AResultStaysUntilTheNext)
{
    start();
    press(kLetter);
    takeTrace();
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    const Steps asked = trace("getKeyBoardButton", "button.text = a,button.keyCode = 65\n");
    expectTrace(asked + asked);

    EXPECT_EQ(press(kClearAll), 1);
    expectResult(46, 0, 127, "ClearAll");
    expectResult(46, 0, 127, "ClearAll");
}

TEST_F(CoreDispatch, TheWholeResultIsLoggedWithItsModifier)
{
    start();
    pressShift(1);
    press(kLetter);
    takeTrace();
    OsButton_t taken;
    m_core->getKeyBoardButton(taken);
    expectTrace(
        trace("getKeyBoardButton", "button.text = A,button.keyCode = 65,button.modifier = 2\n"));
}

TEST_F(CoreDispatch, ANegativeKeyCodeYieldsNothing)
{
    start();
    press(kLetter);
    EXPECT_EQ(press(kMute), 0);
    const Lines found = takeTrace();
    EXPECT_EQ(found.back(), linesOf(okPressed()).back());
    expectResult(65, 0, 97, "a");
}

TEST_F(CoreDispatch, ANegativeKeyCodeDoesNotReleaseShift)
{
    start();
    pressShift(1);
    EXPECT_EQ(press(kMute), 0);
    press(kLetter);
    expectResult(65, 2, 65, "A");
}

TEST_F(CoreDispatch, AKeyCodeOfZeroYieldsAResult)
{
    startWithKey(kLetter, {0, "z", false, false, 0, 122, 0, 1, 0, 4, "Z", 90});
    EXPECT_EQ(press(kLetter), 1);
    expectResult(0, 0, 122, "z");
}

TEST_F(CoreDispatch, AnOrdinaryKeyNamedLikeASpecialOneIsOrdinary)
{
    startWithKey(kLetter, {0, "Shift", false, true, 7, 8, 0, 1, 0, 4, "Shift", 9});
    EXPECT_EQ(press(kLetter), 1);
    expectResult(7, 0, 8, "Shift");
}

TEST_F(CoreDispatch, SetKeyBoardButtonTakesTheFocusedKeyAndSaysYes)
{
    start();
    takeTrace();
    EXPECT_TRUE(m_core->setKeyBoardButton());
    expectTrace(resultMade("41"));
    expectResult(65, 0, 97, "a");
}

// --- Shift.

TEST_F(CoreDispatch, ShiftOnceLocksTheKeyAndShowsTheShiftedSet)
{
    start();
    focus(kShift);
    EXPECT_EQ(m_core->EnterPressProc(), 0);
    const Keys shifted = keys("English", true);
    const Keys locked = {keys()[kShift]};
    expectTrace(okPressed() + modeWas("shiftButtonHandle", 0) +
                m_expected.reload(shifted, locked, shifted[kShift]));
}

TEST_F(CoreDispatch, ShiftTwiceLocksShiftAndKeepsTheLocks)
{
    start();
    focus(kShift);
    const Keys shifted = keys("English", true);
    const Keys locked = {keys()[kShift]};
    m_core->EnterPressProc();
    m_expected.reload(shifted, locked, shifted[kShift]);
    takeTrace();

    EXPECT_EQ(m_core->EnterPressProc(), 0);
    expectTrace(okPressed() + modeWas("shiftButtonHandle", 1) +
                m_expected.reload(shifted, locked, shifted[kShift]));
}

TEST_F(CoreDispatch, ShiftThreeTimesIsOffAgain)
{
    start();
    focus(kShift);
    const Keys shifted = keys("English", true);
    const Keys locked = {keys()[kShift]};
    for (int i = 0; i < 2; ++i) {
        m_core->EnterPressProc();
        m_expected.reload(shifted, locked, shifted[kShift]);
    }
    takeTrace();

    EXPECT_EQ(m_core->EnterPressProc(), 0);
    const Keys plain = keys();
    expectTrace(okPressed() + modeWas("shiftButtonHandle", 1) + unlocked("Shift") +
                m_expected.reloadIn("shiftButtonHandle", plain, m_none, plain[kShift]));
    press(kLetter);
    expectResult(65, 0, 97, "a");
}

TEST_F(CoreDispatch, TheShiftKeyIsLockedDuringOnceAndLockedOnly)
{
    start();
    EXPECT_THAT(lockedLabels(), IsEmpty());
    press(kShift);
    EXPECT_EQ(lockedLabels(), Labels{"Shift"});
    press(kShift);
    EXPECT_EQ(lockedLabels(), Labels{"Shift"});
    press(kShift);
    EXPECT_THAT(lockedLabels(), IsEmpty());
    press(kShift);
    EXPECT_EQ(lockedLabels(), Labels{"Shift"});
}

TEST_F(CoreDispatch, ALetterWithShiftOnceIsShiftedAndReleasesShift)
{
    start();
    focus(kShift);
    const Keys shifted = keys("English", true);
    m_core->EnterPressProc();
    m_expected.reload(shifted, {keys()[kShift]}, shifted[kShift]);
    focus(kLetter);

    EXPECT_EQ(m_core->EnterPressProc(), 1);
    const Keys plain = keys();
    expectTrace(okPressed() + resultMade("41") + unlocked("Shift") +
                m_expected.reload(plain, m_none, plain[kLetter]));
    expectResult(65, 2, 65, "A");

    EXPECT_EQ(m_core->EnterPressProc(), 1);
    expectTrace(okPressed() + resultMade("41"));
    expectResult(65, 0, 97, "a");
}

TEST_F(CoreDispatch, ALetterWithShiftLockedStaysShifted)
{
    start();
    pressShift(2);
    for (int i = 0; i < 2; ++i) {
        focus(kLetter);
        EXPECT_EQ(m_core->EnterPressProc(), 1);
        expectTrace(okPressed() + resultMade("41"));
        expectResult(65, 2, 65, "A");
    }
}

TEST_F(CoreDispatch, AShiftKeyInSmallLettersStaysLockedAfterShiftGoesOff)
{
    startWithSpecial("shift", false);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(press(kLetter), 0);
        EXPECT_EQ(lockedLabels(), Labels{"shift"});
    }
    EXPECT_EQ(focused().text, "shift");
    press(kLetter); // Shift is off, so this is Once again
    EXPECT_EQ(lockedLabels(), (Labels{"shift", "shift"}));
    focus(kLanguage);
    m_core->EnterPressProc();
    EXPECT_THAT(lockedLabels(), IsEmpty()) << "only a change of layout releases it";
}

TEST_F(CoreDispatch, ShiftOnceInSmallLettersIsReleasedByALetter)
{
    startWithKey(kShift, {1, "shift", true, false, 0, 0, 0, 2, 0, 5, "shift", 0});
    press(kShift);
    focus(kLetter);
    EXPECT_EQ(m_core->EnterPressProc(), 1);
    EXPECT_THAT(takeTrace(), Not(Contains(linesOf(unlocked("Shift")).back())));
    expectResult(65, 2, 65, "A");
    EXPECT_EQ(m_core->EnterPressProc(), 1);
    expectResult(65, 0, 97, "a");
    EXPECT_EQ(lockedLabels(), Labels{"shift"});
}

// --- Alt.

TEST_F(CoreDispatch, AltShowsTheSymbolSetAndLocksTheKey)
{
    start();
    focus(kAlt);
    EXPECT_EQ(m_core->EnterPressProc(), 0);
    const Keys symbols = keys("English", false, true);
    expectTrace(okPressed() + modeWas("altButtonHandle", 0) +
                m_expected.reload(symbols, {keys()[kAlt]}, symbols[kAlt]));
}

TEST_F(CoreDispatch, AltTwiceIsOffAgain)
{
    start();
    focus(kAlt);
    const Keys symbols = keys("English", false, true);
    m_core->EnterPressProc();
    m_expected.reload(symbols, {keys()[kAlt]}, symbols[kAlt]);
    takeTrace();

    EXPECT_EQ(m_core->EnterPressProc(), 0);
    const Keys plain = keys();
    expectTrace(okPressed() + modeWas("altButtonHandle", 1) + unlocked("Alt") +
                m_expected.reloadIn("altButtonHandle", plain, m_none, plain[kAlt]));
}

TEST_F(CoreDispatch, ALetterInTheSymbolSetHasItsOwnCodesAndNoModifier)
{
    start();
    press(kAlt);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(press(kLetter), 1);
        expectResult(49, 0, 49, "1");
    }
    EXPECT_EQ(lockedLabels(), Labels{"Alt"});
}

TEST_F(CoreDispatch, ShiftAndAltAreIndependent)
{
    start();
    press(kAlt);
    press(kShift);
    EXPECT_EQ(lockedLabels(), (Labels{"Alt", "Shift"}));
    press(kLetter); // releases Shift alone
    expectResult(49, 2, 33, "!");
    EXPECT_EQ(lockedLabels(), Labels{"Alt"});
    press(kLetter);
    expectResult(49, 0, 49, "1");

    pressShift(2);
    press(kAlt); // off
    EXPECT_EQ(lockedLabels(), Labels{"Shift"});
    press(kLetter);
    expectResult(65, 2, 65, "A");
}

TEST_F(CoreDispatch, AnAltKeyInSmallLettersStaysLockedAfterAltGoesOff)
{
    startWithSpecial("alt", false);
    press(kLetter);
    press(kLetter);
    EXPECT_EQ(lockedLabels(), Labels{"alt"});
    press(kLetter);
    EXPECT_EQ(lockedLabels(), (Labels{"alt", "alt"}));
}

// --- Clear-all, hide, language, and what is none of these.

TEST_F(CoreDispatch, ClearAllYieldsItsOwnCodes)
{
    start();
    focus(kClearAll);
    EXPECT_EQ(m_core->EnterPressProc(), 1);
    expectTrace(okPressed() + trace("clearButtonHandle", "called\n") + resultMade("2e"));
    expectResult(46, 0, 127, "ClearAll");
}

TEST_F(CoreDispatch, ClearAllWithShiftOnceKeepsShift)
{
    start();
    pressShift(1);
    EXPECT_EQ(press(kClearAll), 1);
    expectResult(46, 2, 127, "ClearAll");
    press(kLetter);
    expectResult(65, 2, 65, "A");
}

TEST_F(CoreDispatch, HideHidesAndKeepsTheKeyboardStarted)
{
    start();
    focus(kHide);
    EXPECT_EQ(m_core->EnterPressProc(), 0);
    expectTrace(okPressed() + trace("Hide", "Hide the VKB!\n\n") + m_renderer.hideShown());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());
    EXPECT_EQ(m_core->onKeyEvent(13), 2);
}

TEST_F(CoreDispatch, TheLanguageKeyLoadsTheNextLayoutAtTheSameIndex)
{
    start();
    focus(kLanguage);
    EXPECT_EQ(m_core->EnterPressProc(), 0);
    const Keys german = keys("German");
    expectTrace(okPressed() + trace("languageButtonHandle", "called\n") +
                m_expected.layoutChange("German") +
                m_expected.reload(german, m_none, german[kLanguage]));
}

TEST_F(CoreDispatch, TheLanguageKeyWrapsFromTheLastLayoutToTheFirst)
{
    start();
    for (const char* layout : {"German", "Greek", "English", "German"}) {
        EXPECT_EQ(press(kLanguage), 0);
        EXPECT_EQ(focused().text, layout);
    }
}

TEST_F(CoreDispatch, TheLanguageKeySwitchesModesAndLocksOff)
{
    start();
    pressShift(2);
    press(kAlt);
    EXPECT_EQ(press(kLanguage), 0);
    EXPECT_THAT(lockedLabels(), IsEmpty());
    press(kLetter);
    expectResult(65, 0, 97, "a");
    focus(kShift);
    m_core->EnterPressProc();
    EXPECT_THAT(takeTrace(), Contains(linesOf(modeWas("shiftButtonHandle", 0)).back()));
}

TEST_F(CoreDispatch, AnUnknownSpecialKeyIsNotHandled)
{
    start();
    focus(kUnknown);
    EXPECT_EQ(m_core->EnterPressProc(), 2);
    expectTrace(okPressed() +
                coreLogged(kError, "specialButtonHandle", "Maybe not special key!\n"));
    expectResult(0, 0, 0, "");
}

// A special key's text decides first, exactly as it is written.
struct SpecialWord {
    const char* what;
    const char* text;
    int result;
    const char* handler; // that logs, or nothing but the error
};

std::ostream& operator<<(std::ostream& stream, const SpecialWord& word)
{
    return stream << word.what;
}

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

class CoreSpecialWord : public CoreDispatch, public testing::WithParamInterface<SpecialWord>
{
protected:
    bool logged(const char* function)
    {
        for (const LogLine& line : m_log.lines())
            if (line.function == function)
                return true;
        return false;
    }
};

TEST_P(CoreSpecialWord, DecidesTheHandler)
{
    const SpecialWord& word = GetParam();
    startWithSpecial(word.text, false);
    EXPECT_EQ(press(kLetter), word.result);
    for (const char* handler : {"shiftButtonHandle", "Hide", "altButtonHandle", "clearButtonHandle",
                                "languageButtonHandle"}) {
        const bool expected = word.handler != nullptr && word.handler == std::string(handler);
        EXPECT_EQ(logged(handler), expected) << handler;
    }
}

TEST_P(CoreSpecialWord, ComesBeforeTheLanguageMark)
{
    const SpecialWord& word = GetParam();
    startWithSpecial(word.text, true);
    EXPECT_EQ(press(kLetter), word.handler == nullptr ? 0 : word.result);
    EXPECT_EQ(logged("languageButtonHandle"), word.handler == nullptr);
}

INSTANTIATE_TEST_SUITE_P(Words, CoreSpecialWord, testing::ValuesIn(kWords),
                         [](const auto& test) { return std::string(test.param.what); });

TEST_F(CoreDispatch, ASpecialKeyIsHandledWhateverItsKeyCode)
{
    startWithKey(kLetter, {0, "ClearAll", true, false, -9, 3, 0, 1, 0, 4, "ClearAll", 3});
    EXPECT_EQ(press(kLetter), 1);
    expectTrace(okPressed() + trace("clearButtonHandle", "called\n") + resultMade("fffffff7"));
    expectResult(-9, 0, 3, "ClearAll");
}

TEST_F(CoreDispatch, TheHandlersReturnTheirFixedResults)
{
    start();
    EXPECT_EQ(m_core->shiftButtonHandle(), 0);
    EXPECT_EQ(m_core->altButtonHandle(), 0);
    EXPECT_EQ(m_core->languageButtonHandle(), 0);
    EXPECT_EQ(m_core->clearButtonHandle(), 1);
    EXPECT_EQ(m_core->hideButtonHandle(), 0);
}

// --- The list of locked keys.

TEST_F(CoreDispatch, RemovingTakesEveryEntryOfThatTextAndLeavesTheOthers)
{
    startWithSpecial("shift", false);
    press(kLetter);
    press(kLetter);
    press(kLetter); // Shift is off; "shift" stays
    press(kAlt);
    press(kShift);
    press(kLetter);
    press(kLetter); // off again, "Shift" removed
    press(kShift);
    EXPECT_EQ(lockedLabels(), (Labels{"shift", "Alt", "Shift"}));

    takeTrace();
    m_core->removeLockButton("Hide");
    expectTrace({});
    m_core->removeLockButton("Shift");
    expectTrace(unlocked("Shift"));
    EXPECT_EQ(lockedLabels(), (Labels{"shift", "Alt"}));
}

TEST_F(CoreDispatch, RemovingLogsOncePerEntry)
{
    startWithSpecial("shift", false);
    for (int i = 0; i < 4; ++i)
        press(kLetter);
    EXPECT_EQ(lockedLabels(), (Labels{"shift", "shift"}));
    m_core->removeLockButton("shift");
    expectTrace(unlocked("shift") + unlocked("shift"));
    EXPECT_THAT(lockedLabels(), IsEmpty());
}

TEST_F(CoreDispatch, RemovingFromAnEmptyListSaysNothing)
{
    start();
    m_core->removeLockButton("Shift");
    expectTrace({});
}

TEST_F(CoreDispatch, UpdatingTheLocksReplacesTheLastEntryByTheFocusedKey)
{
    start();
    focus(kHide);
    m_core->updateLockButton();
    expectTrace({});
    EXPECT_EQ(lockedLabels(), Labels{"Hide"});
    focus(kClearAll);
    m_core->updateLockButton();
    EXPECT_EQ(lockedLabels(), Labels{"ClearAll"});

    press(kShift);
    EXPECT_EQ(lockedLabels(), (Labels{"ClearAll", "Shift"}));
    focus(kHide);
    m_core->updateLockButton();
    EXPECT_EQ(lockedLabels(), (Labels{"ClearAll", "Hide"}));
}

// --- The log of a whole session.

TEST_F(CoreDispatch, EveryLineHasItsTagLevelAndALineNumber)
{
    start();
    for (const int place : {kLetter, kShift, kLetter, kAlt, kLanguage, kClearAll, kUnknown, kHide})
        press(place);
    m_core.reset();
    ASSERT_FALSE(m_log.lines().empty());
    for (const LogLine& line : m_log.lines()) {
        EXPECT_EQ(line.tag, "B-LOG");
        EXPECT_EQ(line.record[1], 0u);
        EXPECT_EQ(line.record[2], 0u);
        EXPECT_GT(line.line, 0);
        EXPECT_EQ(line.message.back(), '\n');
    }
}

} // namespace
