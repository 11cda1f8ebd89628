/// @file
/// The module that this code stands in.
#pragma once

#include <windows.h>

namespace VEK::platform
{

/// The DLL, or the program that it is linked into: where the library's own resources are.
HINSTANCE ownModule();

} // namespace VEK::platform
