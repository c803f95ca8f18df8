// The test driver's clock.
#ifndef ELAPSED_TIME_H
#define ELAPSED_TIME_H

#include <cstdint>

#include <time.h>

namespace velmora
{
namespace browser
{
namespace vkb
{

inline timespec monotonicNow()
{
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now;
}

// Milliseconds between two readings. No second is borrowed when the end's nanoseconds are not above
// the start's, so the figure is then 1000 ms too high: kept.
inline int64_t elapsedMilliseconds(const timespec& start, const timespec& end)
{
    const int64_t nanoseconds = end.tv_nsec > start.tv_nsec
                                    ? int64_t(end.tv_nsec) - start.tv_nsec
                                    : INT64_C(1000000000) - start.tv_nsec + end.tv_nsec;
    // 32 bits, and unsigned, so that it wraps: kept.
    const uint32_t seconds =
        static_cast<uint32_t>(end.tv_sec) - static_cast<uint32_t>(start.tv_sec);
    return nanoseconds / 1000000 + static_cast<int32_t>(1000 * seconds);
}

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
