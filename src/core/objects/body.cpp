#include "core/objects/body.h"

#include <vek/data/iterator.h>
#include <vek/geometry/outline.h>
#include <vek/geometry/polyline.h>
#include <vek/objects/element.h>

#include "core/objects/drills.h"
#include "core/objects/placement.h"
#include "core/objects/section.h"
#include "core/objects/standard_part.h"

#include <algorithm>
#include <cwchar>
#include <vector>

namespace VEK::objects
{
namespace
{

constexpr int kDeepest = 8;
constexpr int kOutlineCircle = 1;
constexpr int kOutlineHexagon = 7;
constexpr double kFullTurn = 6.28318530717958647692;
constexpr double kChord = 0.1; // millimetres between the arc of a path and its chords

/// One element being built.
struct Job {
    Part& part;
    const CVekDataItem* element;
    const CVekDataItem* bt;
    const BuildRules& rules;

    CVek_Solid& solid() const { return part.solid; }
    bool section(VertexArrays& region) const { return sectionOf(bt, rules.unit, region); }
};

bool addExtrusion(const Job& job, const VertexArrays& region)
{
    Ends ends;
    if (!endsOf(job.bt, lengthOf(job.element, job.bt), job.rules.cuts, ends))
        return false;
    const bool made = ends.square
                          ? job.solid().extrude(region, CVekMatrix3d(), ends.low.point().z, ends.high.point().z, 0)
                          : job.solid().extrude(region, CVekMatrix3d(), ends.low, ends.high, 0);
    if (made && job.rules.drills)
        drillAll(job.solid(), job.bt, nullptr);
    return made;
}

bool addExtruded(const Job& job)
{
    VertexArrays region;
    return job.section(region) && addExtrusion(job, region);
}

bool addAngle(const Job& job)
{
    VertexArrays region;
    return angleSection(job.bt, region) && addExtrusion(job, region);
}

bool addFolded(const Job& job, bool several)
{
    Fold fold;
    Ends ends;
    if (!foldOf(job.bt, several, fold) || !endsOf(job.bt, lengthOf(job.element, job.bt), job.rules.cuts, ends))
        return false;
    constexpr int kRight = -1;
    const bool made =
        ends.square ? job.solid().plate(fold.line, fold.thickness, kRight, CVekMatrix3d(), ends.low.point().z,
                                        ends.high.point().z, 0)
                    : job.solid().plate(fold.line, fold.thickness, kRight, CVekMatrix3d(), ends.low, ends.high, 0);
    if (made && job.rules.drills)
        drillAll(job.solid(), job.bt, &fold);
    return made;
}

bool addSheet(const Job& job)
{
    CVekString construction;
    if (!dataGet(job.element, L"SCONS", construction))
        dataGet(job.bt, L"SCONS", construction);
    if (construction == L"EDGE" || construction == L"EDGE_N")
        return addFolded(job, construction == L"EDGE_N");
    VertexArrays region;
    double thickness = 0.0;
    dataGet(job.bt, L"S", thickness);
    const bool made =
        job.section(region) && thickness > 0.0 && job.solid().extrude(region, CVekMatrix3d(), 0.0, thickness, 0);
    if (made && job.rules.drills)
        drillAll(job.solid(), job.bt, nullptr);
    return made;
}

bool addTurned(const Job& job)
{
    VertexArrays profile;
    double from = 0.0;
    double angle = kFullTurn;
    dataGet(job.bt, L"FROM", from);
    dataGet(job.bt, L"ANG", angle);
    return job.section(profile) && job.solid().revolve(profile, CVekMatrix3d(), from, angle, 0);
}

bool addHole(const Job& job)
{
    Drill drill;
    return job.rules.holesAreBodies && drill.read(job.bt) &&
           job.solid().revolve({drill.profile()}, CVekMatrix3d(), 0.0, kFullTurn, 0);
}

bool addStandardPart(const Job& job)
{
    const StandardPart p = standardPart(job.bt, job.rules.unit);
    CVek_Solid& solid = job.solid();
    const auto outline = [](int kind, double width) { return g_outline(kind, CVekVector3d(), {width}); };
    const auto prism = [&](int kind, double width, double hole, double z0, double z1) {
        VertexArrays region{outline(kind, width)};
        if (hole > 0.0)
            region.append(outline(kOutlineCircle, hole));
        return solid.extrude(region, CVekMatrix3d(), z0, z1, 0);
    };
    const auto shank = [&] { return prism(kOutlineCircle, p.diameter, 0.0, 0.0, p.length); };
    switch (p.shape) {
    case StandardPart::hexagonBolt: return prism(kOutlineHexagon, p.width, 0.0, -p.height, 0.0) && shank();
    case StandardPart::cylinderBolt:
    case StandardPart::flatBolt: return prism(kOutlineCircle, p.width, 0.0, -p.height, 0.0) && shank();
    case StandardPart::nut: return prism(kOutlineHexagon, p.width, p.hole, -p.height, 0.0);
    case StandardPart::washer: return prism(kOutlineCircle, p.width, p.hole, -p.height, 0.0);
    case StandardPart::rod: return shank();
    case StandardPart::countersunkBolt: {
        Drill same; // its shape is that of the hole it fits
        same.diameter = p.diameter;
        same.length = std::max(p.length, p.height);
        same.sinkDiameter = p.width;
        same.sinkDepth = p.height;
        same.isConical = true;
        return solid.revolve({same.profile()}, CVekMatrix3d(), 0.0, kFullTurn, 0);
    }
    case StandardPart::none: break;
    }
    return false;
}

/// The straight pieces of a path, with the coordinates of the section in each.
struct Piece {
    CVekMatrix3d frame;
    CVekVector3d direction;
    double length;
};

std::vector<Piece> piecesOf(const CVekVertexArray& path, double tolerance)
{
    std::vector<Piece> pieces;
    for (const CVekVertex& vertex : vl_split_dif(path, tolerance)) {
        Piece piece;
        piece.direction = vertex.end - vertex.start;
        piece.length = piece.direction.abs();
        if (!(piece.length > 0.0))
            continue;
        piece.direction.normalize();
        const CVekVector3d& z = piece.direction;
        CVekVector3d y = path.normal() - z * z.dot(path.normal());
        constexpr double kAlong = 1e-6; // the path runs along its normal there
        if (y.abs() > kAlong) {
            y.normalize();
            piece.frame.setCoordSystem(vertex.start, y * z, y, z);
        } else {
            piece.frame.setToPlaneToWorld(z);
            for (int row = 0; row < 3; ++row)
                piece.frame[row][3] = vertex.start[row];
        }
        pieces.push_back(piece);
    }
    return pieces;
}

/// The plane between two pieces, in the coordinates of the one at `height`; square to a piece without a neighbour, and
/// where the path turns back.
CVekPlane joint(const Piece& piece, const Piece* neighbour, double height)
{
    CVekVector3d normal = CVekVector3d::kZAxis;
    if (neighbour) {
        const CVekVector3d sum = piece.direction + neighbour->direction;
        const CVekVector3d inner(sum.dot(piece.frame.axis(0)), sum.dot(piece.frame.axis(1)),
                                 sum.dot(piece.frame.axis(2)));
        constexpr double kTurnsBack = 0.01;
        if (inner.z > kTurnsBack)
            normal = inner;
    }
    return CVekPlane({0.0, 0.0, height}, normal);
}

/// Sweeps a section along one continuous run, with mitres at its corners.
bool addSwept(const Job& job, const CVekVertexArray& path, const VertexArrays& region)
{
    const std::vector<Piece> pieces = piecesOf(path, kChord * unitFactor(Vek::unitMillimetre, job.rules.unit));
    const bool closed = path.isClosed() && pieces.size() > 2;
    const std::size_t count = pieces.size();
    bool made = false;
    for (std::size_t i = 0; i < count; ++i) {
        const Piece& piece = pieces[i];
        const Piece* before = i > 0 ? &pieces[i - 1] : closed ? &pieces[count - 1] : nullptr;
        const Piece* after = i + 1 < count ? &pieces[i + 1] : closed ? &pieces[0] : nullptr;
        made |=
            job.solid().extrude(region, piece.frame, joint(piece, before, 0.0), joint(piece, after, piece.length), 0);
    }
    return made;
}

/// Lines: "VLL" or "VL".
bool addLines(const Job& job)
{
    VertexArrays lines;
    CVekVertexArray line;
    if (!dataGet(job.bt, L"VLL", lines) && dataGet(job.bt, L"VL", line))
        lines.append(std::move(line));
    const bool any = lines.len() > 0;
    job.part.lines += std::move(lines);
    return any;
}

bool addPath(const Job& job)
{
    VertexArrays region;
    CVekVertexArray path;
    if (!job.section(region) || !dataGet(job.bt, L"VL", path))
        return addLines(job);
    bool made = false;
    for (const CVekVertexArray& run : vl_to_vll(path))
        made |= addSwept(job, run, region);
    return made;
}

/// The elements inside of one: definitions of a compound, or the bodies of a list of sub-elements.
bool addChildren(const Job& job, const CVekDataItem* children, const BuildRules& rules)
{
    bool made = false;
    for (CDataIterator child(children); !child.done(); child.next()) {
        Part inner;
        if (!child->isDir() || !build(inner, child, rules))
            continue;
        const CVekMatrix3d place = g_mtx_local(child);
        made |= job.solid().add(inner.solid, place);
        for (CVekVertexArray& line : inner.lines)
            job.part.lines.append(line.transformBy(place));
        made |= inner.lines.len() > 0;
    }
    return made;
}

bool addCompound(const Job& job)
{
    BuildRules inner = job.rules;
    inner.cuts = nullptr;
    ++inner.depth;
    const bool lines = addLines(job);
    return addChildren(job, job.bt->getItem(L"SUB"), inner) || lines;
}

bool addSubElements(const Job& job)
{
    BuildRules inner = job.rules;
    inner.holesAreBodies = false;
    ++inner.depth;
    return addChildren(job, job.bt, inner);
}

} // namespace

bool build(Part& part, const CVekDataItem* element, const BuildRules& rules)
{
    static constexpr struct {
        const wchar_t* type;
        bool (*add)(const Job&);
    } kTypes[] = {{L"EXTR", addExtruded},     {L"ANGLE", addAngle},      {L"SHEET", addSheet},
                  {L"ROT", addTurned},        {L"PATH", addPath},        {L"HATCH", addLines},
                  {L"COMPOUND", addCompound}, {L"DRILL", addHole},       {L"MRA_NM", addStandardPart},
                  {L"DIN", addStandardPart},  {L"SCORD", addSubElements}};
    if (!element || !element->isDir() || rules.depth > kDeepest)
        return false;
    const CVekDataItem* bt = element->getItem(L"BT");
    CVekString type;
    if (!dataGet(element, L"TYPE", type))
        dataGet(bt, L"TYPE", type);
    if (!bt || !bt->isDir())
        bt = element;
    for (const auto& known : kTypes) {
        if (type == known.type)
            return known.add({part, element, bt, rules});
    }
    return false;
}

} // namespace VEK::objects
