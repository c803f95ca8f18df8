#include "process_memory.h"

#include <cstdio>

namespace bench
{

long residentKiB()
{
    std::FILE* file = std::fopen("/proc/self/smaps_rollup", "r");
    if (file == nullptr)
        return 0;

    long kib = 0;
    char line[256];
    while (kib == 0 && std::fgets(line, sizeof line, file) != nullptr) {
        if (std::sscanf(line, "Rss: %ld kB", &kib) != 1)
            kib = 0;
    }
    std::fclose(file);
    return kib;
}

} // namespace bench
