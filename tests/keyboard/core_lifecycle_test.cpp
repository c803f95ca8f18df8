// The keyboard's life: construction, start, show, hide, cancel and the end.

#include <cstdlib>
#include <functional>
#include <string>
#include <tuple>
#include <type_traits>

#include "core_fixture.h"
#include "row.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using sample::Language;
using sample::Letter;
using sample::Shift;
using testing::Contains;
using testing::HasSubstr;

static_assert(!std::is_polymorphic_v<KeyBoardCore>);

class CoreLifecycle : public CoreTest
{
protected:
    Steps released(const std::string& window)
    {
        return Renderer::destruction(m_expected.lastFont()) + calls({window + ".Destroy()"});
    }
};

// The font variable before the core is made and behind that, the core's own lines, and the font
// that it asks for when it starts.
struct FontSetting : Row {
    const char* before;
    const char* behind;
    Steps constructed;
    const char* asked;
};

const Steps kConstructed = core("KeyBoardCore", "called\n");
const Steps kNoVariable =
    kConstructed + core("KeyBoardCore", "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n", kError);
const char kOther[] = "/opt/font/other.ttf";

const FontSetting kFontSettings[] = {
    {"MissingMeansTheDefaultFont", nullptr, nullptr, kNoVariable, kExpectedFont},
    {"NamesTheFont", kOther, kOther, kConstructed, kOther},
    {"IsReadAtConstructionOnly", nullptr, kOther, kNoVariable, kExpectedFont},
    {"EmptyGivesNoFont", "", "", kConstructed, nullptr},
};

class CoreFont : public WithRows<CoreTest, FontSetting>
{
protected:
    static void set(const char* value)
    {
        if (value == nullptr)
            ::unsetenv(kFontSetting);
        else
            ::setenv(kFontSetting, value, 1);
    }
};

TEST_P(CoreFont, Variable)
{
    m_folder.writeFile(kOther, "");
    set(GetParam().before);
    takeTrace();
    m_core.reset(new KeyBoardCore);
    expectTrace(GetParam().constructed);
    set(GetParam().behind);
    startIt();
    const Lines found = takeTrace();
    if (GetParam().asked == nullptr)
        EXPECT_THAT(found, Contains(HasSubstr("font file is not exist !!!")));
    else
        EXPECT_THAT(found, Contains(HasSubstr("CreateFont(" + std::string(GetParam().asked))));
}

INSTANTIATE_TEST_SUITE_P(Settings, CoreFont, testing::ValuesIn(kFontSettings), RowName());

TEST_F(CoreLifecycle, ANewCoreIsIdleAndEmpty)
{
    m_core.reset(new KeyBoardCore);
    EXPECT_FALSE(m_core->isShow());
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->getKeyBoardButton(), 0);

    OsButton_t result = {1, 2, 3, "x"};
    m_core->getKeyBoardButton(result);
    EXPECT_EQ(std::tie(result.keyCode, result.modifier, result.character, result.text),
              std::make_tuple(0, 0, 0, ""));
    EXPECT_EQ(focused(), Button_t());

    m_core->clearButtonHandle();
    m_core->getKeyBoardButton(result);
    EXPECT_EQ(result.modifier, 0) << "Shift is off";
}

