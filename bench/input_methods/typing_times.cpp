// Types a language as its engine, or our library, lets it, and reports times and memory.
//
// Usage: NAME LAYOUT READING ROUNDS
//
// Prints nanoseconds a key, those of the slowest twentieth of the keys, and KiB that are resident.
// Times are of this thread's processor, without that of reading them; each key's is the least of
// all rounds, as what others do on the machine only adds.
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
    const long clock = clockNanoseconds();
    std::vector<long> least(keys.size(), std::numeric_limits<long>::max());
    std::vector<long> all;
    size_t shown = 0;
    for (int round = std::atoi(argv[3]); round > 0; --round) {
        for (size_t i = 0; i < keys.size(); ++i) {
            const long from = nanoseconds();
            const size_t bytes = bench::press(i);
            const long took = nanoseconds() - from - clock;
            shown += bytes;
            least[i] = std::min(least[i], took);
            all.push_back(took);
        }
        bench::clear();
    }
    if (shown == 0)
        return 1;
    long sum = 0;
    for (const long time : least)
        sum += time;
    std::sort(all.begin(), all.end());
    std::printf("%ld %ld %ld\n", sum / static_cast<long>(keys.size()), all[all.size() * 95 / 100],
                bench::residentKiB());
    return 0;
}
