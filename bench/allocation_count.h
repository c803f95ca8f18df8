#ifndef BENCH_ALLOCATION_COUNT_H
#define BENCH_ALLOCATION_COUNT_H

#include <cstddef>

namespace bench
{

// Heap allocations of this thread since the start of the process, by malloc, calloc, realloc or
// new, whoever makes them.
size_t allocationsOfThisThread();

} // namespace bench

#endif
