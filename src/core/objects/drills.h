/// @file
/// The drills of elements.
#pragma once

#include <vek/objects/projection.h>

#include "core/objects/section.h"

namespace VEK::objects
{

/// A drill as its definition tells it. It runs along +z from the origin, in the unit of the element.
struct Drill {
    double diameter = 0.0;
    double depth = 0.0;  ///< 0: through everything
    double length = 0.0; ///< of the hole as a body
    double sinkDiameter = 0.0;
    double sinkDepth = 0.0;
    bool isConical = false; ///< of a countersink

    /// @return false without a diameter above 0
    bool read(const CVekDataItem* bt);

    /// The half section of the hole as a body of revolution: x from the axis, y along it.
    CVekVertexArray profile() const;
};

/// The holes of one drill of an element: rows of equal steps.
struct Pattern {
    int counts[2] = {1, 1};
    CVekVector3d steps[2];
    CVekMatrix3d first; ///< the first hole, in the coordinates of the element

    /// @param fold a folded sheet, to whose faces "PLANE" refers, or null
    /// @return false for a drill without holes and one with too many
    bool read(const CVekDataItem* drill, const Fold* fold);

    int count() const { return counts[0] * counts[1]; }

    CVekMatrix3d hole(int index) const;
};

/// Drills the holes of a definition into the bodies of a solid in the coordinates of the element.
void drillAll(CVek_Solid& solid, const CVekDataItem* bt, const Fold* fold);

} // namespace VEK::objects
