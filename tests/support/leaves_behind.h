#ifndef TESTS_SUPPORT_LEAVES_BEHIND_H
#define TESTS_SUPPORT_LEAVES_BEHIND_H

// Of the leak checker, in programs that are built with it; the reserved names are its own.
extern "C" {
void __lsan_disable() __attribute__((weak)); // NOLINT(bugprone-reserved-identifier)
void __lsan_enable() __attribute__((weak));  // NOLINT(bugprone-reserved-identifier)
}

namespace test_support
{

// While one of these lives, what the keyboard allocates may stay behind: where it is meant to, so
// that the leak checker must not report it.
class LeavesBehind
{
public:
    LeavesBehind()
    {
        if (__lsan_disable != nullptr)
            __lsan_disable();
    }
    ~LeavesBehind()
    {
        if (__lsan_enable != nullptr)
            __lsan_enable();
    }
    LeavesBehind(const LeavesBehind&) = delete;
    LeavesBehind& operator=(const LeavesBehind&) = delete;
};

} // namespace test_support

#endif
