#ifndef TESTS_SUPPORT_FATAL_TRAP_H
#define TESTS_SUPPORT_FATAL_TRAP_H

#include <string>

#include <directfb.h>

namespace test_support
{

// What DirectFBErrorFatal was called with.
struct FatalError {
    std::string text;
    DFBResult result;
};

// While a trap lives, DirectFBErrorFatal throws a FatalError in place of ending the process.
// Without one it does what DirectFB's own does.
class FatalTrap
{
public:
    FatalTrap() { ++set; }
    ~FatalTrap() { --set; }
    FatalTrap(const FatalTrap&) = delete;
    FatalTrap& operator=(const FatalTrap&) = delete;

    static inline int set = 0; // how many live
};

} // namespace test_support

#endif
