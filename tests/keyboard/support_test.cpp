// What the other tests rely on and would not notice: that a call or line which is not foreseen
// stops the test, and that a moved path is seen by nobody else.

#include <fstream>

#include <gmock/gmock.h>

#include <unistd.h>

#include "layout_folder.h"
#include "log.h"
#include "log_capture.h"
#include "recording_display.h"

namespace
{

using namespace test_support;
using testing::KilledBySignal;

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
    EXPECT_EXIT(blog_base_name("a/b.cpp"), KilledBySignal(SIGABRT), "was not asked for: a/b.cpp");
}

} // namespace
