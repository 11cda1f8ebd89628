#include <vek/values/array.h>

#include <climits>
#include <cstdlib>

void* CVekObj::operator new(std::size_t size) noexcept
{
    return std::malloc(size > 0 ? size : 1);
}

void* CVekObj::operator new[](std::size_t size) noexcept
{
    return std::malloc(size > 0 ? size : 1);
}

void CVekObj::operator delete(void* block) noexcept
{
    std::free(block);
}

void CVekObj::operator delete[](void* block) noexcept
{
    std::free(block);
}

void* CVekObj::resize(void* block, std::size_t size) noexcept
{
    return std::realloc(block, size > 0 ? size : 1);
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
