#ifndef TESTS_SUPPORT_ROW_H
#define TESTS_SUPPORT_ROW_H

#include <ostream>
#include <string>

namespace test_support
{

// What each row of a table of tests begins with: a name, which is the test's too.
struct Row {
    const char* name;
};

inline std::ostream& operator<<(std::ostream& stream, const Row& row)
{
    return stream << row.name;
}

// The last argument of INSTANTIATE_TEST_SUITE_P for such a table.
struct RowName {
    template <class Test> std::string operator()(const Test& test) const { return test.param.name; }
};

} // namespace test_support

#endif
