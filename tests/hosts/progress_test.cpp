// The line that says how far a long row of presses is.
#include "progress.h"

#include <gtest/gtest.h>

namespace
{

using host::Progress;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

TEST(Progress, TellsEachIntervalALineWhereThereIsNoTerminal)
{
    CaptureStderr();
    {
        Progress progress(3, std::chrono::milliseconds(0));
        progress.step();
        progress.step();
    }
    EXPECT_EQ(GetCapturedStderr(), "terminal_host: press 1 of 3\nterminal_host: press 2 of 3\n");
}

TEST(Progress, SaysNothingBeforeTheFirstInterval)
{
    CaptureStderr();
    {
        Progress progress(3, std::chrono::hours(1));
        progress.step();
    }
    EXPECT_EQ(GetCapturedStderr(), "");
}

} // namespace