// One host call after the other, each with all calls and log lines.
TEST_F(CoreLifecycle, EachHostCallOfASessionIsTheseCallsAndLines)
{
    create();
    const Keys shown = keys();
    const Button_t& focus = shown[Shift];
    const Steps show = core("Show", "Show the VKB!\n\n");
    const Steps hide = core("Hide", "Hide the VKB!\n\n");
    const Steps cancel = core("OnIMECancelled", "IME Cancel:-- \n");
    const auto startAgain = [this] { startIt(); };
    const auto showIt = [this] { m_core->Show(); };
    const auto hideIt = [this] { m_core->Hide(); };
    const auto cancelIt = [this] { m_core->OnIMECancelled(); };

    const struct {
        const char* what;
        std::function<void()> call;
        Steps steps;
        bool isEnabled, isShown;
    } session[] = {
        {"show without a renderer", showIt, show + core("Show", kNoUi, kError), false, false},
        {"the first start", startAgain, firstStart(), true, true},
        {"a move of the focus", [this] { m_core->FocusButtonChangedTo(Shift); },
         m_expected.focusChange(shown, m_none, Shift, focus), true, true},
        {"a start while shown", startAgain,
         imeStarts(true) + show + Renderer::showShown() +
             m_expected.focusChange(shown, m_none, Shift, focus),
         true, true},
        {"hide", hideIt, hide + m_renderer.hideShown(), true, false},
        {"a start while hidden", startAgain,
         imeStarts(true) + show + m_renderer.showHidden(shown, m_none) +
             m_expected.focusChange(shown, m_none, Shift, focus),
         true, true},
        {"leave", [this] { m_core->leave(); }, core("leave", "called\n"), true, true},
        {"a language", [this] { m_core->notifySysLanguage("de"); }, {}, true, true},
        {"the size",
         [this] {
             EXPECT_EQ(m_core->getWidth(), 260);
             EXPECT_EQ(m_core->getHeight(), 118);
         },
         {},
         true,
         true},
        {"the window anew", [this] { m_core->CreateDFBWindow(m_display.dfb(), m_host_surface); },
         windowShown("window1"), true, true},
        {"the window's hiding", [this] { m_core->HideDFBWindow(); },
         calls({"window1.SetOpacity(0)", "window1.LowerToBottom()"}), true, true},
        {"hide again", hideIt, hide + m_renderer.hideShown(), true, false},
        {"show", showIt,
         show + m_renderer.showHidden(shown, m_none) +
             m_expected.focusChange(shown, m_none, Shift, focus),
         true, true},
        {"a cancel", cancelIt, cancel + released("window1"), false, true},
        {"a cancel of nothing", cancelIt, cancel, false, true},
        {"hide without a renderer", hideIt, hide + core("Hide", kNoUi, kError), false, true},
    };
    for (const auto& each : session) {
        SCOPED_TRACE(each.what);
        each.call();
        expectTrace(each.steps);
        EXPECT_EQ(m_core->isKeyBoardEnable(), each.isEnabled);
        EXPECT_EQ(m_core->isShow(), each.isShown);
    }
    EXPECT_EQ(m_display.liveWindows(), 0u);
    EXPECT_EQ(m_display.liveFonts(), 0u);
    EXPECT_EQ(m_core->getWidth(), 805) << "the parser is gone";
    takeTrace();
    m_core.reset();
    expectTrace(core("~KeyBoardCore", "called\n"));
}

TEST_F(CoreLifecycle, CancelKeepsFocusKeysAndResult)
{
    start();
    EXPECT_EQ(press(Letter), 1);
    m_core->OnIMECancelled();
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    EXPECT_EQ(focused().text, "a");
    EXPECT_EQ(m_core->getTargetButtonByButtonId(Shift).text, "Shift") << "the key set is kept";
}

TEST_F(CoreLifecycle, AStartAfterACancelBuildsAnewAtTheFirstLayout)
{
    start();
    press(Language);
    m_expected.countFont(); // German's
    m_core->OnIMECancelled();
    takeTrace();
    startIt();

    const Renderer renderer("surface3");
    m_renderer = renderer;
    m_expected = Core(renderer);
    m_expected.countFont();
    m_expected.countFont();
    expectTrace(imeStarts(false) + parserMade() + windowMade("window2", kWidth, kHeight) +
                renderer.construction(kWidth, kHeight) + entered());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

// The log capture stops at a line, and at anything that is evaluated for one.
TEST_F(CoreLifecycle, WithEveryLevelOffItGoesOnAndNothingIsEvaluatedForTheLog)
{
    m_log.switchOffAll();
    start();
    for (const int place : {Letter, Shift, Letter, Language})
        press(place);
    m_core->OnIMECancelled();
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
}

TEST_F(CoreLifecycle, DestructionReleasesRendererAndWindow)
{
    start();
    m_core.reset();
    expectTrace(core("~KeyBoardCore", "called\n") + released("window1"));
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

} // namespace
