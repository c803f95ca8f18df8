// The keyboard's life: construction, start, show, hide, cancel, its window and its layouts.

#include <cstdlib>
#include <string>
#include <type_traits>

#include "core_fixture.h"
#include "fatal_trap.h"

// Of the leak checker, in programs that are built with it.
extern "C" {
void __lsan_disable() __attribute__((weak));
void __lsan_enable() __attribute__((weak));
}

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using sample::kKeys;
using sample::kLanguage;
using sample::kLetter;
using sample::kShift;
using steps::coreLogged;
using steps::expectTrace;
using steps::kDetail;
using steps::kError;
using steps::Keys;
using steps::kTrace;
using steps::operator+;
using steps::parserLogged;
using steps::Step;
using steps::Steps;
using testing::Contains;
using testing::ElementsAre;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

static_assert(!std::is_polymorphic_v<KeyBoardCore>);

const char kNoUi[] = "Can not find Keboard UI!\n\n";
const char kNoParser[] = "Can not find Keboard parser!\n\n";

// The one way to see the layout's name, which no operation gives away.
template <class Tag, typename Tag::type kMember> struct Expose {
    friend typename Tag::type member(Tag) { return kMember; }
};
struct LayoutName {
    using type = std::string KeyBoardCore::*;
    friend type member(LayoutName);
};
template struct Expose<LayoutName, &KeyBoardCore::m_layout_name>;

Step call(const std::string& line)
{
    return {line, ""};
}

Steps constructed()
{
    return coreLogged(kTrace, "KeyBoardCore", "called\n");
}

Steps constructedWithoutFontVariable()
{
    return constructed() +
           coreLogged(kError, "KeyBoardCore", "VIRTUAL_KEYBOARD_FONT_PATH undefine!\n");
}

Steps imeStarts(bool started)
{
    return coreLogged(kTrace, "OnIMEStart",
                      "KeyboardStatus:" + std::string(started ? "1" : "0") + "\n");
}

// A parser is made that finds the catalogue and, as no layout is chosen yet, no key map.
Steps parserMade()
{
    return parserLogged("ParseLayout", "called\n") +
           parserLogged("ParseLayout", "Layout Parse Successfully !\n") +
           parserLogged("ParseCurrentLayoutKeyMaps", "called\n");
}

Steps windowShown(const std::string& window)
{
    return {call(window + ".SetOpacity(255)"), call(window + ".RaiseToTop()")};
}

Steps windowWanted(int width, int height)
{
    const std::string size =
        " width=" + std::to_string(width) + " height=" + std::to_string(height);
    const Steps calls = {call("layer.CreateWindow({flags=0x237 caps=0x3" + size +
                              " pixelformat=0x418C04 posx=600 posy=600 surface_caps=0x15"
                              " stacking=1})"),
                         call("layer.SetCooperativeLevel(ADMINISTRATIVE)")};
    return coreLogged(kDetail, "CreateDFBWindow", "CreateDFBWindow!\n\n") + calls;
}

Steps windowMade(const std::string& window, int width, int height)
{
    const Steps surface = {call(window + ".GetSurface()")};
    return windowWanted(width, height) + surface + windowShown(window);
}

Steps namesRead(int count)
{
    return coreLogged(kTrace, "enter", "enter the VKB!\n\n") +
           parserLogged("getLayoutsName", "called\n") +
           coreLogged(kTrace, "enter", "language num :" + std::to_string(count) + " \n");
}

// The whole size of the sample: four columns and two rows.
const int kWidth = 4 * 64 + 4;
const int kHeight = 2 * 56 + 6;

class CoreLifecycle : public CoreTest
{
protected:
    // enter, from the names on, in a new renderer.
    Steps entered(const std::string& layout)
    {
        const Keys shown = keys(layout);
        return namesRead(3) + m_expected.layoutChange(layout) + m_expected.updateKeyMap(shown) +
               m_renderer.showHidden(shown, m_none) +
               m_expected.focusChange(shown, m_none, 0, shown[0]);
    }

    Steps firstStart()
    {
        return imeStarts(false) + parserMade() + windowMade("window1", kWidth, kHeight) +
               m_renderer.construction(kWidth, kHeight) + entered("English");
    }

    Steps released(const std::string& window)
    {
        const Steps destroyed = {call(window + ".Destroy()")};
        return steps::Renderer::destruction(m_expected.lastFont()) + destroyed;
    }

