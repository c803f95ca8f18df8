// The operators for arrays go through these, in the C++ library. In a file of their own, as the
// compiler takes what it sees of them for a mistake: free with new.
#include "failing_new.h"

#include <cstdlib>
#include <new>

void* operator new(size_t bytes)
{
    const bool fails = FailingNew::left > 0 && --FailingNew::left == 0;
    void* memory = fails ? nullptr : std::malloc(bytes);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}
