// Polygons taken out of the clip. A polygon with such holes strictly inside is one even-odd figure, which every reader
// of a file understands, while several draw clips made of polygons incorrectly.
#pragma once

#include <vek/surfaces/surface.h>

#include <vector>

namespace VEK
{

class Holes
{
public:
    /// Adds a polygon; one of fewer than three points is ignored.
    void add(const SurfacePoint* points, int count);
    void clear();

    bool empty() const { return m_ends.empty(); }
    int count() const { return static_cast<int>(m_ends.size()); }
    const SurfacePoint* points(int hole) const { return m_points.data() + begin(hole); }
    int pointCount(int hole) const { return m_ends[static_cast<std::size_t>(hole)] - begin(hole); }

    /// Whether every hole lies inside the polygon, whose border it may touch, and apart from the other holes. False if
    /// that is too much work for a quick answer.
    bool liesIn(const SurfacePoint* polygon, int count) const;

    /// Gives all holes the winding opposite to the polygon's, so that readers which know only the winding rule leave
    /// them open too.
    void windAgainst(const SurfacePoint* polygon, int count);

private:
    struct Box {
        double left, top, right, bottom;
    };

    int begin(int hole) const { return hole == 0 ? 0 : m_ends[static_cast<std::size_t>(hole) - 1]; }

    std::vector<SurfacePoint> m_points;
    std::vector<int> m_ends;
    std::vector<Box> m_boxes;
};

} // namespace VEK