    // A core whose renderer could not be made: the parser and the window are there.
    void startWithoutRenderer()
    {
        m_core.reset(new KeyBoardCore);
        m_display.failEvery("GetSize", DFB_FAILURE);
        const FatalTrap trap;
        testing::internal::CaptureStderr();
        EXPECT_THROW(m_core->OnIMEStart(m_display.dfb(), m_hostSurface), FatalError);
        testing::internal::GetCapturedStderr();
        takeTrace();
    }

    // Starts a core of its own and tells the path under which the font was asked for.
    Lines fontRequests()
    {
        m_core.reset(new KeyBoardCore);
        m_core->OnIMEStart(m_display.dfb(), m_hostSurface);
        Lines requests;
        for (const std::string& line : takeTrace())
            if (line.find("CreateFont") != std::string::npos)
                requests.push_back(line);
        return requests;
    }

    void startAgain() { m_core->OnIMEStart(m_display.dfb(), m_hostSurface); }
};

TEST_F(CoreLifecycle, ConstructionLogsAndMissesTheFontVariable)
{
    takeTrace();
    m_core.reset(new KeyBoardCore);
    expectTrace(constructedWithoutFontVariable());
}

TEST_F(CoreLifecycle, ConstructionWithTheFontVariableOnlyLogs)
{
    ::setenv(kFontVariable, "/opt/font/other.ttf", 1);
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
    ::setenv(kFontVariable, "/opt/font/other.ttf", 1);
    EXPECT_THAT(fontRequests(), ElementsAre(HasSubstr("CreateFont(/opt/font/other.ttf,")));
}

TEST_F(CoreLifecycle, TheFontVariableIsReadAtConstructionOnly)
{
    m_core.reset(new KeyBoardCore);
    ::setenv(kFontVariable, "/opt/font/other.ttf", 1);
    takeTrace();
    startAgain();
    EXPECT_THAT(takeTrace(), Contains(HasSubstr("CreateFont(" + std::string(kUsualFont))));
}

TEST_F(CoreLifecycle, AnEmptyFontVariableGivesAnEmptyPathAndNoFont)
{
    ::setenv(kFontVariable, "", 1);
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
    m_core.reset(new KeyBoardCore);
    takeTrace();
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
    m_core.reset(new KeyBoardCore);
    takeTrace();
    startAgain();
    expectTrace(firstStart());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_TRUE(m_core->isShow());
    EXPECT_EQ(focused().text, "a");
}

TEST_F(CoreLifecycle, AStartWhileStartedOnlyShowsAndKeepsTheFocus)
{
    start();
    focus(kShift);
    startAgain();
    const Keys shown = keys();
    expectTrace(imeStarts(true) + coreLogged(kTrace, "Show", "Show the VKB!\n\n") +
                steps::Renderer::showShown() +
                m_expected.focusChange(shown, m_none, kShift, shown[kShift]));
    EXPECT_EQ(focused().id, kShift);
}

