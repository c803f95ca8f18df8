#ifndef TESTS_SUPPORT_ROW_H
#define TESTS_SUPPORT_ROW_H

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace test_support
{

// What each row of a table of tests begins with: a name, which is the test's too. It is converted
// implicitly, so that it needs no braces of its own.
struct Row {
    Row(const char* text) : name(text) {}

    const char* name;
};

inline std::ostream& operator<<(std::ostream& stream, const Row& row)
{
    return stream << row.name;
}

// A fixture whose tests run once for each row of a table.
template <class Fixture, class Param>
class WithRows : public Fixture, public testing::WithParamInterface<Param>
{
};

// The last argument of INSTANTIATE_TEST_SUITE_P for such a table.
struct RowName {
    template <class Test> std::string operator()(const Test& test) const { return test.param.name; }
};

} // namespace test_support

#endif
