/// @file
/// A region prepared for many queries.
#pragma once

#include <vek/values/polyline.h>

#include <memory>

namespace VEK
{

namespace plane
{
class PreparedRegion;
}

/// A region, or a single contour, prepared once for many cuts and queries; the rules are those of
/// `<vek/geometry/region.h>`.
///
/// Preparing n segments takes time in n log n. A query then costs about as many steps as the way from the previously
/// queried place crosses segments, a cut as many as the polyline crosses, and neither visits the whole region.
/// `vl_punch`, `vl_punch_reg` and `g_vll_pt_inside` prepare one for a single use, so it pays off from the second query
/// on.
///
/// It keeps no reference to the polylines it was made from. It reuses scratch memory between calls, so only one thread
/// at a time may use it. When memory runs out it contains nothing.
class VEK_API CPreparedRegion
{
public:
    /// @param region element 0 is the outer contour, the others are holes in it
    explicit CPreparedRegion(const CVekArrayTempl<CVekVertexArray>& region);
    explicit CPreparedRegion(const CVekVertexArray& contour);
    ~CPreparedRegion();
    CPreparedRegion(CPreparedRegion&& other) noexcept;
    CPreparedRegion& operator=(CPreparedRegion&& other) noexcept;

    /// Whether a point lies in the region or on its boundary; z is ignored.
    bool isInside(const CVekPoint3d& point);

    /// The parts of a polyline inside the region, or the rest of it, as `vl_punch_reg` gives them.
    CVekArrayTempl<CVekVertexArray> punch(const CVekVertexArray& vl, bool inside);

private:
    std::unique_ptr<plane::PreparedRegion> m_region;
};

} // namespace VEK