TEST_F(CoreLifecycle, AStartWhileHiddenShowsAgain)
{
    start();
    m_core->Hide();
    takeTrace();
    startAgain();
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
    m_core.reset(new KeyBoardCore);
    takeTrace();
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
    startAgain();

    steps::Renderer renderer("surface3");
    m_renderer = renderer;
    m_expected = steps::Core(renderer);
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
    m_core.reset(new KeyBoardCore);
    takeTrace();
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

TEST_F(CoreLifecycle, TheWindowIsAt600ByWhateverSize)
{
    m_core.reset(new KeyBoardCore);
    takeTrace();
    m_core->CreateDFBWindow(m_display.dfb(), m_hostSurface);
    // Without a parser each side is asked for with an error line of its own.
    EXPECT_EQ(callsOf(takeTrace()), callsOf(steps::linesOf(windowMade("window1", 805, 255))));
}

TEST_F(CoreLifecycle, AnExistingWindowIsOnlyShownAndRaised)
{
    start();
    m_core->CreateDFBWindow(m_display.dfb(), m_hostSurface);
    expectTrace(windowShown("window1"));
    EXPECT_EQ(m_display.liveWindows(), 1u);
}

TEST_F(CoreLifecycle, HideDFBWindowTouchesTheWindowAlone)
{
    start();
    m_core->HideDFBWindow();
    expectTrace({call("window1.SetOpacity(0)"), call("window1.LowerToBottom()")});
    EXPECT_TRUE(m_core->isShow());
}

TEST_F(CoreLifecycle, AllCoresShareOneWindow)
{
    start();
    KeyBoardCore second;
    takeTrace();
    second.OnIMEStart(m_display.dfb(), m_hostSurface);
    const Lines calls = callsOf(takeTrace());
    EXPECT_THAT(calls, Not(Contains(HasSubstr("CreateWindow"))));
    EXPECT_THAT(calls, Contains("window1.RaiseToTop()"));
    EXPECT_THAT(calls, Contains("surface2.GetSize()"));

    m_core->OnIMECancelled();
    EXPECT_EQ(m_display.liveWindows(), 0u);
    takeTrace();
    second.OnIMECancelled();
    EXPECT_THAT(takeTrace(), Not(Contains("window1.Destroy()"))) << "the other core destroyed it";
}

TEST_F(CoreLifecycle, FailuresAroundTheWindowAreIgnored)
{
    for (const char* method : {"SetCooperativeLevel", "SetOpacity", "RaiseToTop", "LowerToBottom"})
        m_display.failEvery(method, DFB_ACCESSDENIED);
    m_core.reset(new KeyBoardCore);
    takeTrace();
    startAgain();
    expectTrace(firstStart());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    m_core->HideDFBWindow();
}

TEST_F(CoreLifecycle, AWindowThatFailsToBeDestroyedIsForgotten)
{
    start();
    m_display.failEvery("Destroy", DFB_FAILURE);
    m_core->OnIMECancelled();
    takeTrace();
    startAgain();
    EXPECT_THAT(takeTrace(), Contains(HasSubstr("layer.CreateWindow(")));
}

TEST_F(CoreLifecycle, EachLayoutChangeTakesTheNextNameAndWraps)
{
    start();
    for (const char* layout : {"German", "Greek", "English", "German"}) {
        m_core->onLayoutChanged();
        expectTrace(m_expected.layoutChange(layout));
    }
}

TEST_F(CoreLifecycle, ALayoutChangeDoesNotRedrawUntilTheKeysAreFetched)
{
    start();
    m_core->onLayoutChanged();
    takeTrace();
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "English");
    takeTrace();
    m_core->updateKeyMap();
    expectTrace(m_expected.updateKeyMap(keys("German")));
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "German");
}

TEST_F(CoreLifecycle, UpdateKeyBoardUIReloadsRedrawsAndFocusesTheSameIndex)
{
    start();
    focus(kLanguage);
    m_core->onLayoutChanged();
    takeTrace();
    EXPECT_EQ(m_core->updateKeyBoardUI(), 1);
    const Keys german = keys("German");
    expectTrace(m_expected.reload(german, m_none, german[kLanguage]));
}

TEST_F(CoreLifecycle, ALayoutChangeWithoutAParserStillChangesTheName)
{
    start();
    m_core->OnIMECancelled();
    takeTrace();
    m_core->onLayoutChanged();
    expectTrace(coreLogged(kTrace, "onLayoutChanged", "language name :English \n") +
                coreLogged(kError, "onLayoutChanged", kNoParser));
    m_core->onLayoutChanged();
    expectTrace(coreLogged(kTrace, "onLayoutChanged", "language name :German \n") +
                coreLogged(kError, "onLayoutChanged", kNoParser));
}

TEST_F(CoreLifecycle, AnEmptyLayoutNameBecomesEnglishAtTheNextUpdate)
{
    m_core.reset(new KeyBoardCore);
    takeTrace();
    m_core->updateKeyMap();
    expectTrace(coreLogged(kError, "updateKeyMap", kNoParser));
    EXPECT_EQ((*m_core).*member(LayoutName()), "English");
}

TEST_F(CoreLifecycle, AnEmptyNameInTheCatalogueShowsTheUnnamedKeyMap)
{
    Catalogue catalogue = sample::allKindsCatalogue();
    catalogue.names = {""};
    m_folder.writeCatalogue(asJson(catalogue));
    m_folder.writeKeyMap("", asJson(sample::allKindsDefaultKeys("Unnamed"), {}));
    m_core.reset(new KeyBoardCore);
    startAgain();
    EXPECT_EQ((*m_core).*member(LayoutName()), "English");
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kLanguage).text, "Unnamed");
}

