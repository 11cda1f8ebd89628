// Ellipses given by two conjugate half diameters.
#pragma once

#include <vek/surfaces/surface.h>

namespace VEK
{

/// The point of an arc at a parameter, 0 at its start.
SurfacePoint arcPoint(const SurfaceArc& arc, double parameter);

/// The half axes of an arc's ellipse.
struct EllipseAxes {
    double longer = 0.0;
    double shorter = 0.0;
    double turn = 0.0;      ///< direction of the longer one from x towards y, in radians; 0 for a circle
    double parameter = 0.0; ///< where on the arc the longer one stands
};

EllipseAxes axesOf(const SurfaceArc& arc);

} // namespace VEK
