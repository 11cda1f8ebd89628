// Ellipses given by two conjugate semi-diameters.
#pragma once

#include <vek/surfaces/surface.h>

namespace VEK
{

/// The point of an arc at a parameter, 0 at its start.
SurfacePoint arcPoint(const SurfaceArc& arc, double parameter);

/// The semi-axes of an arc's ellipse.
struct EllipseAxes {
    double longer = 0.0;
    double shorter = 0.0;
    double turn = 0.0;      ///< direction of the longer one from x towards y, in radians; 0 for a circle
    double parameter = 0.0; ///< parameter of the longer one on the arc
};

EllipseAxes axesOf(const SurfaceArc& arc);

} // namespace VEK