TEST_F(CoreLifecycle, WithoutARendererTheKeysAreNotFetched)
{
    startWithoutRenderer();
    m_core->updateKeyMap();
    expectTrace(coreLogged(kError, "updateKeyMap", kNoUi));
}

TEST_F(CoreLifecycle, WithoutARendererEnterLeavesTheKeyboardNotStarted)
{
    startWithoutRenderer();
    m_core->enter();
    expectTrace(namesRead(3) + m_expected.layoutChange("English") +
                coreLogged(kError, "updateKeyMap", kNoUi) + coreLogged(kError, "enter", kNoUi));
    EXPECT_FALSE(m_core->isKeyBoardEnable());
    EXPECT_FALSE(m_core->isShow());
}

// --- Bad layout files, as the keyboard's host meets them.

// An unsuccessful start leaves its parser and renderer behind, as it is meant to.
class LeavesBehind
{
public:
    LeavesBehind()
    {
        if (__lsan_disable != nullptr)
            __lsan_disable();
    }
    ~LeavesBehind()
    {
        if (__lsan_enable != nullptr)
            __lsan_enable();
    }
};

class CoreBadInput : public CoreLifecycle
{
protected:
    void startNew()
    {
        m_core.reset(new KeyBoardCore);
        takeTrace();
        startAgain();
    }

    void expectNotStarted()
    {
        EXPECT_FALSE(m_core->isKeyBoardEnable());
        EXPECT_FALSE(m_core->isShow());
        takeTrace();
        EXPECT_EQ(m_core->onKeyEvent(13), 2);
        expectTrace(coreLogged(kTrace, "onKeyEvent", "Received Keycode: 13\n"));
    }

    // What every start does before it reads the names.
    Steps begun(const Steps& parser, int width, int height)
    {
        return imeStarts(false) + parser + windowMade("window1", width, height) +
               m_renderer.construction(width, height);
    }

    // What a parser does that finds no catalogue: the key map's reading looks for it once more.
    static Steps catalogueMissed()
    {
        return parserLogged("ParseLayout", "called\n") +
               parserLogged("ParseCurrentLayoutKeyMaps", "called\n") +
               parserLogged("ParseLayout", "called\n");
    }

    // enter, when the list is empty with the catalogue read or not.
    static Steps noNames(bool catalogueIsRead)
    {
        const Steps success = parserLogged("ParseLayout", "Layout Parse Successfully !\n");
        return coreLogged(kTrace, "enter", "enter the VKB!\n\n") +
               parserLogged("getLayoutsName", "called\n") +
               parserLogged("ParseLayout", "called\n") + (catalogueIsRead ? success : Steps()) +
               coreLogged(kTrace, "enter", "language num :0 \n") +
               coreLogged(kTrace, "enter", "Read language name error! \n");
    }

    static std::string withoutNames()
    {
        Catalogue catalogue = sample::allKindsCatalogue();
        catalogue.names.clear();
        return asJson(catalogue);
    }
};

TEST_F(CoreBadInput, AnEmptyLayoutListLeavesTheKeyboardNotStarted)
{
    m_folder.writeCatalogue(withoutNames());
    startNew();
    expectTrace(begun(parserMade(), kWidth, kHeight) + noNames(true));
    expectNotStarted();
}

TEST_F(CoreBadInput, AStartAfterAnEmptyListBuildsAgainInTheSameWindowAndReleasesNothing)
{
    m_folder.writeCatalogue(withoutNames());
    const LeavesBehind parserAndRenderer;
    startNew();
    sample::writeAllKinds(m_folder);
    takeTrace();
    startAgain();
    expectTrace(imeStarts(false) + parserMade() + windowShown("window1") +
                m_renderer.construction(kWidth, kHeight) + entered("English"));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreBadInput, AMissingCatalogueGivesNoWindowAndNoKeyboard)
{
    m_folder.removeCatalogue();
    startNew();
    expectTrace(imeStarts(false) + catalogueMissed() + windowWanted(0, 0) + noNames(false));
    EXPECT_EQ(m_display.liveWindows(), 0u);
    expectNotStarted();
    m_core->Show();
    EXPECT_FALSE(m_core->isShow()) << "there is no renderer";
}

