/// @file
/// The guard of everything that hands out, stores or reports a whole.
#pragma once

#include <vek/values/memory.h>

#include <new>
#include <stdexcept>
#include <utility>

namespace VEK
{

/// Runs a job that makes its result by itself and changes nothing else: the result goes where it belongs when it is
/// there as a whole. A failure is so without traces, for whatever reason the count rose.
/// @param failure the result when memory was short meanwhile; it is prepared before, and its move needs no memory
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
    } catch (const std::length_error&) { // more than a standard container ever holds
        memoryShort();
    }
    return failure;
}

} // namespace VEK
