#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/geometry/region.h>
#include <vek/objects/outline.h>
#include <vek/objects/sheet.h>
#include <vek/values/tolerance.h>

#include "core/geometry/bent_line.h"
#include "core/geometry/region_cut.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace VEK
{
namespace
{

using detail::Corner;
using detail::Corners;

constexpr int kMostSegments = 10000;
constexpr std::size_t kMostCorners = 1000000;

/// A sheet as an object asks for it: its definition, and what the object says about its size and place.
struct Sheet {
    const CVekDataItem* definition = nullptr;
    double segment = 0.0;   ///< width of a segment, 0 if the profile is not repeated
    double width = 0.0;     ///< where a repeated profile ends
    int segments = 1;       ///< how many begin before the end
    double thickness = 0.0; ///< signed: the second skin lies above the profile's line, or below
    CVekMatrix3d place;

    /// @return false if the sheet cannot be built
    bool read(const CVekDataItem* item)
    {
        CVekArrayTempl<CVekString> stack;
        dataGet(item, L"STACK", stack);
        definition = fsheet_get(stack);
        if (!definition)
            return false;
        dataGet(item, L"S", thickness);
        dataGet(item, L"MTX", place);
        dataGet(definition, L"SEG", segment);
        if (!(thickness >= 0.0 && segment >= 0.0) || !std::isfinite(thickness + segment))
            return false;
        bool down = false;
        dataGet(definition, L"DOWN", down);
        if (down)
            thickness = -thickness;
        if (segment == 0.0)
            return true;
        CVekVertexArray line;
        width = segment;
        if (dataGet(item, L"VL", line) && line.len() > 0)
            width = line[line.len() - 1].end[0] - line[0].start[0];
        const double count = std::ceil(width / segment - 1e-9);
        if (!(count >= 1.0 && count <= kMostSegments))
            return false;
        segments = static_cast<int>(count);
        return true;
    }

    bool isCut() const { return segment > 0.0 && width < segment * segments - kPointTol; }
};

/// The skins of a sheet, and the contours between them.
struct Skins {
    VertexArrays lines;
    CVekVertexArray top, bottom;
};

bool isFinite(const CVekVertexArray& vl)
{
    return std::all_of(vl.begin(), vl.end(), [](const CVekVertex& vertex) {
        return std::isfinite(vertex.bulgLen() + vertex.start.distanceTo(CVekPoint3d::kOrigin));
    });
}

/// A rectangle around the contours that ends at x on the right.
CVekVertexArray leftOf(double x, const VertexArrays& contours)
{
    CVekPoint3d min(x, 0.0, 0.0), max = min, low, high;
    for (const CVekVertexArray& vl : contours)
        if (vl.extents(low, high)) {
            min = p_min(min, low);
            max = p_max(max, high);
        }
    const double room = 1.0 + max[0] - min[0] + max[1] - min[1];
    CVekPoint3dArray corners;
    corners.append({min[0] - room, min[1] - room, 0.0});
    corners.append({x, min[1] - room, 0.0});
    corners.append({x, max[1] + room, 0.0});
    corners.append({min[0] - room, max[1] + room, 0.0});
    return CVekVertexArray().fromPoints(corners, true);
}

VertexArrays listOf(const CVekVertexArray& vl)
{
    VertexArrays list;
    list.append(vl);
    return list;
}

/// Gives lines their thickness and puts the result in its place; no line if one of them cannot be done.
Skins thickened(const Sheet& sheet, VertexArrays lines)
{
    Skins skins;
    if (sheet.isCut()) {
        VertexArrays rest;
        for (const CVekVertexArray& line : lines)
            rest += vl_punch(line, leftOf(sheet.width, listOf(line)), true);
        lines = std::move(rest);
    }
    for (CVekVertexArray& line : lines) {
        CVekVertexArray other = detail::parallelLine(line, sheet.thickness);
        if (line.len() == 0 || other.len() == 0)
            return {};
        CVekVertexArray contour = sheet.thickness == 0.0 ? line : detail::stripContour(line, other, sheet.thickness);
        contour.transformBy(sheet.place);
        if (sheet.thickness != 0.0 && !g_vl_orient(contour, CVekVector3d::kZAxis)) // mirrored
            contour.revert();
        if (!isFinite(contour))
            return {};
        skins.lines.append(std::move(contour));
        skins.top += (sheet.thickness > 0.0 ? other : line).transformBy(sheet.place);
        skins.bottom += (sheet.thickness > 0.0 ? line : other).transformBy(sheet.place);
    }
    return skins;
}

/// The profile through corners, repeated. Segments of which one begins where the other ends are one sheet.
VertexArrays repeated(const Sheet& sheet, const Corners& corners)
{
    VertexArrays lines;
    if (corners.size() < 2 || corners.size() * static_cast<std::size_t>(sheet.segments) > kMostCorners)
        return lines;
    const bool joined = std::fabs(corners.front().x + sheet.segment - corners.back().x) <= kPointTol &&
                        std::fabs(corners.front().y - corners.back().y) <= kPointTol;
    Corners run;
    for (int i = 0; i < sheet.segments; ++i) {
        if (!run.empty() && joined)
            run.pop_back();
        for (const Corner& corner : corners)
            run.push_back({corner.x + sheet.segment * i, corner.y, corner.radius});
        if (joined && i + 1 < sheet.segments)
            continue;
        lines.append(detail::bentLine(run, sheet.thickness));
        if (lines[lines.len() - 1].len() == 0)
            return {};
        run.clear();
    }
    return lines;
}

/// A trapezium: half a lower flange, web, upper flange, web, half a lower flange.
Corners trapezium(const Sheet& sheet, double height)
{
    double top = 0.0, low = 0.0, radius = 0.0;
    dataGet(sheet.definition, L"TOP", top);
    dataGet(sheet.definition, L"BOT", low);
    dataGet(sheet.definition, L"R", radius);
    const double seg = sheet.segment, first = 0.5 * low, second = 0.5 * (seg - top);
    if (!(top > 0.0 && low > 0.0 && top < seg && low < seg))
        return {};
    return {
        {0, 0},  {first, 0, radius}, {second, height, radius}, {seg - second, height, radius}, {seg - first, 0, radius},
        {seg, 0}};
}

/// A cosine curve from valley to valley, in arcs.
VertexArrays wave(const Sheet& sheet, double height)
{
    constexpr int kSteps = 24; // to a segment: within 1e-4 of the height
    const auto at = [&](int i) {
        const double share = static_cast<double>(i % kSteps) / kSteps;
        return plane::Vec{sheet.segment * (i / kSteps + share),
                          0.5 * height * (1.0 - std::cos(2.0 * std::numbers::pi * share))};
    };
    const auto along = [&](int i) {
        const double angle = 2.0 * std::numbers::pi * (i % kSteps) / kSteps;
        const plane::Vec v{1.0, std::numbers::pi * height / sheet.segment * std::sin(angle)};
        return v * (1.0 / v.abs());
    };
    VertexArrays lines;
    if (!std::isfinite(height))
        return lines;
    CVekVertexArray line;
    for (int i = 0; i < kSteps * sheet.segments; ++i)
        detail::appendArcs(line, at(i), along(i), at(i + 1), along(i + 1));
    lines.append(std::move(line));
    return lines;
}

VertexArrays linesOfFunction(const Sheet& sheet)
{
    CVekString function(L"TRAPEZ");
    double height = 0.0;
    dataGet(sheet.definition, L"FNC", function);
    dataGet(sheet.definition, L"H", height);
    if (sheet.segment == 0.0)
        return {};
    if (function == L"SINE")
        return wave(sheet, height);
    return function == L"TRAPEZ" ? repeated(sheet, trapezium(sheet, height)) : VertexArrays();
}

VertexArrays linesOfPoints(const Sheet& sheet)
{
    CVekPoint3dArray points;
    const bool fillets = dataGet(sheet.definition, L"FILLET_P", points);
    if (!fillets && !dataGet(sheet.definition, L"POINTS", points))
        return {};
    double radius = 0.0;
    dataGet(sheet.definition, L"R", radius);
    Corners corners;
    for (const CVekPoint3d& point : points)
        corners.push_back({point[0], point[1], fillets ? point[2] : radius});
    return repeated(sheet, corners);
}

template <class Lines>
bool buildSkins(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top, CVekVertexArray& bottom,
                Lines linesOf)
{
    Skins skins = whole(Skins(), [&] {
        Sheet sheet;
        return sheet.read(item) ? thickened(sheet, linesOf(sheet)) : Skins();
    });
    lines = std::move(skins.lines);
    top = std::move(skins.top);
    bottom = std::move(skins.bottom);
    return lines.len() > 0;
}

/// The contours under "REGION", in whichever form they are stored.
VertexArrays storedContours(const CVekDataItem* region)
{
    VertexArrays contours;
    Regions regions;
    CVekVertexArray vl;
    if (dataItemGet(region, nullptr, contours))
        return contours;
    if (dataItemGet(region, nullptr, regions)) {
        for (const VertexArrays& one : regions)
            contours += one;
    } else if (!g_outline_region(contours, region, Vek::unitCurrent)) {
        VertexArrays part;
        for (CDataIterator child(region); !child.done(); child.next())
            if (g_outline_region(part, child, Vek::unitCurrent))
                contours += part;
    }
    return contours;
}

/// One of the two sides of a closed contour, from its leftmost to its rightmost point; an open line is the side itself.
CVekVertexArray sideOf(CVekVertexArray vl, bool lower)
{
    if (!vl.isClosed()) {
        if (vl[0].start[0] > vl[vl.len() - 1].end[0])
            vl.revert();
        return vl;
    }
    if (!g_vl_orient(vl, CVekVector3d::kZAxis))
        vl.revert();
    const double up = lower ? -1.0 : 1.0;
    const auto isBefore = [&](int a, int b, double right) { // of two points at one x the one on the wanted side counts
        const CVekPoint3d &p = vl[a].start, &q = vl[b].start;
        return std::fabs(p[0] - q[0]) > kPointTol ? (p[0] - q[0]) * right > 0.0 : (p[1] - q[1]) * up > 0.0;
    };
    int left = 0, right = 0;
    for (int i = 1; i < vl.len(); ++i) {
        left = isBefore(i, left, -1.0) ? i : left;
        right = isBefore(i, right, 1.0) ? i : right;
    }
    CVekVertexArray side; // counter-clockwise, the lower side runs to the right
    side.setNormal(vl.normal());
    for (int i = lower ? left : right, end = lower ? right : left; i != end; i = (i + 1) % vl.len())
        side.append(vl[i]);
    return lower ? side : side.revert();
}

/// The contour between two skins.
CVekVertexArray between(const CVekVertexArray& top, const CVekVertexArray& bottom)
{
    CVekVertexArray contour = sideOf(bottom, false);
    CVekVertexArray back = sideOf(top, true).revert();
    if (contour.len() == 0 || back.len() == 0)
        return {};
    const CVekPoint3d first = contour[0].start;
    contour.append(CVekVertex(contour[contour.len() - 1].end, back[0].start));
    contour += back;
    contour.append(CVekVertex(contour[contour.len() - 1].end, first));
    if (!g_vl_orient(contour, CVekVector3d::kZAxis))
        contour.revert();
    return contour;
}

} // namespace

CVekDataItem* fsheet_get(const CVekArrayTempl<CVekString>& stack)
{
    return whole(static_cast<CVekDataItem*>(nullptr), [&]() -> CVekDataItem* {
        CVekDataKey path(L"*SHEET*");
        for (const CVekString& name : stack)
            path.append(CVekDataKey(name));
        return stack.len() > 0 ? cfg_get(&path) : nullptr;
    });
}

bool fsheet_sid(CDtaFilePointer* file, CVekString& id)
{
    const CVekDataItem* root = fileItem(file, static_cast<const CVekDataKey*>(nullptr));
    if (!root)
        return false;
    CVekString found = whole(CVekString(), [&] {
        CVekString sid;
        CVekArrayTempl<CVekString> stack;
        if (dataGet(root, L"SID", sid))
            return sid;
        dataGet(root, L"STACK", stack);
        const CVekDataItem* definition = fsheet_get(stack);
        const CDataIterator first(definition ? definition->getItem(L"THICK") : nullptr);
        if (!dataGet(definition, L"\\SID", sid) && !first.done())
            sid = *first->getKey();
        return sid;
    });
    if (found.isNull())
        return false;
    id = std::move(found);
    return true;
}

bool fsheet_vll_fnc(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top, CVekVertexArray& bottom)
{
    return buildSkins(item, lines, top, bottom, linesOfFunction);
}

bool fsheet_vll_fillet(const CVekDataItem* item, VertexArrays& lines, CVekVertexArray& top, CVekVertexArray& bottom)
{
    return buildSkins(item, lines, top, bottom, linesOfPoints);
}

bool fsheet_vll_region(const CVekDataItem* item, VertexArrays& lines)
{
    lines = whole(VertexArrays(), [&] {
        Sheet sheet;
        VertexArrays contours;
        if (!sheet.read(item))
            return contours;
        const VertexArrays stored = storedContours(sheet.definition->getItem(L"REGION"));
        for (int i = 0; i < sheet.segments && stored.len() > 0; ++i) {
            VertexArrays copy = stored;
            for (CVekVertexArray& vl : copy)
                vl.move({sheet.segment * i, 0.0, 0.0});
            if (i + 1 < sheet.segments || !sheet.isCut()) {
                contours += copy;
                continue;
            }
            for (const VertexArrays& region : g_vll_regions(copy, 4))
                for (const VertexArrays& part : detail::cutRegion(region, leftOf(sheet.width, region), true))
                    contours += part;
        }
        for (CVekVertexArray& vl : contours)
            if (!isFinite(vl.transformBy(sheet.place)))
                return VertexArrays();
        return contours;
    });
    return lines.len() > 0;
}

bool fsheet_vll_outline(const CVekDataItem* item, const CVekVertexArray& top, const CVekVertexArray& bottom,
                        const CVekArrayTempl<VertexArrays>& regions, VertexArrays& lines)
{
    lines = whole(VertexArrays(), [&] {
        VertexArrays contours;
        if (!item || top.len() == 0 || bottom.len() == 0)
            return contours;
        const CVekVertexArray core = between(top, bottom);
        if (core.len() == 0 || !isFinite(core))
            return contours;
        Regions parts;
        parts.append(listOf(core));
        for (const VertexArrays& layer : regions)
            for (const VertexArrays& region : g_vll_regions(layer, 4)) {
                Regions rest;
                for (const VertexArrays& part : parts)
                    rest += detail::cutRegion(part, region[0], false);
                parts = std::move(rest);
            }
        for (const VertexArrays& part : parts)
            contours += part;
        return contours;
    });
    return lines.len() > 0;
}

bool fsheet_axis_vl(const VertexArrays& lines, double thickness, CVekVertexArray& axis)
{
    axis = CVekVertexArray();
    CVekPoint3d min, max, low, high;
    bool found = false;
    for (const CVekVertexArray& vl : lines)
        if (vl.extents(low, high)) {
            min = found ? p_min(min, low) : low;
            max = found ? p_max(max, high) : high;
            found = true;
        }
    const double beyond = std::max(0.25 * (max[1] - min[1]), 5.0 * std::fabs(thickness));
    if (!found || !(beyond > 0.0) || !std::isfinite(beyond))
        return false;
    const double x = min[0] <= 0.0 && max[0] >= 0.0 ? 0.0 : min[0];
    axis.append(CVekVertex({x, min[1] - beyond, 0.0}, {x, max[1] + beyond, 0.0}));
    return axis.len() > 0;
}

} // namespace VEK