TEST_F(CoreBadInput, AMalformedCatalogueIsAsGoodAsNone)
{
    m_folder.writeCatalogue("{\"language\": [\"English\"");
    startNew();
    expectTrace(imeStarts(false) + catalogueMissed() + windowWanted(0, 0) + noNames(false));
    expectNotStarted();
}

TEST_F(CoreBadInput, AStartAfterAMissingCatalogueFindsTheOneThatCameMeanwhile)
{
    m_folder.removeCatalogue();
    const LeavesBehind parser;
    startNew();
    sample::writeAllKinds(m_folder);
    takeTrace();
    startAgain();
    expectTrace(firstStart());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreBadInput, AWindowThatCannotBeMadeLeavesTheKeyboardNotStarted)
{
    m_display.failEvery("CreateWindow", DFB_NOVIDEOMEMORY);
    startNew();
    expectTrace(imeStarts(false) + parserMade() + windowWanted(kWidth, kHeight) + namesRead(3) +
                m_expected.layoutChange("English") + coreLogged(kError, "updateKeyMap", kNoUi) +
                coreLogged(kError, "enter", kNoUi));
    expectNotStarted();
}

TEST_F(CoreBadInput, AMissingKeyMapStartsAKeyboardWithoutKeys)
{
    m_folder.removeKeyMap("English");
    startNew();
    const Button_t nothing{};
    Steps loading = parserLogged("getKeyMap", "called\n") +
                    parserLogged("ParseCurrentLayoutKeyMaps", "called\n") +
                    m_renderer.setLayoutData(0, kUsualFont, "font1");
    expectTrace(begun(parserMade(), kWidth, kHeight) + namesRead(3) +
                coreLogged(kTrace, "onLayoutChanged", "language name :English \n") +
                parserLogged("onLayoutchanged", "Current Layout is :English \n") +
                parserLogged("ParseCurrentLayoutKeyMaps", "called\n") + loading +
                m_renderer.showHidden(m_none, m_none) +
                m_expected.refusedFocusChange(m_none, m_none, 0, nothing));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->onKeyEvent(39), 0) << "a move on an empty key set is used up";
}

TEST_F(CoreBadInput, AMalformedKeyMapStartsAKeyboardWithoutKeys)
{
    m_folder.writeKeyMap("English", "{\"Keys\": {\"KeyMode_Default\": [");
    startNew();
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_THAT(logLinesOf(takeTrace()), Not(Contains(HasSubstr("LayoutKeyMap Parse Success"))));
    EXPECT_EQ(focused().text, "");
}

TEST_F(CoreBadInput, ALayoutWithoutAKeyMapAmongOthersKeepsTheFocusedKey)
{
    m_folder.removeKeyMap("German");
    start();
    EXPECT_EQ(press(kLanguage), 0);
    EXPECT_EQ(focused().text, "English") << "there is no key to take its place";
    EXPECT_EQ(m_core->onKeyEvent(13), 0) << "so the language key leads on";
    EXPECT_EQ(focused().text, "Greek");
}

TEST_F(CoreBadInput, ACatalogueWithoutPositionsThrowsOutOfTheStart)
{
    m_folder.writeCatalogue("{\"language\": [\"English\"]}");
    m_core.reset(new KeyBoardCore);
    takeTrace();
    EXPECT_ANY_THROW(startAgain());
    expectTrace(imeStarts(false) + parserLogged("ParseLayout", "called\n") +
                parserLogged("ParseLayout", "Layout Parse Successfully !\n"));
    EXPECT_EQ(m_display.liveWindows(), 0u);
    expectNotStarted();

    sample::writeAllKinds(m_folder);
    startAgain();
    EXPECT_TRUE(m_core->isKeyBoardEnable());
}

