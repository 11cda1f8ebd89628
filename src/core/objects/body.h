/// @file
/// Elements as bodies and lines.
#pragma once

#include <vek/data/item.h>
#include <vek/solid.h>

namespace VEK::objects
{

/// What the definition of an element describes, in the coordinates and the unit of the element.
struct Part {
    CVek_Solid solid; ///< bodies, all of element number 0
    VertexArrays lines;
};

/// How an element is to be built.
struct BuildRules {
    Vek::lUnit unit = Vek::unitNone;    ///< of the element
    const CVekDataItem* cuts = nullptr; ///< directory of planes that cut the ends of extruded bodies, or null
    bool drills = true;                 ///< with the holes of the element's own drills
    bool holesAreBodies = true;         ///< a drill that is an element of its own is built as the body of its hole
    int depth = 0;                      ///< of definitions within definitions
};

/// Builds an element, or a definition that stands alone.
/// @param element has "TYPE" and its definition in "BT"; without "BT" it is itself the definition
/// @return false if there is neither a body nor a line
bool build(Part& part, const CVekDataItem* element, const BuildRules& rules);

} // namespace VEK::objects
