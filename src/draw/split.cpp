#include "core/values/whole.h"
#include "draw/dashes.h"
#include "draw/split_arc.h"

#include <vek/draw/split.h>
#include <vek/geometry.h>

void VEK::detail::split(const CVekVertexArray& vl, CVekVertexArray& result)
{
    result.setLogicalLength(0);
    result.reserve(vl.len());
    result.setNormal(vl.normal());
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

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_split(const CVekArrayTempl<CVekVertexArray>& reg)
{
    return VEK::whole(CVekArrayTempl<CVekVertexArray>(), [&] {
        CVekArrayTempl<CVekVertexArray> result;
        result.reserve(reg.len());
        for (const CVekVertexArray& vl : reg)
            result.append(vek_gdx_image_vl_split(vl));
        return result;
    });
}

CVekVertexArray vek_gdx_image_vl_split(const CVekVertexArray& vl)
{
    return VEK::whole(CVekVertexArray(), [&] {
        CVekVertexArray result;
        VEK::detail::split(vl, result);
        return result;
    });
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the pattern over by value
bool vek_gdx_image_vl_measure(CVekVertexArray& vl, CVekArrayTempl<double> dashes, int mode)
{
    if (dashes.len() < 2)
        return false;
    const unsigned long shortages = VEK::memoryShortages();
    const CVekArrayTempl<CVekVertexArray> runs = VEK::vl_to_vll(vl);
    if (VEK::memoryShortages() != shortages)
        return false;
    const bool complete = VEK::whole(false, [&] {
        vl.setLogicalLength(0);
        VEK::detail::Dashes pattern;
        pattern.assign(dashes, mode == 1);
        pattern.begin(vl.normal());
        const auto all = [](const CVekVertexArray&) { return VEK::detail::Stations(); };
        const auto append = [&](const CVekVertex& piece) { vl.append(piece); };
        for (const CVekVertexArray& run : runs) {
            if (mode == 0) {
                pattern.layRun(run, append);
                continue;
            }
            for (const CVekVertex& vertex : run) {
                CVekVertex piece = vertex;
                pattern.laySegment(vertex, all, [&](const CVekPoint3d& start, const CVekPoint3d& end, double bulge) {
                    append(piece.set(start, end, bulge));
                });
            }
        }
        return true;
    });
    if (!complete) {
        vl.setLogicalLength(0); // keeps the memory of the old content
        for (const CVekVertexArray& run : runs)
            vl.CVekArrayTempl<CVekVertex>::operator+=(run);
    }
    return complete;
}
