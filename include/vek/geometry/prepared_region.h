/// @file
/// A region that is asked many times.
#pragma once

#include <vek/values/polyline.h>

#include <memory>

namespace VEK
{

namespace plane
{
class PreparedRegion;
}

/// A region, or a single contour, made ready once for many cuts and questions; the rules are those of
/// `<vek/geometry/region.h>`.
///
/// To make it ready takes time as its segments do, with the logarithm of their number. A question then costs about what
/// the way to the place asked before crosses, a cut what the polyline crosses, and neither looks at the whole region.
/// `vl_punch`, `vl_punch_reg` and `g_vll_pt_inside` make one for a single use: worth having for the second question on.
///
/// It keeps nothing of the polylines it was made of. It works with memory of its own from one call to the next, so one
/// thread at a time may ask it. Where memory ends it contains nothing.
class VEK_API CPreparedRegion
{
public:
    /// @param region element 0 is the outer contour, the others are holes in it
    explicit CPreparedRegion(const CVekArrayTempl<CVekVertexArray>& region);
    explicit CPreparedRegion(const CVekVertexArray& contour);
    ~CPreparedRegion();
    CPreparedRegion(CPreparedRegion&& other) noexcept;
    CPreparedRegion& operator=(CPreparedRegion&& other) noexcept;

    /// Whether a point lies in the region or on its boundary; z is not looked at.
    bool isInside(const CVekPoint3d& point);

    /// The parts of a polyline inside the region, or the rest of it, as `vl_punch_reg` gives them.
    CVekArrayTempl<CVekVertexArray> punch(const CVekVertexArray& vl, bool inside);

private:
    std::unique_ptr<plane::PreparedRegion> m_region;
};

} // namespace VEK
