// How the test driver reads a line of commands.
#ifndef COMMAND_LINE_H
#define COMMAND_LINE_H

#include <string>

namespace velmora
{
namespace browser
{
namespace vkb
{

// Splits a line that a tester typed: cmd becomes the text before the first blank, param what
// follows the run of blanks behind it, inner and trailing blanks kept; a rest of nothing but
// blanks is kept as it is. Without a blank the whole line is cmd, and param is left alone.
inline void splitCommandLine(const std::string& line, std::string& cmd, std::string& param)
{
    const std::string::size_type blank = line.find(' ');
    if (blank == std::string::npos) {
        cmd = line;
        return;
    }

    cmd = line.substr(0, blank);
    const std::string::size_type start = line.find_first_not_of(' ', blank);
    param = line.substr(start == std::string::npos ? blank : start);
}

// A parameter as the echo line shows it; the result lives as long as param.
inline const char* shownParameter(const std::string& param)
{
    return param.empty() ? "null" : param.c_str();
}

} // namespace vkb
} // namespace browser
} // namespace velmora

#endif
