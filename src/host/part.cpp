#include "host/host_images.h"

#include "core/objects/standard_part.h"
#include "core/values/whole.h"

#include <vek/data.h>
#include <vek/geometry/outline.h>
#include <vek/objects.h>

namespace VEK::host
{
namespace
{

/// How far the centre lines of a drill reach beyond its rim, as a share of the diameter.
constexpr double kOverhang = 0.25;

void addOutline(CVekVertexArray& shape, int kind, double size)
{
    shape += g_outline(kind, CVekVector3d(), CVekArrayTempl<double>{size});
}

void addCross(CVekVertexArray& shape, double size)
{
    for (const CVekVector3d& reach : {CVekVector3d(size, 0.0, 0.0), CVekVector3d(0.0, size, 0.0)})
        shape.append(CVekVertex(CVekPoint3d::kOrigin - reach, CVekPoint3d::kOrigin + reach));
}

/// The lines along the axis, in the plane through the origin: one polyline with gaps, so that a hole is one item.
CVekVertexArray shapeOf(const CVekDataItem* object)
{
    constexpr int kCircle = 1;
    constexpr int kHexagon = 7;
    CVekVertexArray shape;
    double diameter = 0.0;
    dataGet(object, L"D", diameter);
    if (!(diameter > 0.0))
        return shape;
    CVekString din;
    if (!dataGet(object, L"DIN", din)) {
        addOutline(shape, kCircle, diameter);
        addCross(shape, diameter * (0.5 + kOverhang));
        return shape;
    }
    Vek::lUnit unit = Vek::unitNone;
    dataGet(object, L"UNIT", unit);
    const objects::StandardPart part = objects::standardPart(object, unit);
    const bool isHexagon = part.shape == objects::StandardPart::hexagonBolt || part.shape == objects::StandardPart::nut;
    if (part.width > 0.0)
        addOutline(shape, isHexagon ? kHexagon : kCircle, part.width);
    addOutline(shape, kCircle, part.hole > 0.0 ? part.hole : diameter);
    return shape;
}

} // namespace

bool imagePart(CVekGDX* gdx, const CVekDataItem* object, const CVekDataItem* parameters)
{
    if (!gdx || !object)
        return false;
    GdxBatch batch(*gdx);
    const bool drawn = whole(false, [&] {
        CVekVertexArray shape = shapeOf(object);
        if (shape.len() == 0)
            return false;
        CVekMatrix3d mtx;
        int mode = 0;
        CVekGDX::Stack stack;
        dataGet(parameters, L"MTX", mtx);
        dataGet(parameters, L"CMODE", mode);
        dataGet(parameters, L"STACK", stack);
        CVekString visible;
        CVekString hidden;
        CVekColor color;
        getBtLayer(object, visible, hidden);
        layer_color(color, visible);
        const unsigned long flag = mode <= 15 ? (static_cast<unsigned long>(mode) & 15u) << itemColorModeShift : 0u;
        gdx->imageVl(stack, flag, std::move(shape.transformBy(mtx)), color, CVekMatrix3d::kIdentity, {}, 1.0, 0,
                     CVekPoint3d::kOrigin);
        return true;
    });
    return batch.complete() && drawn;
}

} // namespace VEK::host
