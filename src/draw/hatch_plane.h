/// Number and region functions shared by both hatches, and the hatch functions for a draw pass.
#pragma once

#include "core/values/stepping.h"
#include "draw/hatch_dashes.h"
#include "draw/hatch_rows.h"

#include <vek/data/pattern.h>
#include <vek/values/linetype.h>
#include <vek/values/matrix.h>
#include <vek/values/polyline.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

namespace VEK::detail
{

/// Truncates towards zero. A value that does not fit into 32 bits becomes the lowest number, as processors do it.
inline std::int32_t cutToInt(double value)
{
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value)
                                                         : std::numeric_limits<std::int32_t>::min();
}

inline bool isFinite(const CVekMatrix3d& m)
{
    double sum = 0.0;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            sum += m[row][column] * 0.0;
    }
    return sum == 0.0;
}

/// Whether every coordinate is finite, and small enough that products of two are finite too.
inline bool isFinite(const CVekArrayTempl<CVekVertexArray>& region)
{
    constexpr double kGreat = 1e150;
    double sum = 0.0;
    for (const CVekVertexArray& contour : region) {
        for (const CVekVertex& v : contour) {
            for (int axis = 0; axis < 3; ++axis)
                sum += (std::fabs(v.start[axis]) + std::fabs(v.end[axis])) * kGreat * 0.0;
            sum += v.bulge * 0.0;
        }
    }
    return sum == 0.0;
}

/// Transforms a region to the hatch plane, where arcs that are not level become chords.
/// @param mtx from the hatch plane to the world
/// @return false for an empty region and if a number is not finite
inline bool toHatchPlane(CVekArrayTempl<CVekVertexArray>& region, const CVekMatrix3d& mtx)
{
    if (!isFinite(mtx))
        return false;
    const CVekMatrix3d toPlane = mtx.inverse();
    const bool moves = !(toPlane == CVekMatrix3d::kIdentity);
    for (CVekVertexArray& contour : region) {
        if (moves)
            contour.transformBy(toPlane);
        if (!plane::isLevel(contour.normal()) && plane::hasArcs(contour))
            contour = plane::inFineChords(contour);
    }
    return region.len() > 0 && isFinite(region);
}

/// The part of the hatch plane that can be seen, as the corners of a parallelogram.
using HatchView = std::array<plane::Vec, 4>;

/// What a hatch is computed with, and what the next one uses again.
struct HatchScratch {
    HatchRows rows;
    HatchDashes dashes;                     ///< of the current family
    std::vector<HatchRows::Stretch> pieces; ///< of the current line
};

/// The lines of a hatch, all their pieces in one block.
class HatchStrokes
{
public:
    HatchScratch scratch;

    int len() const { return static_cast<int>(m_lines.size()); }

    /// Replaces a polyline by a hatch line: its pieces as separate segments.
    void get(int line, CVekVertexArray& pieces) const;

    /// @param normal of the hatch plane
    void clear(const CVekVector3d& normal);
    void add(const CVekPoint3d& origin, const CVekVector3d& along, const HatchRows::Stretch* pieces, int count);

private:
    struct Line {
        CVekPoint3d origin;
        CVekVector3d along;
        std::size_t end; ///< of its pieces
    };

    CVekVector3d m_normal;
    std::vector<Line> m_lines;
    std::vector<HatchRows::Stretch> m_pieces;
};

/// `vek_gdx_image_reg_hatch2` for a caller that knows the pattern and what is visible: lines and dashes wholly outside
/// are left out, and all others are the same as without it.
/// @param region in the hatch plane; its arcs are level
/// @param mtx from the hatch plane to the world
/// @param lines those that the host has for the name
/// @param view null for all
/// @return false if lines or pieces are missing
bool hatchPattern(const CVekArrayTempl<CVekVertexArray>& region, const CVekMatrix3d& mtx, const CHatchProp& hatch,
                  const VekPatternLines& lines, const HatchView* view, HatchStrokes& strokes);

/// `vek_gdx_pattern_test` without a copy of the region and for a caller that knows the pattern.
bool patternTest(const CVekArrayTempl<CVekVertexArray>& region, const CHatchProp& hatch, const VekPatternLines& lines,
                 const CVekMatrix3d& mtx);

} // namespace VEK::detail
