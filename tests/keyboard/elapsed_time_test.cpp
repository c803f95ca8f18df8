// The milliseconds of a test command, from given clock readings.

#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "elapsed_time.h"
#include "row.h"

namespace
{

using velmora::browser::vkb::elapsedMilliseconds;

static_assert(std::is_same_v<decltype(elapsedMilliseconds({}, {})), int64_t>);

struct Reading : test_support::Row {
    timespec start, end;
    int64_t milliseconds;
};

const Reading kReadings[] = {
    {"EqualReadings", {7, 5}, {7, 5}, 1000},
    {"EqualAtZero", {0, 0}, {0, 0}, 1000},
    {"OneNanosecond", {7, 5}, {7, 6}, 0},
    {"JustBelowOneMillisecond", {7, 0}, {7, 999999}, 0},
    {"OneMillisecond", {7, 0}, {7, 1000000}, 1},
    {"RoundedDown", {7, 0}, {7, 1999999}, 1},
    {"WithinASecond", {7, 100000000}, {7, 350000000}, 250},
    {"LongestWithinASecond", {7, 0}, {7, 999999999}, 999},
    {"OverASecondWithMoreNanoseconds", {7, 100000000}, {9, 350000000}, 2250},
    {"OverASecondWithFewerNanosecondsIsTooHigh", {7, 900000000}, {8, 100000000}, 1200},
    {"ExactSecondsAreTooHigh", {7, 5}, {10, 5}, 4000},
    {"EndBeforeStartInSeconds", {9, 0}, {7, 1000000}, -1999},
    {"EndBeforeStartInNanoseconds", {7, 2000000}, {7, 1000000}, 999},
    {"SecondsWrapAt32Bits", {0, 0}, {3000000, 1000000}, INT64_C(-1294967295)},
    {"LastSecondBeforeTheWrap", {0, 0}, {2147483, 1000000}, INT64_C(2147483001)},
    {"FirstSecondAfterTheWrap", {0, 0}, {2147484, 1000000}, INT64_C(-2147483295)},
};

using ElapsedMilliseconds = testing::TestWithParam<Reading>;

TEST_P(ElapsedMilliseconds, FollowTheTestersArithmetic)
{
    EXPECT_EQ(elapsedMilliseconds(GetParam().start, GetParam().end), GetParam().milliseconds);
}

INSTANTIATE_TEST_SUITE_P(Readings, ElapsedMilliseconds, testing::ValuesIn(kReadings),
                         test_support::RowName());

TEST(MonotonicNow, ReadsTheClockThatNeverGoesBack)
{
    timespec before = {};
    timespec after = {};
    clock_gettime(CLOCK_MONOTONIC, &before);
    const timespec now = velmora::browser::vkb::monotonicNow();
    clock_gettime(CLOCK_MONOTONIC, &after);

    const auto pair = [](const timespec& time) {
        return std::make_pair(time.tv_sec, time.tv_nsec);
    };
    EXPECT_LE(pair(before), pair(now));
    EXPECT_LE(pair(now), pair(after));
}

} // namespace
