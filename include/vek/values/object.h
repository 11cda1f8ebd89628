/// @file
/// The root of all value classes.
#pragma once

#include <vek/values/memory.h>

#include <cstddef>
#include <new>

/// Root class without state. It gives every value a virtual destructor, and allocation functions inside the library, so
/// that one module may delete what another one allocated.
///
/// The allocation functions never throw: when memory runs out, a `new` expression gives null and the failure is
/// counted; see `<vek/values/memory.h>`.
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

    /// Changes the size of a block from `operator new[]`, which may move, keeping its contents; null allocates a new
    /// one.
    /// @return null, with the block as it was, when memory runs out
    static void* resize(void* block, std::size_t size) noexcept;
};

/// A scope object, constructed before a block of data or geometry calls and destroyed after it. It has no state; it
/// tells the reader that failures inside the block are ordinary results.
class VEK_API CVekErrorHandler : public CVekObj
{
public:
    CVekErrorHandler() {}
    ~CVekErrorHandler() override {}
};
