/// @file
/// The module that contains this code.
#pragma once

#include <windows.h>

namespace VEK::platform
{

/// The DLL, or the program that this is linked into, which has the library's resources.
HINSTANCE ownModule();

} // namespace VEK::platform
