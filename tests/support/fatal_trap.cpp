#include "fatal_trap.h"

#include <dlfcn.h>

// A program's own definition takes the place of the shared library's.
extern "C" DFBResult DirectFBErrorFatal(const char* msg, DFBResult result)
{
    if (test_support::FatalTrap::set > 0)
        throw test_support::FatalError{msg, result};

    using Function = DFBResult(const char*, DFBResult);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, "DirectFBErrorFatal"))(msg, result);
}
