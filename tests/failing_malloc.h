/// @file
/// Memory that ends for the library's own allocations, too: the program is linked with `--wrap=malloc,--wrap=realloc`,
/// so that the linker leads them here.
#pragma once

#include "failing_memory.h"

extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __real_realloc(void* block, std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size)
{
    return FailingMemory::refuses() ? nullptr : __real_malloc(size);
}
extern "C" void* __wrap_realloc(void* block, std::size_t size)
{
    return FailingMemory::refuses() ? nullptr : __real_realloc(block, size);
}

inline const bool kLedFromMalloc = FailingMemory::ledFromMalloc = true;
