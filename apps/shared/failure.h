/// @file
/// Early exit of a command.
#pragma once

#include <vek/values/memory.h>

#include <stdexcept>

/// Ends the program with status 2. The text is one line that names the file, or the option, and the cause.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Ends the program if memory ran out, since something that it has built may be incomplete.
inline void checkMemory()
{
    if (VEK::memoryShortages() > 0)
        throw Failure("memory does not suffice");
}
