#include "sample.h"

#include "lettering.h"
#include "sheet.h"

#include <vek/data.h>
#include <vek/pictures.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr double kLines = 20.0; // across a sample, of all families together, without gaps
constexpr double kRows = 14.0;  // at most, of the densest family

/// The fraction of a family's lines that is drawn.
double drawnShare(const CVekArrayTempl<double>& family)
{
    double drawn = 0.0, whole = 0.0;
    for (int i = 5; i < family.len(); ++i) {
        drawn += std::max(family[i], 0.0);
        whole += std::fabs(family[i]);
    }
    return whole > 0.0 ? drawn / whole : 1.0;
}

/// The side of a sample in pattern units, so that a good number of lines is visible.
double sideOf(const VEK::CHatchPattern& pattern)
{
    double lines = 0.0, rows = 0.0; // per unit
    for (const CVekArrayTempl<double>& family : pattern.lines) {
        const double distance = std::fabs(family[4]);
        if (distance > 0.0) {
            lines += drawnShare(family) / distance;
            rows = std::max(rows, 1.0 / distance);
        }
    }
    const double side = std::min(kLines / lines, kRows / rows);
    return std::isfinite(side) ? side : 1.0;
}

} // namespace

void addSample(CVekGDX& gdx, const CVekArrayTempl<int>& stack, const VEK::CHatchPattern& pattern,
               const SampleLook& look, const CVekPoint3d& corner)
{
    const double side = sideOf(pattern);
    CVekPoint3dArray corners;
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, {side, 0.0}, {side, side}, {0.0, side}})
        corners.append({x, y, 0.0});
    CVekArrayTempl<CVekVertexArray> square;
    square[0].fromPoints(corners, true);
    const double scale = Sheet::kCell / side;
    CVekMatrix3d place;
    place.setCoordSystem(corner, {scale, 0.0, 0.0}, {0.0, scale, 0.0}, {0.0, 0.0, scale});
    CVekColor black;
    black.setColorIndex(7);
    const VEK::CHatchProp hatch(pattern.name, look.angle * std::numbers::pi / 180.0, look.scale, look.crossed);
    gdx.imageReg(stack, itemHatch | itemOutline, square, black, place, {}, 1.0, 1, black, hatch, CVekPoint3d::kOrigin);
}

void addSlide(CVekGDX& gdx, const InputSlide& slide, const CVekPoint3d& corner)
{
    CVekGDX alone = paper();
    VEK::gdxImageSlide(&alone, slide.bytes, 0, nullptr);
    CVekPoint3d min, max;
    if (!alone.extmaxGet(min, max))
        return;
    const double extent = std::max({max[0] - min[0], max[1] - min[1], 1.0});
    const double scale = Sheet::kCell / extent;
    const CVekPoint3d origin(corner[0] + (Sheet::kCell - scale * (min[0] + max[0])) / 2.0,
                             corner[1] + (Sheet::kCell - scale * (min[1] + max[1])) / 2.0, 0.0);
    CVekMatrix3d place;
    place.setCoordSystem(origin, CVekVector3d(scale, 0.0, 0.0), CVekVector3d(0.0, scale, 0.0),
                         CVekVector3d(0.0, 0.0, scale));
    CVekDataItem item(CVekDataItem::directory);
    const CVekDataKey key(L"MTX");
    VEK::dataItemSet(&item, &key, place);
    VEK::gdxImageSlide(&gdx, slide.bytes, 0, &item);
}
