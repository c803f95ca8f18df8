#include "allocation_count.h"

#include <cstdlib>

// The C library's own, under the names that it keeps for this use.
extern "C" {
void* __libc_malloc(size_t bytes);
void* __libc_calloc(size_t count, size_t bytes);
void* __libc_realloc(void* old, size_t bytes);
}

namespace
{

thread_local size_t allocations __attribute__((tls_model("initial-exec"))) = 0;

} // namespace

extern "C" void* malloc(size_t bytes)
{
    ++allocations;
    return __libc_malloc(bytes);
}

extern "C" void* calloc(size_t count, size_t bytes)
{
    ++allocations;
    return __libc_calloc(count, bytes);
}

extern "C" void* realloc(void* old, size_t bytes)
{
    ++allocations;
    return __libc_realloc(old, bytes);
}

size_t bench::allocationsOfThisThread()
{
    return allocations;
}
