#include "fatal_trap.h"

#include <cstdlib>

#include <dlfcn.h>

namespace test_support
{

namespace
{

int trapsSet = 0;

} // namespace

FatalTrap::FatalTrap()
{
    ++trapsSet;
}

FatalTrap::~FatalTrap()
{
    --trapsSet;
}

} // namespace test_support

// A program's own definition takes the place of the shared library's.
extern "C" DFBResult DirectFBErrorFatal(const char* msg, DFBResult result)
{
    if (test_support::trapsSet > 0)
        throw test_support::FatalError{msg, result};

    using Function = DFBResult(const char*, DFBResult);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, "DirectFBErrorFatal"))(msg, result);
}
