#include "trace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace test_support
{

namespace
{

Lines& recorded()
{
    static Lines lines;
    return lines;
}

bool isLogLine(const std::string& line)
{
    return line.compare(0, 4, "log ") == 0;
}

Lines pick(const Lines& trace, bool wantLogLines)
{
    Lines picked;
    std::copy_if(trace.begin(), trace.end(), std::back_inserter(picked),
                 [=](const std::string& line) { return isLogLine(line) == wantLogLines; });
    return picked;
}

} // namespace

void record(const std::string& line)
{
    recorded().push_back(line);
}

Lines takeTrace()
{
    return std::exchange(recorded(), {});
}

Lines logLinesOf(const Lines& trace)
{
    return pick(trace, true);
}

Lines callsOf(const Lines& trace)
{
    return pick(trace, false);
}

} // namespace test_support
