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

Steps logged(const std::string& file, uint32_t level, const std::string& function,
             const std::string& message)
{
    return {{test_support::logTraceLine(file, level, function, message), ""}};
}

velmora::browser::vkb::Button_t key(const std::string& text,
                                    const velmora::browser::vkb::Rect_t& rect)
{
    velmora::browser::vkb::Button_t made{};
    made.text = text;
    made.rect = rect;
    return made;
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
