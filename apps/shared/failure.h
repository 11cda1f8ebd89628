/// @file
/// How a command ends early.
#pragma once

#include <stdexcept>

/// Ends the program with status 2. The text is one line that names the file, or the option, and the cause.
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
