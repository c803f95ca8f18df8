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

} // namespace

void record(const std::string& line)
{
    recorded().push_back(line);
}

Lines takeTrace()
{
    return std::exchange(recorded(), {});
}

Lines callsOf(const Lines& trace)
{
    Lines calls;
    std::copy_if(trace.begin(), trace.end(), std::back_inserter(calls),
                 [](const std::string& line) { return line.compare(0, 4, "log ") != 0; });
    return calls;
}

} // namespace test_support
