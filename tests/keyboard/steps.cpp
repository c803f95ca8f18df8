#include "steps.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "log_capture.h"

namespace steps
{

Steps operator+(Steps first, const Steps& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

test_support::Lines linesOf(const Steps& steps)
{
    test_support::Lines lines;
    for (const Step& step : steps)
        lines.push_back(step.line);
    return lines;
}

Steps calls(const test_support::Lines& lines)
{
    Steps steps;
    for (const std::string& line : lines)
        steps.push_back({line, ""});
    return steps;
}

Steps logged(const std::string& file, const std::string& function, const std::string& message,
             uint32_t level)
{
    return {{test_support::logTraceLine(file, level, function, message), ""}};
}

Steps parser(const std::string& function, const std::string& message)
{
    return logged("Language_Parser.cpp", function, message, kTrace);
}

Steps catalogueNotRead()
{
    return parser("ParseLayout", "called\n");
}

Steps catalogueRead()
{
    return catalogueNotRead() + parser("ParseLayout", "Layout Parse Successfully !\n");
}

Steps keyMapNotRead()
{
    return parser("ParseCurrentLayoutKeyMaps", "called\n");
}

Steps keyMapRead()
{
    return keyMapNotRead() +
           parser("ParseCurrentLayoutKeyMaps", "Current LayoutKeyMap Parse Successfully !\n");
}

Steps layoutChosen(const std::string& name)
{
    return parser("onLayoutchanged", "Current Layout is :" + name + " \n");
}

namespace
{

std::string lineAt(const test_support::Lines& lines, size_t index)
{
    return index < lines.size() ? lines[index] : "(nothing)";
}

} // namespace

void expectTrace(const Steps& expected)
{
    const test_support::Lines wanted = linesOf(expected);
    const test_support::Lines found = test_support::takeTrace();
    const size_t common = std::min(wanted.size(), found.size());
    const auto differing = std::mismatch(
        wanted.begin(), wanted.begin() + static_cast<std::ptrdiff_t>(common), found.begin());
    const size_t at = static_cast<size_t>(differing.first - wanted.begin());
    if (at == wanted.size() && at == found.size())
        return;
    ADD_FAILURE() << "line " << at << " of " << wanted.size() << " differs; found " << found.size()
                  << " lines\n  before:   " << (at > 0 ? found[at - 1] : "(start)")
                  << "\n  expected: " << lineAt(wanted, at) << "\n  found:    " << lineAt(found, at)
                  << "\n  then:     " << lineAt(found, at + 1);
}

} // namespace steps
