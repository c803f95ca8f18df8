// The keyboard's life: construction, start, show, hide, cancel and the end.

#include <cstdlib>
#include <string>
#include <type_traits>

#include "core_fixture.h"

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

Steps constructed()
{
    return coreLogged(kTrace, "KeyBoardCore", "called\n");
}

Steps constructedWithoutFontVariable()
{
    return constructed() +
           coreLogged(kError, "KeyBoardCore", "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n");
}

class CoreLifecycle : public CoreTest
{
protected:
    Steps released(const std::string& window)
    {
        const Steps destroyed = {call(window + ".Destroy()")};
        return Renderer::destruction(m_expected.lastFont()) + destroyed;
    }

    // Starts a core of its own and tells the path under which the font was asked for.
    Lines fontRequests()
    {
        create();
        startIt();
        Lines requests;
        for (const std::string& line : takeTrace())
            if (line.find("CreateFont") != std::string::npos)
                requests.push_back(line);
        return requests;
    }
};

TEST_F(CoreLifecycle, ConstructionLogsAndMissesTheFontVariable)
{
    takeTrace();
    m_core.reset(new KeyBoardCore);
    expectTrace(constructedWithoutFontVariable());
}

TEST_F(CoreLifecycle, ConstructionWithTheFontVariableOnlyLogs)
{
    ::setenv(kFontSetting, "/opt/font/other.ttf", 1);
    takeTrace();
    m_core.reset(new KeyBoardCore);
    expectTrace(constructed());
}

TEST_F(CoreLifecycle, WithoutTheFontVariableTheUsualFontIsTaken)
{
    EXPECT_THAT(fontRequests(), ElementsAre(HasSubstr("CreateFont(" + std::string(kUsualFont))));
}

TEST_F(CoreLifecycle, TheFontVariableNamesTheFont)
{
    m_folder.writeFile("/opt/font/other.ttf", "");
    ::setenv(kFontSetting, "/opt/font/other.ttf", 1);
    EXPECT_THAT(fontRequests(), ElementsAre(HasSubstr("CreateFont(/opt/font/other.ttf,")));
}

TEST_F(CoreLifecycle, TheFontVariableIsReadAtConstructionOnly)
{
    m_core.reset(new KeyBoardCore);
    ::setenv(kFontSetting, "/opt/font/other.ttf", 1);
    takeTrace();
    startIt();
    EXPECT_THAT(takeTrace(), Contains(HasSubstr("CreateFont(" + std::string(kUsualFont))));
}

TEST_F(CoreLifecycle, AnEmptyFontVariableGivesAnEmptyPathAndNoFont)
{
    ::setenv(kFontSetting, "", 1);
    EXPECT_THAT(fontRequests(), IsEmpty());
    EXPECT_THAT(m_log.lines(),
                Contains(testing::Field(&LogLine::message, "font file is not exist !!!\n")));
}

TEST_F(CoreLifecycle, ANewCoreIsIdleAndEmpty)
{
    m_core.reset(new KeyBoardCore);
    EXPECT_FALSE(m_core->isShow());
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->getKeyBoardButton(), 0);

    OsButton_t result = {1, 2, 3, "x"};
    m_core->getKeyBoardButton(result);
    EXPECT_EQ(result.keyCode, 0);
    EXPECT_EQ(result.modifier, 0);
    EXPECT_EQ(result.character, 0);
    EXPECT_EQ(result.text, "");

    const Button_t button = focused();
    EXPECT_EQ(button.text, "");
    EXPECT_EQ(button.id, 0);
    EXPECT_EQ(button.keyCode, 0);
    EXPECT_EQ(button.rect.width, 0);
    EXPECT_FALSE(button.isSpecial);
    EXPECT_FALSE(button.isLanguage);
    EXPECT_EQ(button.down_button, 0);
}

