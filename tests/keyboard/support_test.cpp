// The tools of the other tests: what they promise about failing calls and moved paths.

#include <cstdio>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>

#include <fcntl.h>
#include <unistd.h>

#include "fatal_trap.h"
#include "layout_folder.h"
#include "log.h"
#include "log_capture.h"
#include "recording_display.h"

namespace
{

using namespace test_support;
using testing::ElementsAre;
using testing::KilledBySignal;

std::string contents(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

TEST(RecordingDisplay, WritesEachCallWithItsArguments)
{
    RecordingDisplay display;
    IDirectFBSurface* surface = display.newSurface(800, 600);
    const DFBRegion region = {1, 2, 3, 4};
    surface->SetColor(surface, 1, 2, 3, 255);
    surface->Flip(surface, &region, DSFLIP_WAITFORSYNC);

    EXPECT_THAT(takeTrace(), ElementsAre("surface1.SetColor(1,2,3,255)",
                                         "surface1.Flip({1,2,3,4},WAITFORSYNC)"));
    EXPECT_THAT(takeTrace(), ElementsAre());
}

TEST(RecordingDisplay, FailsTheChosenCallOnce)
{
    RecordingDisplay display;
    IDirectFBSurface* surface = display.newSurface(800, 600);
    display.failCall(2, DFB_NOVIDEOMEMORY);

    EXPECT_EQ(surface->FillRectangle(surface, 0, 0, 1, 1), DFB_OK);
    EXPECT_EQ(surface->FillRectangle(surface, 0, 0, 1, 1), DFB_NOVIDEOMEMORY);
    EXPECT_EQ(surface->FillRectangle(surface, 0, 0, 1, 1), DFB_OK);
}

TEST(RecordingDisplay, CountsLiveObjectsAndLeavesTheHandleOfAFailedOneAlone)
{
    RecordingDisplay display;
    IDirectFB* dfb = display.dfb();
    const DFBFontDescription wanted = {};
    IDirectFBFont* font = nullptr;
    display.failCall(1, DFB_FILENOTFOUND);
    EXPECT_EQ(dfb->CreateFont(dfb, "a.ttf", &wanted, &font), DFB_FILENOTFOUND);
    EXPECT_EQ(font, nullptr);

    ASSERT_EQ(dfb->CreateFont(dfb, "a.ttf", &wanted, &font), DFB_OK);
    EXPECT_EQ(display.liveFonts(), 1u);
    font->Release(font);
    EXPECT_EQ(display.liveFonts(), 0u);
}

TEST(RecordingDisplayDeathTest, StopsAtAnUnknownMethod)
{
    RecordingDisplay display;
    IDirectFBSurface* surface = display.newSurface(800, 600);
    EXPECT_EXIT(surface->DrawRectangle(surface, 0, 0, 1, 1), KilledBySignal(SIGABRT),
                "a method was called that it does not offer");
}

TEST(LogCaptureDeathTest, StopsAtALineThatWasNotAskedFor)
{
    LogCapture log;
    EXPECT_EXIT(cspDebugOutput0("[%s] %s:%d:%s(): x\n", "B-LOG", "f", 1, "g"),
                KilledBySignal(SIGABRT), "was not asked for");
}

TEST(FatalTrap, ThrowsInPlaceOfEndingTheProcess)
{
    const FatalTrap trap;
    try {
        DirectFBErrorFatal("some call", DFB_BUSY);
        FAIL() << "it returned";
    } catch (const FatalError& error) {
        EXPECT_EQ(error.text, "some call");
        EXPECT_EQ(error.result, DFB_BUSY);
    }
}

TEST(TestSeams, MoveTheFixedPathsIntoTheFolder)
{
    const std::string path = "/usr/local/opt/font/some.ttf";
    ASSERT_NE(::access(path.c_str(), F_OK), 0);
    {
        LayoutFolder folder;
        EXPECT_NE(::access(path.c_str(), F_OK), 0);
        folder.writeFile(path, "a font");
        EXPECT_EQ(::access(path.c_str(), F_OK), 0);
        EXPECT_EQ(contents(path), "a font");
        const int descriptor = ::open(path.c_str(), O_RDONLY);
        EXPECT_GE(descriptor, 0);
        ::close(descriptor);
    }
    EXPECT_NE(::access(path.c_str(), F_OK), 0);
}

TEST(TestSeams, RefuseTheChosenFile)
{
    LayoutFolder folder;
    folder.writeCatalogue("{}");
    ASSERT_EQ(contents(LayoutFolder::cataloguePath()), "{}");
    ::setenv("VKB_TEST_FAIL_OPEN", LayoutFolder::cataloguePath().c_str(), 1);
    EXPECT_FALSE(std::ifstream(LayoutFolder::cataloguePath()).is_open());
    EXPECT_LT(::open(LayoutFolder::cataloguePath().c_str(), O_RDONLY), 0);
    ::unsetenv("VKB_TEST_FAIL_OPEN");
}

TEST(TestSeams, WriteDownSleepsAndReturnAtOnce)
{
    LayoutFolder folder;
    const std::string file = folder.root() + "/sleeps";
    ::setenv("VKB_TEST_SLEEPS", file.c_str(), 1);
    ::usleep(500000);
    EXPECT_EQ(::sleep(86400), 0u);
    ::unsetenv("VKB_TEST_SLEEPS");
    EXPECT_EQ(contents(file), "usleep 500000\nsleep 86400\n");
}

} // namespace
