#include <vek/data/iterator.h>
#include <vek/geometry/view.h>
#include <vek/objects/element.h>
#include <vek/objects/projection.h>

#include "core/objects/body.h"
#include "core/objects/placement.h"
#include "core/objects/walk.h"
#include "core/values/whole.h"

#include <cmath>
#include <map>
#include <memory>

namespace VEK
{
namespace
{

constexpr double kParallel = 1e-6; ///< sine of the angle below which two directions are one
constexpr double kChord = 0.1;     ///< millimetres between an arc and its chords

bool isAlong(CVekVector3d a, CVekVector3d b)
{
    a.normalize();
    b.normalize();
    return (a * b).abs() <= kParallel && std::fabs(a.dot(b)) > 0.5;
}

struct Projection {
    bool good = false;
    CVekArrayTempl<CVekVertexArrayEx> visible;
    CVekArrayTempl<CVekVertexArrayEx> hidden;
};

} // namespace

bool dataItemGet(const CVekDataItem* item, const CVekDataKey* key, NormView& value)
{
    int number = 0;
    if (!dataItemGet(item, key, number))
        return false;
    value = static_cast<NormView>(number);
    return true;
}

bool isViewDirOrtho(const CVekMatrix3d& mtx, const CVekMatrix3d& view)
{
    const CVekVector3d direction = view.axis(2);
    return isAlong(direction, mtx.axis(0)) || isAlong(direction, mtx.axis(1)) || isAlong(direction, mtx.axis(2));
}

bool isBtOrthoView(const CVekDataItem* element, CVekMatrix3d mtx, const CVekMatrix3d& view, const CVekDataItem* bt,
                   CVekMatrix3d& hostMatrix)
{
    if (!element || !bt || !bt->isDir() || !isAlong(view.axis(2), mtx.axis(2)))
        return false;
    mtx *= view.inverse();
    for (int i = 0; i < 2; ++i)
        mtx[2][i] = mtx[i][2] = 0.0;
    mtx[2][3] = 0.0; // but the depth of the axis stays, so that the matrix has an inverse
    hostMatrix = mtx;
    return true;
}

bool getProjectedGeometry(const CVekDataItem* element, const CVekMatrix3d& mtx, const CVekMatrix3d& view,
                          const CVekDataItem* parameters, CVekArrayTempl<CVekVertexArrayEx>& visible,
                          CVekArrayTempl<CVekVertexArrayEx>& hidden,
                          CVekArrayTempl<CSharedPointer<CVekDataItem>>& shared)
{
    Projection result = whole(Projection(), [&] {
        Projection made;
        objects::Part part;
        objects::BuildRules rules;
        bool noDrills = false;
        CVekString type;
        dataGet(parameters, L"NO_DRILL", noDrills);
        dataGet(element, L"TYPE", type);
        if (!dataGet(parameters, L"INSUNIT", rules.unit) || !objects::isUnit(rules.unit))
            dataGet(element, L"UNIT", rules.unit);
        rules.drills = !noDrills;
        rules.cuts = parameters ? parameters->getItem(L"CUT") : nullptr;
        if (!objects::build(part, element, rules))
            return made;
        CVek_Solid placed;
        if (placed.add(part.solid, mtx, 0))
            made.good = placed.solid() && placed.project(view, true, made.visible, made.hidden, vekModelerFaces);
        if (type == L"DRILL") {
            for (auto* lines : {&made.visible, &made.hidden}) {
                for (CVekVertexArrayEx& line : *lines)
                    line.kind = line.kind == VekLineKind::edge ? VekLineKind::hole : line.kind;
            }
        }
        const double chord = kChord * objects::unitFactor(Vek::unitMillimetre, rules.unit);
        const CVekMatrix3d toView = view.inverse() * mtx;
        for (const CVekVertexArray& line : part.lines) {
            CVekVertexArrayEx flat;
            static_cast<CVekVertexArray&>(flat) = g_vl_proje_mtx_orig(line, toView, chord);
            flat.element = 0;
            made.visible.append(std::move(flat));
            made.good = true;
        }
        return made;
    });
    visible = std::move(result.visible);
    hidden = std::move(result.hidden);
    shared.setLogicalLength(0);
    return result.good;
}

namespace
{

/// The bodies of a whole object. Elements that differ only in where they stand are built once.
class Assembly
{
public:
    Assembly(CVek_Solid& solid, bool drills) : m_solid(solid), m_drills(drills) {}

    void add(const objects::Visit& visit)
    {
        const int number = m_count++;
        const CVekDataItem* shape = shapeOf(visit);
        const CVekMatrix3d place =
            visit.assembly *
            objects::scaling(objects::unitFactor(visit.layers.unit(visit.object), objects::unitOf(visit.object))) *
            g_mtx_local(visit.layers.placed());
        if (shape == visit.element && !visit.repeats) {
            objects::Part part;
            build(part, visit);
            m_solid.add(part.solid, place, number);
            return;
        }
        std::unique_ptr<objects::Part>& part = m_built[{visit.object, shape}];
        if (!part) {
            part = std::make_unique<objects::Part>();
            build(*part, visit);
        }
        m_solid.add(part->solid, place, number);
    }

private:
    /// What tells the geometry of an element: what it refers to, or else itself.
    static const CVekDataItem* shapeOf(const objects::Visit& visit)
    {
        if (!visit.layers.refers())
            return visit.element;
        for (CDataIterator child(visit.element); !child.done(); child.next()) {
            if (!objects::isNeutral(*child->getKey()))
                return visit.element;
        }
        return visit.layers[1];
    }

    void build(objects::Part& part, const objects::Visit& visit) const
    {
        CVekDataItem merged;
        visit.layers.merge(merged, nullptr);
        objects::BuildRules rules;
        rules.unit = visit.layers.unit(visit.object);
        rules.cuts = merged.getItem(L"CUT");
        rules.drills = m_drills;
        rules.holesAreBodies = false;
        objects::build(part, &merged, rules);
    }

    CVek_Solid& m_solid;
    bool m_drills;
    int m_count = 0;
    std::map<std::pair<const CVekDataItem*, const CVekDataItem*>, std::unique_ptr<objects::Part>> m_built;
};

} // namespace

bool bgr_slx_bgr(CVek_Solid& solid, bool& hasSolid, CVekDataItem* object, CVekDataItem* second, const CVekMatrix3d& mtx,
                 CVekDataItem*, bool, bool drills)
{
    hasSolid = false;
    solid.clear();
    const bool good =
        object && whole(false, [&] {
            Assembly assembly(solid, drills);
            return objects::walk(object, second, mtx, [&](const objects::Visit& visit) { assembly.add(visit); });
        });
    if (!good)
        solid.clear();
    hasSolid = solid.bodies() > 0;
    return good;
}

bool objModel(CVek_Solid& solid, const CVekDataItem* item)
{
    solid.clear();
    const bool good = whole(false, [&] {
        objects::Part part;
        objects::BuildRules rules;
        dataGet(item, L"UNIT", rules.unit);
        return objects::build(part, item, rules) && solid.add(part.solid, CVekMatrix3d());
    });
    if (!good)
        solid.clear();
    return good;
}

} // namespace VEK
