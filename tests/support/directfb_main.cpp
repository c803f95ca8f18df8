// The main function of test programs that use real DirectFB.
#include <cstdio>
#include <cstdlib>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

extern "C" {
void __lsan_do_leak_check() __attribute__((weak)); // there in builds with a leak checker
#ifdef VKB_COVERAGE
void __gcov_dump();
#endif
}

// DirectFB is never released here, so its threads still run at the end. exit() would take its
// libraries apart under them, and one run in some hundreds would crash; so this ends at once, after
// what else exit() would have done.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    const int status = RUN_ALL_TESTS();
    if (__lsan_do_leak_check)
        __lsan_do_leak_check();
#ifdef VKB_COVERAGE
    __gcov_dump();
#endif
    std::fflush(nullptr);
    std::_Exit(status);
}
