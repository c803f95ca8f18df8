#ifndef BENCH_REPORT_FD_H
#define BENCH_REPORT_FD_H

#include <cstdio>
#include <string>

#include <unistd.h>

namespace bench
{

// A started program reports here: standard output belongs to the log.
const int kReportFd = 3;

inline void report(const char* name, long value)
{
    char line[64];
    const int length = std::snprintf(line, sizeof line, "%s %ld\n", name, value);
    if (write(kReportFd, line, static_cast<size_t>(length)) != length)
        _exit(1);
}

// A row for bench/run: what was measured, and beside what.
inline void figure(const std::string& name, double value, double atMost, const char* unit,
                   const std::string& compared)
{
    if (dprintf(kReportFd, "%s\t%.4f\t%g\t%s\t%s\n", name.c_str(), value, atMost, unit,
                compared.c_str()) < 0)
        _exit(1);
}

} // namespace bench

#endif
