/// @file
/// The icon of the application.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// The number of the library's icon for the application whose id is in the configuration at "*APPL*", in any case; 2000
/// for one without an icon of its own.
VEK_API int appIconId();

} // namespace VEK
