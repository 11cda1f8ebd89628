/// @file
/// The guard of everything that returns, stores or reports a complete result.
#pragma once

#include <vek/values/memory.h>

#include <new>
#include <stdexcept>
#include <utility>

namespace VEK
{

/// Runs a job that computes its result and changes nothing else; the result is passed on only if it is complete. So a
/// failure has no effects, for whatever reason the count rose.
/// @param failure the result if an allocation failed meanwhile; it is prepared beforehand, and moving it must not
/// allocate
template <class Result, class Job>
Result whole(Result failure, Job&& job)
{
    const unsigned long before = memoryShortages();
    try {
        Result result = std::forward<Job>(job)();
        if (memoryShortages() == before)
            return result;
    } catch (const std::bad_alloc&) {
        memoryShort();
    } catch (const std::length_error&) { // more than a standard container can hold
        memoryShort();
    }
    return failure;
}

} // namespace VEK
