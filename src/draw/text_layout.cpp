#include "core/values/whole.h"

#include <vek/draw/font.h>
#include <vek/draw/text.h>
#include <vek/geometry.h>

#include <algorithm>
#include <cmath>

namespace VEK
{

namespace
{

using Region = CVekArrayTempl<CVekVertexArray>;
using RegionList = CVekArrayTempl<Region>;

constexpr double kGap = 0.5;     // between the ink of a glyph and the origin of the next one
constexpr double kLastGap = 0.3; // the part of the gap after the last glyph that does not count

struct Size {
    double width = 0.0;
    double height = 0.0;
};

/// The shift of an alignment; false for an unknown code.
bool shiftOf(const CVekString& align, Size size, CVekVector3d& shift)
{
    static constexpr struct {
        const wchar_t* code;
        double width, height;
    } kShifts[] = {{L"TL", 0.0, 1.0}, {L"TC", 0.5, 1.0}, {L"TR", 1.0, 1.0}, {L"CL", 0.0, 0.5},
                   {L"CC", 0.5, 0.5}, {L"CR", 1.0, 0.5}, {L"BC", 0.5, 0.0}, {L"BR", 1.0, 0.0}};
    for (const auto& row : kShifts) {
        if (align == row.code) {
            shift.set(-row.width * size.width, -row.height * size.height, 0.0);
            return true;
        }
    }
    return false;
}

/// Places the glyphs in a row and returns the size of the whole.
Size setGlyphs(const wchar_t* text, const CVekVector3d& start, RegionList& regl)
{
    double x = 0.0;
    double height = 0.0;
    for (const wchar_t* c = text; *c; ++c) {
        RegionList glyph = get_ascii_from_map(*c);
        if (glyph.len() == 0)
            continue;
        CVekPoint3d glyphMin;
        CVekPoint3d glyphMax;
        const CVekVector3d offset = start + CVekVector3d(x, 0.0, 0.0);
        for (int r = 0; r < glyph.len(); ++r) {
            Region& region = glyph[r];
            regionOrient(region, CVekVector3d::kZAxis);
            for (CVekVertexArray& contour : region)
                contour.move(offset);
            CVekPoint3d min;
            CVekPoint3d max;
            region[0].extents(min, max);
            glyphMin = r == 0 ? min : p_min(glyphMin, min);
            glyphMax = r == 0 ? max : p_max(glyphMax, max);
        }
        x += std::fabs(glyphMin[0] - glyphMax[0]) + kGap;
        height = std::max(height, glyphMax[1]);
        regl += std::move(glyph);
    }
    return {x - kLastGap, height};
}

RegionList layOutText(const wchar_t* text, const wchar_t* align, const CVekPoint3d& point)
{
    RegionList regl;
    const Size size = setGlyphs(text ? text : L"", point.asVector(), regl);
    CVekVector3d shift;
    if (!shiftOf(align, size, shift))
        return regl;
    const int count = regl.len();
    for (Region& region : regl) {
        const int reached = count <= kTextPadLimit ? count : std::min(count, region.len());
        for (int k = 0; k < reached; ++k)
            region[k].move(shift);
    }
    return regl;
}

} // namespace

RegionList textRegions(const wchar_t* text, const wchar_t* align, const CVekPoint3d& point)
{
    return whole(RegionList(), [&] { return layOutText(text, align, point); });
}

} // namespace VEK
