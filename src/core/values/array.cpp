#include <vek/values/array.h>

#include <atomic>
#include <climits>
#include <cstdlib>

namespace
{

constinit std::atomic<unsigned long> shortages{0};

void* counted(void* block)
{
    if (!block)
        VEK::memoryShort();
    return block;
}

} // namespace

unsigned long VEK::memoryShortages() noexcept
{
    return shortages.load(std::memory_order_relaxed);
}

void VEK::memoryShort() noexcept
{
    shortages.fetch_add(1, std::memory_order_relaxed);
}

void* CVekObj::operator new(std::size_t size) noexcept
{
    return counted(std::malloc(size > 0 ? size : 1));
}

void* CVekObj::operator new[](std::size_t size) noexcept
{
    return counted(std::malloc(size > 0 ? size : 1));
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
    return counted(std::realloc(block, size > 0 ? size : 1));
}

unsigned CVekArray::grownCapacity(unsigned capacity, std::size_t wanted)
{
    if (wanted > INT_MAX) {
        VEK::memoryShort();
        return 0;
    }
    std::size_t grown = capacity < 8 ? 8 : capacity;
    while (grown < wanted)
        grown *= 2;
    return static_cast<unsigned>(grown < INT_MAX ? grown : INT_MAX);
}
