/// @file
/// How finely an arc is split for a device of straight lines.
#pragma once

#include "core/values/stepping.h"

namespace VEK::detail
{

/// Replaces a polyline by another one with its arcs split.
void split(const CVekVertexArray& vl, CVekVertexArray& result);

/// The number of equal chords for an arc: within 0.01 for one shorter than 4.0, otherwise within 0.05.
inline int splitCount(const plane::SpaceArc& arc)
{
    constexpr double kShortArc = 4.0;
    return arc.chords(arc.length * arc.bend.stretch() < kShortArc ? 0.01 : 0.05);
}

} // namespace VEK::detail