TEST_F(CoreBadInput, AKeyThatCannotBeConvertedThrowsOutOfTheStart)
{
    m_folder.writeKeyMap("English", "{\"Keys\": {\"KeyMode_Default\": [{\"id\": \"x\"}]}}");
    m_core.reset(new KeyBoardCore);
    EXPECT_ANY_THROW(startAgain());
    expectNotStarted();
    m_core->OnIMECancelled();
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

TEST_F(CoreBadInput, AKeyWithoutARectangleIsDrawnAtTheOriginWithNoSize)
{
    Catalogue catalogue = sample::allKindsCatalogue();
    catalogue.rects.pop_back();
    m_folder.writeCatalogue(asJson(catalogue));
    startNew();
    EXPECT_THAT(takeTrace(), Contains("surface2.FillRectangle(0,0,1,1)"));
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    EXPECT_EQ(m_core->getTargetButtonByButtonId(kKeys - 1).text, "mute");
}

TEST_F(CoreBadInput, WithoutAFontTheKeyboardStartsAndShowsOnlyTheFrame)
{
    ::setenv(kFontVariable, "/opt/font/missing.ttf", 1);
    startNew();
    const Keys shown = keys();
    expectTrace(begun(parserMade(), kWidth, kHeight) + namesRead(3) +
                m_expected.layoutChange("English") + parserLogged("getKeyMap", "called\n") +
                steps::Renderer::setLayoutDataWithoutFile(kKeys) + steps::Renderer::showShown() +
                steps::Renderer::drawWithoutFont() +
                coreLogged(kTrace, "FocusButtonChangedTo", "called\n") +
                coreLogged(kTrace, "getTargetButtonByButtonId", "Target button num is 0\n") +
                coreLogged(kTrace, "FocusButtonChangedTo", "focus button:a\n") +
                m_renderer.setLockedWithoutFont() + m_renderer.setfocusWithoutFont(shown[0]));
    EXPECT_TRUE(m_core->isShow());
    EXPECT_EQ(m_core->onKeyEvent(13), 1) << "keys work all the same";
    EXPECT_EQ(m_core->getKeyBoardButton(), 65);
}

// --- The layer, in a process that has not asked for it yet. The child processes of death tests
// are such: the suites whose names end in DeathTest run before all others.

class LayerDeathTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (LayerAskedFor::inThisProcess)
            GTEST_SKIP() << "this process has asked for the layer: run the test in its own";
    }
};

void endWithResult()
{
    std::exit(testing::Test::HasFailure() ? 1 : 0);
}

void askForTheLayerTwice()
{
    RecordingDisplay display;
    KeyBoardCore core;
    core.CreateDFBWindow(display.dfb(), nullptr);
    Lines expected = callsOf(steps::linesOf(windowMade("window1", 805, 255)));
    expected.insert(expected.begin(), "dfb.GetDisplayLayer(PRIMARY)");
    EXPECT_EQ(callsOf(takeTrace()), expected);
    core.OnIMECancelled();
    core.CreateDFBWindow(display.dfb(), nullptr);
    EXPECT_THAT(takeTrace(), Not(Contains(HasSubstr("GetDisplayLayer"))));
    endWithResult();
}

TEST_F(LayerDeathTest, IsAskedForOncePerProcess)
{
    EXPECT_EXIT(askForTheLayerTwice(), ExitedWithCode(0), "");
}

const char kLayerCall[] = "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &os_layer)";

void failToGetTheLayer()
{
    RecordingDisplay display;
    const FatalTrap trap;
    KeyBoardCore core;
    display.failEvery("GetDisplayLayer", DFB_IDNOTFOUND);
    try {
        core.CreateDFBWindow(display.dfb(), nullptr);
        ADD_FAILURE() << "it returned";
    } catch (const FatalError& error) {
        EXPECT_EQ(error.text, kLayerCall);
        EXPECT_EQ(error.result, DFB_IDNOTFOUND);
    }
    EXPECT_THAT(takeTrace(), ElementsAre("dfb.GetDisplayLayer(PRIMARY)"));
    endWithResult();
}

TEST_F(LayerDeathTest, AFailureToGetItIsReportedAndFatal)
{
    EXPECT_EXIT(failToGetTheLayer(), ExitedWithCode(0),
                HasSubstr("directfb do: '" + std::string(kLayerCall) + "' failed!\n"));
}

TEST_F(LayerDeathTest, AFailureToGetItEndsTheProcess)
{
    RecordingDisplay display;
    KeyBoardCore core;
    display.failEvery("GetDisplayLayer", DFB_INVARG);
    EXPECT_EXIT(core.CreateDFBWindow(display.dfb(), nullptr),
                ExitedWithCode(static_cast<int>(DFB_INVARG) & 0xFF),
                HasSubstr("DirectFBError [" + std::string(kLayerCall) + "]"));
}

} // namespace
