// Types a language as its engine, or our library, lets it, and reports times and memory.
//
// Usage: NAME LAYOUT READING ROUNDS
//
// Prints nanoseconds a key, those of the slowest twentieth of the keys, and KiB that are resident.
// Times are of this thread's processor, without that of reading them. A key's is its share of a
// round, as reading the clock for each key alone takes longer than the fastest keys do. Of all
// rounds it is the one that a quarter of them is faster than: what others do on the machine adds
// to some, and the clock at times skips most of a round.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include <time.h>

#include "process_memory.h"
#include "typing.h"

namespace
{

long nanoseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1000000000L + now.tv_nsec;
}

// What reading the time twice takes.
long clockNanoseconds()
{
    long least = std::numeric_limits<long>::max();
    for (int i = 0; i < 1000; ++i) {
        const long from = nanoseconds();
        least = std::min(least, nanoseconds() - from);
    }
    return least;
}

long percentile(std::vector<long>& times, size_t part)
{
    std::sort(times.begin(), times.end());
    return times[times.size() * part / 100];
}

std::vector<std::string> characters(const std::string& utf8)
{
    std::vector<std::string> found;
    for (const char byte : utf8) {
        if ((byte & 0xC0) != 0x80)
            found.emplace_back();
        found.back() += byte;
    }
    return found;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const std::vector<std::string> keys = characters(argv[2]);
    if (!bench::start(argv[1], keys))
        return 1;
    const int rounds = std::atoi(argv[3]);
    const long clock = clockNanoseconds();
    size_t shown = 0;
    std::vector<long> together;
    for (int round = rounds; round > 0; --round) {
        const long from = nanoseconds();
        for (size_t i = 0; i < keys.size(); ++i)
            shown += bench::press(i);
        together.push_back(nanoseconds() - from - clock);
        bench::clear();
    }
    std::vector<long> all;
    for (int round = rounds; round > 0; --round) {
        for (size_t i = 0; i < keys.size(); ++i) {
            const long from = nanoseconds();
            shown += bench::press(i);
            all.push_back(nanoseconds() - from - clock);
        }
        bench::clear();
    }
    if (shown == 0)
        return 1;
    const double key = static_cast<double>(percentile(together, 25)) / double(keys.size());
    std::printf("%.2f %ld %ld\n", key, percentile(all, 95), bench::residentKiB());
    return 0;
}