TEST_F(CoreLifecycle, WithoutAParserTheSizeIsTheUsualOne)
{
    create();
    EXPECT_EQ(m_core->getWidth(), 805);
    EXPECT_EQ(m_core->getHeight(), 255);
    expectTrace(coreLogged(kError, "getWidth", kNoParser) +
                coreLogged(kError, "getHeight", kNoParser));
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
    expectTrace(imeStarts(true) + coreLogged(kTrace, "Show", "Show the VKB!\n\n") +
                Renderer::showShown() +
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
    expectTrace(imeStarts(true) + coreLogged(kTrace, "Show", "Show the VKB!\n\n") +
                m_renderer.showHidden(shown, m_none) +
                m_expected.focusChange(shown, m_none, 0, shown[0]));
    EXPECT_TRUE(m_core->isShow());
}

TEST_F(CoreLifecycle, HideKeepsTheKeyboardStartedAndShowBringsItBack)
{
    start();
    m_core->Hide();
    expectTrace(coreLogged(kTrace, "Hide", "Hide the VKB!\n\n") + m_renderer.hideShown());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());

    m_core->Show();
    EXPECT_TRUE(m_core->isShow());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreLifecycle, LeaveOnlyLogs)
{
    start();
    m_core->leave();
    expectTrace(coreLogged(kTrace, "leave", "called\n"));
    EXPECT_TRUE(m_core->isShow());
}

TEST_F(CoreLifecycle, TheSystemsLanguageIsTakenWithoutAWord)
{
    start();
    m_core->notifySysLanguage("de");
    expectTrace({});
}

TEST_F(CoreLifecycle, CancelReleasesRendererAndWindow)
{
    start();
    m_core->OnIMECancelled();
    expectTrace(coreLogged(kTrace, "OnIMECancelled", "IME Cancel:-- \n") + released("window1"));
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_TRUE(m_core->isShow()) << "a cancel leaves it as it was";
    EXPECT_EQ(m_display.liveWindows(), 0u);
    EXPECT_EQ(m_display.liveFonts(), 0u);
    EXPECT_EQ(m_core->getWidth(), 805) << "the parser is gone";
}

TEST_F(CoreLifecycle, CancelTwiceReleasesOnce)
{
    start();
    m_core->OnIMECancelled();
    takeTrace();
    m_core->OnIMECancelled();
    expectTrace(coreLogged(kTrace, "OnIMECancelled", "IME Cancel:-- \n"));
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

TEST_F(CoreLifecycle, CancelBeforeAnyStartOnlyLogs)
{
    create();
    m_core->OnIMECancelled();
    expectTrace(coreLogged(kTrace, "OnIMECancelled", "IME Cancel:-- \n"));
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
    expectTrace(coreLogged(kTrace, "~KeyBoardCore", "called\n") + released("window1"));
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

TEST_F(CoreLifecycle, DestructionAfterACancelOnlyLogs)
{
    start();
    m_core->OnIMECancelled();
    takeTrace();
    m_core.reset();
    expectTrace(coreLogged(kTrace, "~KeyBoardCore", "called\n"));
}

TEST_F(CoreLifecycle, DestructionBeforeAnyStartOnlyLogs)
{
    create();
    m_core.reset();
    expectTrace(coreLogged(kTrace, "~KeyBoardCore", "called\n"));
}

TEST_F(CoreLifecycle, AfterACancelShowAndHideMissTheRenderer)
{
    start();
    m_core->OnIMECancelled();
    takeTrace();
    m_core->Show();
    m_core->Hide();
    expectTrace(
        coreLogged(kTrace, "Show", "Show the VKB!\n\n") + coreLogged(kError, "Show", kNoUi) +
        coreLogged(kTrace, "Hide", "Hide the VKB!\n\n") + coreLogged(kError, "Hide", kNoUi));
    EXPECT_TRUE(m_core->isShow()) << "as the cancel left it";
}

TEST_F(CoreLifecycle, BeforeAStartShowDoesNotCountAsShown)
{
    m_core.reset(new KeyBoardCore);
    m_core->Show();
    EXPECT_FALSE(m_core->isShow());
}

} // namespace
