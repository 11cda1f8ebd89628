#include "core/values/whole.h"

#include <vek/geometry/polyline.h>

namespace VEK
{

CVekPoint3dArray vl_extmax(const CVekVertexArray& vl, double angle)
{
    return whole(CVekPoint3dArray(), [&] {
        CVekPoint3d min, max;
        if (angle == 0.0) {
            if (!vl.extents(min, max))
                return CVekPoint3dArray();
        } else {
            CVekMatrix3d turn;
            turn.setToRotation(-angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
            if (!vl.getTransformedCopy(turn).extents(min, max))
                return CVekPoint3dArray();
            turn.setToRotation(angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
            min *= turn;
            max *= turn;
        }
        return CVekPoint3dArray{min, max};
    });
}

CVekVertexArray vl_extrect(const CVekVertexArray& vl, double offset)
{
    CVekVertexArray rectangle;
    CVekPoint3d min, max;
    if (!vl.extents(min, max))
        return rectangle;
    const CVekVector3d grow(offset, offset, 0.0);
    min -= grow;
    max += grow;
    if (!(min[0] <= max[0] && min[1] <= max[1]))
        return rectangle;
    const CVekPoint3d corners[] = {min, {max[0], min[1], min[2]}, {max[0], max[1], min[2]}, {min[0], max[1], min[2]}};
    if (!rectangle.reserve(4))
        return rectangle;
    for (int i = 0; i < 4; ++i)
        rectangle.append(CVekVertex(corners[i], corners[(i + 1) % 4]));
    return rectangle;
}

} // namespace VEK
