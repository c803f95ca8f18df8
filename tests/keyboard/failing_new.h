#ifndef TESTS_KEYBOARD_FAILING_NEW_H
#define TESTS_KEYBOARD_FAILING_NEW_H

#include <cstddef>

// While it lives, the count-th allocation by new from its beginning, 1 being the next, throws
// std::bad_alloc, once.
class FailingNew
{
public:
    explicit FailingNew(size_t count) { left = count; }
    ~FailingNew() { left = 0; }
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    // Whether it came to that allocation.
    static bool failed() { return left == 0; }

    static inline size_t left = 0; // allocations until the failing one; 0: none is to fail
};

#endif
