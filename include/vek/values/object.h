/// @file
/// The root of all value classes.
#pragma once

#include <vek/values/memory.h>

#include <cstddef>
#include <new>

/// Root class without state. It gives every value a virtual destructor, and allocation functions that live inside
/// the library, so that what one module allocates another one may delete.
///
/// The allocation functions never throw: a `new` expression whose memory is not to be had gives null, and the shortage
/// counts; see `<vek/values/memory.h>`.
class VEK_API CVekObj
{
public:
    constexpr CVekObj() = default;
    constexpr CVekObj(const CVekObj&) = default;
    constexpr CVekObj& operator=(const CVekObj&) = default;
    constexpr virtual ~CVekObj() = default;

    static void* operator new(std::size_t size) noexcept;
    static void* operator new[](std::size_t size) noexcept;
    static void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return operator new(size); }
    static void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return operator new[](size); }
    static void* operator new(std::size_t, void* place) noexcept { return place; }
    static void operator delete(void* block) noexcept;
    static void operator delete[](void* block) noexcept;
    static void operator delete(void*, void*) noexcept {}

    /// Changes the size of a block of `operator new[]`, which may move with its bytes; null makes a new one.
    /// @return null, with the block as it was, when the memory is not to be had
    static void* resize(void* block, std::size_t size) noexcept;
};

/// A scope object: construct it before a block of data or geometry calls and let it go after them. It carries no
/// state; it marks for a reader that failures inside the block are ordinary results.
class VEK_API CVekErrorHandler : public CVekObj
{
public:
    CVekErrorHandler() {}
    ~CVekErrorHandler() override {}
};
