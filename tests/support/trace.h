#ifndef TESTS_SUPPORT_TRACE_H
#define TESTS_SUPPORT_TRACE_H

#include <string>
#include <utility>
#include <vector>

namespace test_support
{

using Lines = std::vector<std::string>;

// What a test program's keyboard did, in order: one line of text for each DirectFB call, such as
// `surface1.FillRectangle(4,4,61,51)`, and one for each log line, such as
// `log keyboard_ui.cpp 5F1388 draw "done\n"`.
inline Lines g_trace;

inline void record(const std::string& line)
{
    g_trace.push_back(line);
}

// Gives the lines recorded since the last taking, and forgets them.
inline Lines takeTrace()
{
    return std::exchange(g_trace, {});
}

// One line each: texts of several lines are compared with a readable difference.
inline std::string text(const Lines& lines)
{
    std::string whole;
    for (const std::string& line : lines)
        whole += line + "\n";
    return whole;
}

// A trace without its log lines.
inline Lines callsOf(const Lines& trace)
{
    Lines calls;
    for (const std::string& line : trace)
        if (line.rfind("log ", 0) != 0)
            calls.push_back(line);
    return calls;
}

} // namespace test_support

#endif
