#include "failing_new.h"

#include <cstdlib>
#include <new>

namespace
{

size_t left = 0; // allocations until the failing one; 0: none is to fail

void* allocate(size_t bytes)
{
    if (left > 0 && --left == 0)
        throw std::bad_alloc();
    void* memory = std::malloc(bytes == 0 ? 1 : bytes);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

void* operator new(size_t bytes)
{
    return allocate(bytes);
}

void* operator new[](size_t bytes)
{
    return allocate(bytes);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, size_t) noexcept
{
    std::free(memory);
}

FailingNew::FailingNew(size_t count)
{
    left = count;
}

FailingNew::~FailingNew()
{
    left = 0;
}

bool FailingNew::failed() const
{
    return left == 0;
}
