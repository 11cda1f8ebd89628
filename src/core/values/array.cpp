#include <vek/values/array.h>

#include <climits>

void* CVekObj::operator new(std::size_t size) noexcept
{
    return ::operator new(size, std::nothrow);
}

void* CVekObj::operator new[](std::size_t size) noexcept
{
    return ::operator new(size, std::nothrow);
}

void CVekObj::operator delete(void* block) noexcept
{
    ::operator delete(block);
}

void CVekObj::operator delete[](void* block) noexcept
{
    ::operator delete(block);
}

unsigned CVekArray::grownCapacity(unsigned capacity, std::size_t wanted)
{
    if (wanted > INT_MAX)
        return 0;
    std::size_t grown = capacity < 8 ? 8 : capacity;
    while (grown < wanted)
        grown *= 2;
    return static_cast<unsigned>(grown < INT_MAX ? grown : INT_MAX);
}
