/// @file
/// The walk through an assembly and its sub-assemblies.
#pragma once

#include "core/objects/definition.h"

#include <functional>

namespace VEK::objects
{

/// One element that is not hidden.
struct Visit {
    CVekDataItem* object;         ///< what it belongs to
    CVekDataItem* element;        ///< its own directory there
    const Layers& layers;         ///< its data
    const CVekMatrix3d& assembly; ///< from the object's unit and coordinates to those of the whole
    int place;                    ///< of the object in the walk
    bool repeats;                 ///< whether other sub-assemblies may be of the same object
};

/// Visits the elements of an object, by name, and then those of its sub-assemblies.
/// @param status item with status codes, or null
/// @return false if there are too many
bool walk(CVekDataItem* object, const CVekDataItem* status, const CVekMatrix3d& mtx,
          const std::function<void(const Visit&)>& found);

} // namespace VEK::objects
