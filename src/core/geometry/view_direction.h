/// The table of named views.
#pragma once

#include <vek/values/point.h>

namespace VEK::detail
{

/// The direction of a named view from the drawing to the viewer, not of length 1; the null vector for any other name.
CVekVector3d viewDirection(const wchar_t* name);

} // namespace VEK::detail
