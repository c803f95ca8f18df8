// The keyboard's window, which all cores of a process share, and the layer that it is on.

#include <cstdlib>
#include <string>

#include "core_fixture.h"

namespace
{

using namespace test_support;
using namespace velmora::browser::vkb;
using namespace steps;
using namespace testing;

using CoreWindow = CoreTest;

TEST_F(CoreWindow, IsAtItsPlaceWhateverItsSizeAndAsksForTheWidthBeforeTheHeight)
{
    create();
    m_core->CreateDFBWindow(m_display.dfb(), m_host_surface);
    // Without a parser each side is asked for with an error line of its own.
    const Steps made = windowMade("window1", 805, 255);
    const Steps asked = core("getWidth", kNoParser, kError) + core("getHeight", kNoParser, kError);
    expectTrace(Steps(made.begin(), made.begin() + 1) + asked +
                Steps(made.begin() + 1, made.end()));
}

TEST_F(CoreWindow, AllCoresShareOneWindow)
{
    start();
    KeyBoardCore second;
    takeTrace();
    second.OnIMEStart(m_display.dfb(), m_host_surface);
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

TEST_F(CoreWindow, FailuresAroundTheWindowAreIgnored)
{
    for (const char* method :
         {"SetCooperativeLevel", "SetOpacity", "RaiseToTop", "LowerToBottom", "Release"})
        m_display.failEvery(method, DFB_ACCESSDENIED);
    create();
    startIt();
    expectTrace(firstStart());
    EXPECT_TRUE(m_core->isKeyBoardEnable());
    m_core->HideDFBWindow();
    m_core->OnIMECancelled();
    EXPECT_EQ(m_display.liveWindows(), 0u);
}

TEST_F(CoreWindow, AWindowThatFailsToBeDestroyedIsForgotten)
{
    start();
    m_display.failEvery("Destroy", DFB_FAILURE);
    m_core->OnIMECancelled();
    takeTrace();
    startIt();
    EXPECT_THAT(takeTrace(), Contains(HasSubstr("layer.CreateWindow(")));
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

void askForTheLayerTwice()
{
    RecordingDisplay display;
    KeyBoardCore core;
    core.CreateDFBWindow(display.dfb(), nullptr);
    Lines expected = callsOf(linesOf(windowMade("window1", 805, 255)));
    expected.insert(expected.begin(), "dfb.GetDisplayLayer(PRIMARY)");
    EXPECT_EQ(callsOf(takeTrace()), expected);
    core.OnIMECancelled();
    core.CreateDFBWindow(display.dfb(), nullptr);
    EXPECT_THAT(takeTrace(), Not(Contains(HasSubstr("GetDisplayLayer"))));
    std::exit(testing::Test::HasFailure() ? 1 : 0);
}

TEST_F(LayerDeathTest, IsAskedForOncePerProcess)
{
    EXPECT_EXIT(askForTheLayerTwice(), ExitedWithCode(0), "");
}

TEST_F(LayerDeathTest, AFailureToGetItIsReportedAndEndsTheProcess)
{
    RecordingDisplay display;
    KeyBoardCore core;
    display.failEvery("GetDisplayLayer", DFB_INVARG);
    const std::string call = "dfb->GetDisplayLayer(dfb, DLID_PRIMARY, &os_layer)";
    EXPECT_EXIT(core.CreateDFBWindow(display.dfb(), nullptr),
                ExitedWithCode(static_cast<int>(DFB_INVARG) & 0xFF),
                AllOf(HasSubstr("directfb do: '" + call + "' failed!\n"),
                      HasSubstr("DirectFBError [" + call + "]")));
}

} // namespace
