/// @file
/// Standard parts by their number and size.
#pragma once

#include <vek/data/item.h>

namespace VEK::objects
{

/// What a standard part looks like. Its +z axis points into the material: a head, a nut and a washer lie on its -z
/// side, a shank on its +z side. Lengths are in the unit of the part.
struct StandardPart {
    enum Shape : int {
        none,
        hexagonBolt,     ///< hexagon head and shank
        cylinderBolt,    ///< cylindrical head and shank
        countersunkBolt, ///< conical head, flush with the surface, and shank
        flatBolt,        ///< flat round head and shank, as of a rivet
        rod,             ///< a shank alone
        nut,             ///< hexagon with a hole
        washer,          ///< disc with a hole
    };

    Shape shape = none;
    double diameter = 0.0; ///< of the thread, or of the rivet
    double width = 0.0;    ///< across flats, or outer diameter
    double height = 0.0;   ///< of the head, the nut or the washer
    double hole = 0.0;     ///< diameter of the hole of a nut or washer
    double length = 0.0;   ///< of the shank
};

/// Reads "DIN", "D" and "L" of a definition. The number is the last one in the text: "DIN 933", "ISO 4017", "933". An
/// unknown number is a rod.
/// @param unit that of the lengths; without a size they are taken as millimetres
/// @return of shape `none` without a diameter above 0, and without a length where there is a shank
StandardPart standardPart(const CVekDataItem* bt, Vek::lUnit unit);

} // namespace VEK::objects
