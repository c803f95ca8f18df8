#ifndef TESTS_KEYBOARD_FAILING_NEW_H
#define TESTS_KEYBOARD_FAILING_NEW_H

#include <cstddef>

// While it lives, the count-th allocation by new from its beginning, 1 being the next, throws
// std::bad_alloc, once.
class FailingNew
{
public:
    explicit FailingNew(size_t count);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    // Whether it came to that allocation.
    bool failed() const;
};

#endif
