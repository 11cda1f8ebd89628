/// @file
/// Where an item stands, and the units of its lengths.
#pragma once

#include <vek/data/item.h>

namespace VEK::objects
{

/// The length of one unit in another; 1.0 if one of them has no size.
double unitFactor(Vek::lUnit from, Vek::lUnit to);

CVekMatrix3d scaling(double factor);

} // namespace VEK::objects
