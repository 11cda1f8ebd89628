/// @file
/// Solids and their projection.
#pragma once

#include <vek/values/polyline.h>

using VEK_MODELER_TYPE = int;
inline constexpr VEK_MODELER_TYPE vekModelerFaces = 1; ///< the kernel of this library

/// Bodies of planar, cylindrical and conical faces. They are added one after the other, each with a number of the
/// caller's that every polyline of a projection brings back (`CVekVertexArrayEx::element`).
class VEK_API CVek_Solid : public CVekObj
{
public:
    CVek_Solid();
    CVek_Solid(const CVek_Solid&) = delete;
    CVek_Solid& operator=(const CVek_Solid&) = delete;
    ~CVek_Solid() override;

    virtual bool solid();
    virtual bool project(const CVekMatrix3d& view, bool together, CVekArrayTempl<CVekVertexArrayEx>& visible,
                         CVekArrayTempl<CVekVertexArrayEx>& hidden, VEK_MODELER_TYPE modeler);

private:
    struct Rep;
    Rep* m_rep = nullptr;
};
