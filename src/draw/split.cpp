#include "draw/split_arc.h"

#include <vek/draw/split.h>
#include <vek/geometry.h>
#include <vek/values/linetype.h>
#include <vek/values/units.h>

#include <algorithm>
#include <cmath>
#include <deque>

namespace
{

constexpr double kMeasuredArcChord = 0.1;
constexpr double kLongDash = 0.21;
constexpr double kDotLength = 0.2; // millimetres
constexpr double kDotShare = 1.0;  // what a dot counts in the length of its pattern, though its stroke is shorter

void appendSplit(CVekVertexArray& result, const CVekVertexArray& vl)
{
    for (const CVekVertex& vertex : vl) {
        if (vertex.bulge == 0.0) {
            result.append(vertex);
            continue;
        }
        const VEK::plane::SpaceArc arc(vertex, vl.normal());
        CVekVertex chord = vertex;
        chord.bulge = 0.0;
        arc.step(VEK::detail::splitCount(arc), [&](const CVekPoint3d& end) {
            chord.end = end;
            result.append(chord);
            chord.start = end;
        });
    }
}

/// Turns the pattern so that a segment begins and ends in the middle of a long dash. Rotation and index move together,
/// so that a round looks two places further on: patterns are drawn as they have always been, which includes those
/// whose long dash this search misses.
void arrange(CVekArrayTempl<double>& dashes)
{
    std::deque<double> ring(dashes.begin(), dashes.end());
    for (std::size_t i = 0; i < ring.size(); ++i) {
        if (ring[i] > kLongDash) {
            if (i + 1 == ring.size())
                ring.push_back(0.0); // looking behind the last entry makes one
            if (ring[i + 1] < 0.0) {
                ring.front() *= 0.5;
                ring.push_back(ring.front());
                break;
            }
        }
        ring.push_back(ring.front());
        ring.pop_front();
    }
    dashes.setLogicalLength(0);
    for (const double dash : ring)
        dashes.append(dash);
}

/// Gives dots their stroke and sums the pattern up.
double patternLength(CVekArrayTempl<double>& dashes)
{
    const double dot = VEK::acadUnitCv(kDotLength, Vek::unitMillimetre, Vek::unitCurrent);
    double total = 0.0;
    for (double& dash : dashes) {
        total += dash == 0.0 ? kDotShare : std::fabs(dash);
        if (dash == 0.0)
            dash = dot;
    }
    return total;
}

/// The pattern with its gaps grown so that whole patterns fill the length.
CVekArrayTempl<double> stretched(const CVekArrayTempl<double>& dashes, double length, double total)
{
    CVekArrayTempl<double> result = dashes;
    const auto gaps = std::count_if(dashes.begin(), dashes.end(), [](double dash) { return dash < 0.0; });
    const double count = std::trunc(length / total);
    const double more = std::fabs((length - count * total) / (static_cast<double>(gaps) * count));
    for (double& dash : result) {
        if (dash < 0.0)
            dash -= more;
    }
    return result;
}

void appendDashes(CVekVertexArray& result, CVekVertexArray&& run, const CVekArrayTempl<double>& dashes)
{
    for (const CVekVertexArray& dash : VEK::vl_measure(std::move(run), 1.0, CVekLineParm(dashes)))
        result += dash;
}

void measureSegment(CVekVertexArray& result, CVekVertex& vertex, const CVekArrayTempl<double>& dashes, double total)
{
    const double length = vertex.bulgLen();
    if (total > 0.0 && length - total <= 0.0) {
        result.append(vertex);
        return;
    }
    CVekVertexArray piece(VEK::g_vx_xy(vertex));
    if (vertex.bulge != 0.0)
        piece = VEK::g_vl_expl(piece, VEK::vx_split_dif(vertex, kMeasuredArcChord));
    appendDashes(result, std::move(piece), total > 0.0 ? stretched(dashes, length, total) : dashes);
}

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg)
{
    CVekArrayTempl<CVekVertexArray> result;
    result.reserve(reg.len());
    for (const CVekVertexArray& vl : reg)
        result.append(vek_gdx_image_vl_split(vl));
    return result;
}

CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl)
{
    CVekVertexArray result;
    result.reserve(vl.len());
    result.setNormal(vl.normal());
    appendSplit(result, vl);
    return result;
}

bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode)
{
    if (dashes.len() < 2)
        return false;
    CVekArrayTempl<CVekVertexArray> runs = VEK::vl_to_vll(vl);
    if (mode == 1)
        arrange(dashes);
    const double total = patternLength(dashes);
    vl.setLogicalLength(0);
    for (CVekVertexArray& run : runs) {
        if (mode != 0) {
            for (CVekVertex& vertex : run)
                measureSegment(vl, vertex, dashes, total);
        } else {
            for (CVekVertex& vertex : run)
                VEK::g_vx_xy(vertex);
            appendDashes(vl, std::move(run), dashes);
        }
    }
    return true;
}
