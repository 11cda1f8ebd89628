/// @file
/// The leaf types and their kinds.
#pragma once

#include <vek/data/item.h>

/// Calls X(type, kind) for every type that a leaf holds as a separate object.
#define VEK_OBJECT_KINDS(X)                                                                                            \
    X(CVekString, text)                                                                                                \
    X(CVekPoint3d, point)                                                                                              \
    X(CVekPoint3dArray, points)                                                                                        \
    X(CVekMatrix3d, matrix)                                                                                            \
    X(CVekVertexArray, polyline)                                                                                       \
    X(VEK::VertexArrays, polylines)                                                                                    \
    X(VEK::Regions, regions)                                                                                           \
    X(CVekArrayTempl<int>, integers)                                                                                   \
    X(CVekArrayTempl<CVekString>, texts)                                                                               \
    X(CVekColor, color)                                                                                                \
    X(VEK::CHatchProp, hatch)

/// The same for those stored in the item itself.
#define VEK_SCALAR_KINDS(X)                                                                                            \
    X(bool, boolean)                                                                                                   \
    X(int, integer)                                                                                                    \
    X(unsigned long, unsignedLong)                                                                                     \
    X(double, real)                                                                                                    \
    X(Vek::lUnit, unit)
