#ifndef TESTS_SUPPORT_TRACE_H
#define TESTS_SUPPORT_TRACE_H

#include <string>
#include <vector>

namespace test_support
{

using Lines = std::vector<std::string>;

// What a test program's keyboard did, in order: one line of text for each DirectFB call, such as
// `surface1.FillRectangle(4,4,61,51)`, and one for each log line, such as
// `log keyboard_ui.cpp 5F1388 draw "done\n"`.
void record(const std::string& line);

// Gives the lines recorded since the last taking, and forgets them.
Lines takeTrace();

// One line each: texts of several lines are compared with a readable difference.
inline std::string text(const Lines& lines)
{
    std::string whole;
    for (const std::string& line : lines)
        whole += line + "\n";
    return whole;
}

// A trace without its log lines.
Lines callsOf(const Lines& trace);

} // namespace test_support

#endif
