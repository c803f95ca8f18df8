// The keyboard's life: construction, start, show, hide, cancel and the end.

#include <cstdlib>
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
using sample::kLanguage;
using sample::kLetter;
using sample::kShift;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

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

class CoreFont : public CoreTest, public testing::WithParamInterface<FontSetting>
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
    EXPECT_EQ(fieldsOf(focused()), fieldsOf(Button_t()));

    m_core->clearButtonHandle();
    m_core->getKeyBoardButton(result);
    EXPECT_EQ(result.modifier, 0) << "Shift is off";
}

TEST_F(CoreLifecycle, WithoutAParserTheSizeIsTheDefault)
{
    create();
    EXPECT_EQ(m_core->getWidth(), 805);
    EXPECT_EQ(m_core->getHeight(), 255);
    expectTrace(core("getWidth", kNoParser, kError) + core("getHeight", kNoParser, kError));
}

TEST_F(CoreLifecycle, WithAParserTheSizeIsTheCatalogues)
{
    start();
    EXPECT_EQ(m_core->getWidth(), kWidth);
    EXPECT_EQ(m_core->getHeight(), kHeight);
    expectTrace({});
}

TEST_F(CoreLifecycle, TheFirstStartBuildsEverythingAndFocusesKey0)
{
    create();
    startIt();
    expectTrace(firstStart());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_TRUE(m_core->isShow());
    EXPECT_EQ(focused().text, "a");
}

TEST_F(CoreLifecycle, AStartWhileStartedOnlyShowsAndKeepsTheFocus)
{
    start();
    focus(kShift);
    startIt();
    const Keys shown = keys();
    expectTrace(imeStarts(true) + core("Show", "Show the VKB!\n\n") + Renderer::showShown() +
                m_expected.focusChange(shown, m_none, kShift, shown[kShift]));
    EXPECT_EQ(focused().id, kShift);
}

TEST_F(CoreLifecycle, AStartWhileHiddenShowsAgain)
{
    start();
    m_core->Hide();
    takeTrace();
    startIt();
    const Keys shown = keys();
    expectTrace(imeStarts(true) + core("Show", "Show the VKB!\n\n") +
                m_renderer.showHidden(shown, m_none) +
                m_expected.focusChange(shown, m_none, 0, shown[0]));
    EXPECT_TRUE(m_core->isShow());
}

TEST_F(CoreLifecycle, HideKeepsTheKeyboardStartedAndShowBringsItBack)
{
    start();
    m_core->Hide();
    expectTrace(core("Hide", "Hide the VKB!\n\n") + m_renderer.hideShown());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());

    m_core->Show();
    EXPECT_TRUE(m_core->isShow());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreLifecycle, LeaveOnlyLogsAndTheSystemsLanguageIsTakenWithoutAWord)
{
    start();
    m_core->leave();
    m_core->notifySysLanguage("de");
    expectTrace(core("leave", "called\n"));
    EXPECT_TRUE(m_core->isShow());
}

TEST_F(CoreLifecycle, CancelReleasesRendererAndWindow)
{
    start();
    m_core->OnIMECancelled();
    expectTrace(core("OnIMECancelled", "IME Cancel:-- \n") + released("window1"));
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_TRUE(m_core->isShow()) << "a cancel leaves it as it was";
    EXPECT_EQ(m_display.liveWindows(), 0u);
    EXPECT_EQ(m_display.liveFonts(), 0u);
    EXPECT_EQ(m_core->getWidth(), 805) << "the parser is gone";
}

TEST_F(CoreLifecycle, CancelKeepsFocusKeysAndResult)
{
    start();
    EXPECT_EQ(press(kLetter), 1);
    m_core->OnIMECancelled();
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
    EXPECT_EQ(focused().text, "a");
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kShift).text, "Shift") << "the key set is kept";
}

TEST_F(CoreLifecycle, AStartAfterACancelBuildsAnewAtTheFirstLayout)
{
    start();
    press(kLanguage);
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
                renderer.construction(kWidth, kHeight) + entered("English"));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreLifecycle, DestructionReleasesRendererAndWindow)
{
    start();
    m_core.reset();
    expectTrace(core("~KeyBoardCore", "called\n") + released("window1"));
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

TEST_F(CoreLifecycle, WithNothingToReleaseCancelAndDestructionOnlyLog)
{
    for (const bool wasStarted : {false, true}) {
        SCOPED_TRACE(wasStarted);
        create();
        if (wasStarted) {
            startIt();
            m_core->OnIMECancelled();
            takeTrace();
        }
        m_core->OnIMECancelled();
        m_core.reset();
        expectTrace(core("OnIMECancelled", "IME Cancel:-- \n") + core("~KeyBoardCore", "called\n"));
    }
}

TEST_F(CoreLifecycle, WithoutARendererShowAndHideOnlySaySo)
{
    create();
    m_core->Show();
    EXPECT_FALSE(m_core->isShow());
    startIt();
    m_core->OnIMECancelled();
    takeTrace();
    m_core->Show();
    m_core->Hide();
    expectTrace(core("Show", "Show the VKB!\n\n") + core("Show", kNoUi, kError) +
                core("Hide", "Hide the VKB!\n\n") + core("Hide", kNoUi, kError));
    EXPECT_TRUE(m_core->isShow()) << "as the cancel left it";
}

} // namespace
