#include "commands.h"
#include "failure.h"
#include "input.h"
#include "patterns.h"
#include "sheet.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{

constexpr Size kOneSize{640, 640};
constexpr Size kSheetSize{1600, 1200};
constexpr double kLines = 24.0; // across a sample, all families together, gaps not counted
constexpr double kRows = 20.0;  // of the closest family at most

/// The share of a family's lines that is drawn.
double drawnShare(const CVekArrayTempl<double>& family)
{
    double drawn = 0.0, whole = 0.0;
    for (int i = 5; i < family.len(); ++i) {
        drawn += std::max(family[i], 0.0);
        whole += std::fabs(family[i]);
    }
    return whole > 0.0 ? drawn / whole : 1.0;
}

/// The side of a sample in pattern units, in which a good number of lines show.
double sideOf(const VEK::CHatchPattern& pattern)
{
    double lines = 0.0, rows = 0.0; // to one unit
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

void addSample(CVekGDX& gdx, const VEK::CHatchPattern& pattern, const HatchOptions& options, const CVekPoint3d& corner)
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
    const VEK::CHatchProp hatch(pattern.name, options.angle * std::numbers::pi / 180.0, options.scale, options.crossed);
    gdx.imageReg({}, itemHatch | itemOutline, square, black, place, {}, 1.0, 1, black, hatch, CVekPoint3d::kOrigin);
}

} // namespace

void hatchCommand(const HatchOptions& options)
{
    checkPictureName(options.output);
    const Size size = sizeOf(options.size, options.name.empty() ? kSheetSize : kOneSize);
    if (!(options.scale > 0.0) || !std::isfinite(options.scale) || !std::isfinite(options.angle))
        throw Failure("--scale and --angle: not a number above 0, and a number");
    Patterns patterns;
    if (!options.patterns.empty())
        patterns.load(options.patterns);
    const CVekString wanted = wide(options.name);
    CVekArrayTempl<VEK::CHatchPattern> chosen;
    for (const VEK::CHatchPattern& pattern : patterns.all()) {
        if (options.name.empty() || pattern.name.compareNoCase(wanted) == 0)
            chosen.append(pattern);
    }
    if (chosen.len() == 0)
        throw Failure(options.name + ": no such pattern" + (options.patterns.empty() ? "" : " in " + options.patterns));
    CVekGDX gdx = paper();
    Sheet sheet(chosen.len(), size);
    for (const VEK::CHatchPattern& pattern : chosen)
        addSample(gdx, pattern, options, sheet.next(gdx, pattern.name));
    writePicture(gdx, options.output, size);
}
