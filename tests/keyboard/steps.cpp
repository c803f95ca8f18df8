#include "steps.h"

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

void expectTrace(const Steps& expected)
{
    EXPECT_EQ(test_support::text(test_support::takeTrace()), test_support::text(linesOf(expected)));
}

} // namespace steps
