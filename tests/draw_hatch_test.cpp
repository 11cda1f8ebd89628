// Hatches: by hand, and beside slow ways that follow the rules line by line and dash by dash.
#include "draw/hatch_plane.h"
#include "pattern_host.h"

#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/values/tolerance.h>
#include <vek/values/units.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace
{

using shapes::line;
using shapes::list;
using shapes::Polylines;
using shapes::rectangle;
using VEK::CHatchProp;

constexpr double kTolerance = 1e-6;
constexpr double kPi = shapes::pi;

using Pieces = std::vector<CVekVertex>;

Pieces piecesOf(const Polylines& lines)
{
    Pieces pieces;
    for (const CVekVertexArray& vl : lines)
        pieces.insert(pieces.end(), vl.begin(), vl.end());
    return pieces;
}

bool same(const CVekVertex& a, const CVekVertex& b)
{
    return a.start.distanceTo(b.start) <= 10 * kTolerance && a.end.distanceTo(b.end) <= 10 * kTolerance;
}

/// Each piece of one list is one of the other; what has hardly a length counts only where `dots` says so.
void expectPieces(Pieces actual, Pieces expected, bool dots = false)
{
    for (Pieces* pieces : {&actual, &expected})
        std::erase_if(*pieces,
                      [&](const CVekVertex& v) { return !dots && v.start.distanceTo(v.end) <= 10 * kTolerance; });
    EXPECT_EQ(actual.size(), expected.size());
    for (const CVekVertex& v : actual) {
        const auto found = // lines come in the same order, so the search is short
            std::find_if(expected.begin(), expected.end(), [&](const CVekVertex& e) { return same(v, e); });
        ASSERT_NE(found, expected.end()) << "from " << v.start[0] << ' ' << v.start[1] << ' ' << v.start[2];
        expected.erase(found);
    }
}

CVekMatrix3d rotation(double angle)
{
    return CVekMatrix3d().setToRotation(angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
}

/// A frame at the origin, turned by an angle.
CVekMatrix3d frameOf(double angle)
{
    return CVekMatrix3d().setCoordSystem({}, VEK::polar(angle, 1.0), VEK::polar(angle + kPi / 2, 1.0),
                                         CVekVector3d::kZAxis);
}

Polylines moved(Polylines region, const CVekMatrix3d& m)
{
    for (CVekVertexArray& contour : region)
        contour.transformBy(m);
    return region;
}

CVekVertexArray joined(const Polylines& list)
{
    CVekVertexArray all;
    for (const CVekVertexArray& vl : list)
        all += vl;
    return all;
}

/// A contour with holes and islands, their turns, starts and normals drawn anew.
Polylines anyRegion(shapes::Random& random)
{
    const double x = random.uniform(-20, 20), y = random.uniform(-20, 20);
    const int corners = 3 + random.whole(random.whole(8) == 0 ? 200 : 9);
    Polylines region = list({random.star(x, y, 3, 10, corners)});
    for (int i = random.whole(4); i > 0; --i)
        region.append(random.star(x + random.uniform(-6, 6), y + random.uniform(-6, 6), 0.4, 3, 3 + random.whole(5)));
    return region;
}

/// Corners on whole numbers, so that rows meet corners and run along sides; now and then an arc, or a gap.
Polylines gridRegion(shapes::Random& random)
{
    Polylines region;
    const int bends = random.whole(3), gaps = random.whole(3);
    for (int i = random.whole(4); i >= 0; --i) {
        std::vector<std::pair<double, double>> corners;
        std::vector<double> bulges;
        for (int k = 3 + random.whole(8); k > 0; --k) {
            corners.emplace_back(random.whole(9), random.whole(9));
            bulges.push_back(bends == 0 && random.whole(3) == 0 ? 0.25 * (random.whole(9) - 4) : 0.0);
        }
        CVekVertexArray contour = random.redrawn(shapes::polygon(corners, bulges));
        if (gaps == 0 && i > 0)
            contour.removeAt(random.whole(contour.len()));
        region.append(contour);
    }
    return region;
}

// --- The slow ways.

Polylines slowRows(const Polylines& world, const CVekMatrix3d& mtx, bool dots, double pitch, double angle)
{
    const Polylines reg = moved(world, mtx.inverse());
    Polylines result;
    CVekPoint3d min, max;
    reg[0].extents(min, max);
    for (int i = 0; dots && (max[1] - min[1]) / pitch + 1.0 > i; ++i) {
        const double y = min[1] + pitch * i;
        for (const CVekVertexArray& piece : VEK::vl_punch_reg(line(min[0] - 10, y, max[0] + 10, y), reg, true)) {
            for (CVekVertexArray& dot : VEK::vl_measure(piece, 1.0, CVekLineParm(0.0, -pitch)))
                result.append(dot.transformBy(mtx));
        }
    }
    if (dots)
        return result;
    const CVekPoint3dArray ext = VEK::vl_extmax(reg[0], -angle);
    const CVekPoint3dArray box = VEK::vl_extmax(VEK::vl_extrect(reg[0], 0.0), -angle);
    const double d = box[0].distanceTo(box[1]);
    CVekVertexArray row(CVekVertex(VEK::polar(box[0], kPi - angle, d), VEK::polar(box[0], -angle, d)));
    const bool wide = std::fabs(ext[0][0] - ext[1][0]) > std::fabs(ext[0][1] - ext[1][1]);
    const int n = std::abs(int(ext[0][wide ? 0 : 1]) - int(ext[1][wide ? 0 : 1]));
    for (int i = 0; i < n; ++i) {
        for (CVekVertexArray& piece : VEK::vl_punch_reg(row, reg, true))
            result.append(piece.transformBy(mtx));
        row.move(VEK::polar(kPi / 2 - angle, pitch));
    }
    return result;
}

CVekPoint3dArray regionLineCuts(const Polylines& local, const CVekVertexArray& row)
{
    CVekPoint3dArray cuts, found;
    for (const CVekVertexArray& contour : local) {
        row.intersectWith(found, contour, 3);
        for (const CVekPoint3d& p : found) {
            if (std::none_of(cuts.begin(), cuts.end(),
                             [&](const CVekPoint3d& q) { return p.distanceTo(q) <= VEK::kPointTol; }))
                cuts.append(p);
        }
    }
    if (cuts.len() % 2 != 0)
        cuts.setLogicalLength(0);
    cuts.sort(row[0].start - row[0].end);
    return cuts;
}

bool splitKeeps(const Polylines& local, const CVekVertex& v, const CVekPoint3d& at, CVekVertexArray& hit)
{
    CVekVertexArray parts(v);
    if (!v.isPoint(at))
        return false;
    parts.breakVertex(0, at);
    for (int i = 0; parts.len() == 2 && i < 2; ++i) {
        if (VEK::g_vll_pt_inside(local, parts[i].mid()) >= 1) {
            hit.append(parts[i]);
            break;
        }
    }
    return true;
}

CVekVertexArray clipped(const Polylines& local, const CVekVertexArray& row, const CVekVertexArray& piece, bool dashed)
{
    CVekVertexArray hit;
    const CVekPoint3dArray cuts = regionLineCuts(local, row);
    for (int i = 0; i + 1 < cuts.len(); i += 2) {
        const CVekPoint3d p = cuts[i], q = cuts[i + 1];
        const CVekVertex seg(p, q);
        for (const CVekVertex& v : piece) {
            if (!dashed)
                hit.append(seg);
            else if (v.isPoint(p) && v.isPoint(q))
                hit += VEK::g_vl_cut(CVekVertexArray(v), p, q);
            else if (seg.isPoint(v.start) && seg.isPoint(v.end))
                hit.append(v);
            else if (!splitKeeps(local, v, q, hit))
                splitKeeps(local, v, p, hit);
        }
    }
    return joined(VEK::vl_punch(hit, local[0], true));
}

void slowFamily(const Polylines& plane, const CVekMatrix3d& mtx, const CHatchProp& hatch,
                const CVekArrayTempl<double>& L, Polylines& result)
{
    const CVekPoint3dArray whole = VEK::vl_extmax(plane[0], 0.0);
    const double diag = whole[0].distanceTo(whole[1]);
    const double a = L[0] * kPi / 180, dx = hatch.scale * L[3], dy = hatch.scale * L[4];
    const bool gravel = hatch.name == L"GRAVEL", fine = hatch.scale < 1.0;
    const CVekMatrix3d frame = frameOf(a);
    const Polylines local = moved(plane, frame.inverse());
    const CVekPoint3dArray ext = VEK::vl_extmax(local[0], 0.0);
    const int count = dy == 0.0 ? 0 : static_cast<int>(ext[0].distanceTo(ext[1]) / std::fabs(dy) + 1.0);
    CVekArrayTempl<double> table;
    double total = 0.0;
    for (int i = 5; i < L.len(); ++i) {
        table.append(L[i] == 0.0 ? VEK::acadUnitCv(0.2, 4, -1) : hatch.scale * L[i]);
        total += L[i] == 0.0 ? 1.0 : std::fabs(table[-1]);
    }
    const bool dashed = table.len() > 0;
    double half = diag * 15;
    if (dashed)
        half = (static_cast<int>(diag / total) + 1) * total * (gravel ? (fine ? 200.0 : 150.0) : 20.0);
    const CVekPoint3d middle = CVekPoint3d(hatch.scale * L[1], hatch.scale * L[2], 0.0) * frame.inverse();
    CVekVertexArray row(CVekVertex(middle - CVekVector3d(half, 0, 0), middle + CVekVector3d(half, 0, 0)));
    const CVekVector3d forward(dy > 0 ? dx : -dx, std::fabs(dy), 0.0);
    const auto cuts = [&](const CVekVertexArray& vl) {
        return vl.len() > 0 && CVekVertexArray(CVekVertex(vl[0].start, vl[-1].end)).intersectWith(local[0], 0);
    };
    while (dy != 0.0 && row[0].mid()[1] > ext[0][1])
        row.move(-forward);
    const int tries = count * (gravel && fine ? 200 : 20);
    for (int i = 0; i < tries; ++i) {
        row.move(-forward);
        if (!cuts(row.getTransformedCopy(rotation(hatch.angle))))
            break;
    }
    bool reached = false;
    for (int i = 0; i < tries * 3; ++i) {
        row.move(forward);
        const CVekVertexArray turned = row.getTransformedCopy(rotation(hatch.angle));
        CVekVertexArray piece = row;
        if (dashed && cuts(turned))
            piece = joined(VEK::vl_measure(piece, 1.0, CVekLineParm(table)));
        piece.transformBy(rotation(hatch.angle));
        if (!cuts(piece)) {
            if (reached)
                break;
            continue;
        }
        reached = true;
        const CVekVertexArray left = clipped(local, turned, piece, dashed);
        if (left.len() > 0)
            result.append(left.getTransformedCopy(frame).transformBy(mtx));
    }
}

Polylines slowHatch(const Polylines& world, const CVekMatrix3d& mtx, const CHatchProp& hatch)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(hatch.name, lines);
    Polylines result;
    for (const CVekArrayTempl<double>& family : lines)
        slowFamily(moved(world, mtx.inverse()), mtx, hatch, family, result);
    return result;
}

/// @return the number of pieces
std::size_t expectSame(const Polylines& reg, const CVekMatrix3d& mtx, const CHatchProp& hatch)
{
    const Polylines quick = vek_gdx_image_reg_hatch2(reg, mtx, hatch), slow = slowHatch(reg, mtx, hatch);
    EXPECT_EQ(quick.len(), slow.len());
    std::size_t count = 0;
    for (int i = 0; i < std::min(quick.len(), slow.len()); ++i) {
        expectPieces(Pieces(quick[i].begin(), quick[i].end()), Pieces(slow[i].begin(), slow[i].end()));
        count += static_cast<std::size_t>(quick[i].len());
    }
    return count;
}

bool slowTest(const Polylines& region, const CHatchProp& hatch, const CVekMatrix3d& mtx)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(hatch.name, lines);
    double most = -1.7976931348623157e308, least = 1.7976931348623157e308;
    for (const CVekArrayTempl<double>& L : lines) {
        const CVekPoint3dArray ext =
            VEK::vl_extmax(region[0].getTransformedCopy(frameOf(L[0] * kPi / 180).inverse()), 0.0);
        for (const int axis : {0, 1}) {
            const double step = hatch.scale * L[3 + axis];
            if (L[3 + axis] == 0.0 || !std::isfinite(step))
                continue;
            most = std::max(most, std::fabs(ext[0][axis] - ext[1][axis]) / step);
            least = std::min(least, std::fabs(step));
        }
    }
    return most < 95.0 && least * (CVekVector3d::kXAxis * mtx).abs() > 2.3;
}

// --- Plain hatches.

TEST(DrawHatch, AgreesWithPunchingRowByRow)
{
    shapes::Random random(31);
    std::size_t count = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        const bool grid = round % 4 != 0, dots = random.coin();
        const CVekMatrix3d mtx = grid ? CVekMatrix3d() : random.motion();
        const Polylines region = moved(grid ? gridRegion(random) : anyRegion(random), mtx);
        const double pitch = grid ? 0.5 : random.uniform(0.4, 3.0), angle = grid ? 0.0 : random.uniform(-4, 4);
        const Polylines quick = vek_gdx_image_reg_hatch(region, mtx, dots ? L"DOTS" : L"dots", pitch, angle);
        expectPieces(piecesOf(quick), piecesOf(slowRows(region, mtx, dots, pitch, angle)), dots);
        count += static_cast<std::size_t>(quick.len());
    }
    EXPECT_GT(count, 8000u);
}

// --- Patterns.

TEST(DrawPattern, AgreesWithFollowingTheLineStepByStep)
{
    shapes::Random random(7);
    const auto any = [&](double from, double to) { return random.uniform(from, to); };
    std::size_t count = 0, empty = 0;
    for (int round = 0; round < 33; ++round) {
        SCOPED_TRACE(round);
        const bool grid = round % 3 == 2;
        const CVekMatrix3d mtx = grid ? CVekMatrix3d() : round % 2 ? random.motion() : rotation(any(-3, 3));
        Polylines reg = grid ? gridRegion(random) : anyRegion(random);
        const double aside = round % 9 == 4 ? random.pick({212, 600, 2000, 9000}) : 0.0; // the search misses some
        reg = moved(moved(reg, CVekMatrix3d().setToTranslation({aside, 3, 0})), mtx);
        const double sign = random.pick({-1.0, 1.0}), scale = random.pick({-1.0, 1.0, 1.0}) * any(0.6, 1.5);
        const wchar_t* name = round % 9 == 7 ? L"GRAVEL" : L"A";
        const Vek::lUnit before = VEK::acad_unit_get();
        VEK::acad_unit_set(random.coin() ? Vek::unitMillimetre : Vek::unitInch);
        std::vector<std::vector<double>> families = {{0, 0, -1e4, 0.25, 0.5}, {0, 0, 0.5, 0, 1, 1, -0.5, 0.25, -0.25}};
        if (!grid)
            families = {{any(-180, 180), any(-3, 3), any(-3, 3), any(-1, 1), sign * any(0.7, 3)},
                        {any(0, 90), any(-3, 3), 0, any(-2, 2), sign * any(0.7, 3), any(0.5, 4), -any(0.5, 2), 0, -0.5},
                        {90, 0, 0, 0, any(1, 3), -any(0.2, 1), any(0.2, 3)},
                        {any(0, 90), 1, 1, 2, 0, 1, -1},
                        {45, 2}};
        const PatternHost host(name, families);
        const double angle = grid || round % 5 == 0 ? 0.0 : any(-3, 3);
        const std::size_t pieces = expectSame(reg, mtx, {name, angle, grid ? 1.0 : scale, random.coin()});
        VEK::acad_unit_set(before);
        count += pieces;
        empty += pieces == 0;
    }
    EXPECT_GT(count, 1000u);
    EXPECT_LT(empty, 9u);
}

TEST(DrawPattern, UserPatternIsSolidAndMayBeCrossed)
{
    const Polylines square = list({rectangle(0, 0, 10, 10)});
    Pieces level, both;
    for (int i = 0; i <= 10; i += 2) {
        level.push_back(line(10, i, 0, i));
        both.push_back(line(i, 10, i, 0));
    }
    both.insert(both.end(), level.begin(), level.end());
    expectPieces(piecesOf(vek_gdx_image_reg_hatch2(square, {}, {L"_USER", 0, 2, false})), level);
    const Polylines crossed = vek_gdx_image_reg_hatch2(square, {}, {L"_U", 0, 2, true});
    expectPieces(piecesOf(crossed), both);
    EXPECT_NEAR(crossed[0][0].start[0], crossed[0][0].end[0], kTolerance); // the upright ones come first
    EXPECT_EQ(vek_gdx_image_reg_hatch2(square, {}, {L"UNKNOWN", 0, 2, true}).len(), 0);
}

/// What shows of a hatch in a view.
Polylines visible(const Polylines& region, const CHatchProp& hatch, const VEK::detail::HatchView* view, bool& cutShort)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(hatch.name, lines);
    VEK::detail::HatchStrokes strokes;
    cutShort = !VEK::detail::hatchPattern(region, {}, hatch, lines, view, strokes);
    Polylines result;
    for (int i = 0; i < strokes.len(); ++i)
        strokes.get(i, result[i]);
    return result;
}

TEST(DrawPattern, ShowsInAViewWhatItShowsWithoutOne)
{
    shapes::Random random(17);
    std::size_t shown = 0, whole = 0;
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const auto any = [&](double from, double to) { return random.uniform(from, to); };
        const Polylines reg = anyRegion(random);
        const PatternHost host(L"A", {{any(-180, 180), any(-3, 3), 0, any(-1, 1), any(-1, 1), any(0.1, 2), any(-1, 0)},
                                      {any(0, 90), 0, any(-3, 3), any(-9, 9), any(0.4, 1)}});
        const CHatchProp hatch(L"A", any(-3, 3), any(0.5, 1.5), false);
        const CVekPoint3d at = reg[0][0].mid();
        const double turn = any(-3, 3), side = any(0.5, 8);
        VEK::detail::HatchView view;
        for (std::size_t i = 0; i < 4; ++i) {
            const CVekPoint3d corner = VEK::polar(at, turn + static_cast<double>(i) * kPi / 2, side);
            view[i] = {corner[0], corner[1]};
        }
        bool cutShort = true;
        const Pieces seen = piecesOf(visible(reg, hatch, &view, cutShort));
        EXPECT_FALSE(cutShort);
        Pieces expected = piecesOf(vek_gdx_image_reg_hatch2(reg, {}, hatch));
        whole += expected.size();
        // The view's inner circle; beyond it more may be there.
        std::erase_if(expected, [&](const CVekVertex& v) {
            return v.lotp(at).distanceTo(at) > side * std::sqrt(0.5) &&
                   std::none_of(seen.begin(), seen.end(), [&](const CVekVertex& s) { return same(s, v); });
        });
        expectPieces(seen, expected, true);
        shown += seen.size();
    }
    EXPECT_GT(shown, 1000u);
    EXPECT_LT(shown, whole * 3 / 4);
}

TEST(DrawPattern, TellsWhatItCutShort)
{
    const Polylines wall = list({rectangle(0, 0, 120000, 4000)}), square = list({rectangle(0, 0, 10, 10)});
    const PatternHost host(L"A", {{0, 0, 0, 0, 50, 4, -4}, {0, 0, 0, 0, 0, 1, -1}});
    const auto cutShort = [](const Polylines& region, const CHatchProp& hatch, int& len) {
        bool cut = false;
        len = static_cast<int>(piecesOf(vek_gdx_image_reg_hatch2(region, {}, hatch, cut)).size());
        return cut;
    };
    int len = 0;
    EXPECT_TRUE(cutShort(wall, {L"A", 0, 1, false}, len));
    EXPECT_LE(len, VEK::kHatchPieces);
    EXPECT_GT(len, VEK::kHatchPieces * 0.999);
    EXPECT_FALSE(cutShort(wall, {L"A", 0, 2, false}, len));
    EXPECT_EQ(len, 41 * 7500);
    const VEK::detail::HatchView door{{{50000, 1000}, {50800, 1000}, {50800, 3000}, {50000, 3000}}};
    bool cut = true;
    EXPECT_GE(piecesOf(visible(wall, {L"A", 0, 1, false}, &door, cut)).size(), 41u * 100);
    EXPECT_FALSE(cut);
    EXPECT_EQ(visible(square, {L"_U", 0, 1e-5, false}, nullptr, cut).len(), 0);
    EXPECT_TRUE(cut);
    const VEK::detail::HatchView spot{{{5, 5}, {5.001, 5}, {5.001, 5.001}, {5, 5.001}}};
    EXPECT_NEAR(visible(square, {L"_U", 0, 1e-5, false}, &spot, cut).len(), 100, 1);
    EXPECT_FALSE(cut);
    for (const auto& [pitch, name, dots, isCut] :
         {std::tuple(1e-3, L"DOTS", 1000000, true), {0.0101, L"DOTS", 991 * 991, false}, {1e-9, L"", 10, false}}) {
        EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, name, pitch, 0, cut).len(), dots);
        EXPECT_EQ(cut, isCut);
    }
}

TEST(DrawPattern, ImpossibleNumbersGiveNothingOrAreCutShort)
{
    const double inf = HUGE_VAL, nan = VEK::nan();
    const Polylines square = list({rectangle(0, 0, 10, 10)});
    bool cut = false;
    const auto none = [&](const Polylines& region, const CHatchProp& hatch) {
        return vek_gdx_image_reg_hatch2(region, {}, hatch, cut).len() == 0;
    };
    for (const double pitch : {0.0, -1.0, nan, inf}) {
        for (const wchar_t* name : {L"", L"DOTS"})
            EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, name, pitch, 0).len(), 0);
    }
    for (const double bad : {nan, inf, -inf, 1e200, -1.7e308}) {
        const Polylines broken = list({rectangle(0, 0, bad, 10)});
        for (const double angle : {0.0, 0.7}) {
            for (const wchar_t* name : {L"", L"DOTS"})
                EXPECT_EQ(vek_gdx_image_reg_hatch(broken, {}, name, 1, angle).len(), 0);
            EXPECT_TRUE(none(broken, {L"_U", angle, 1, true}));
        }
        if (std::isfinite(bad))
            continue;
        EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, L"", 1, bad).len(), 0);
        EXPECT_TRUE(none(square, {L"_U", bad, 1, true}));
        EXPECT_TRUE(none(square, {L"_U", 0, bad, true}));
        CVekMatrix3d mtx;
        mtx[1][1] = bad;
        EXPECT_EQ(vek_gdx_image_reg_hatch2(square, mtx, {L"_U", 0, 1, false}).len(), 0);
    }
    for (const double step : {0.0, 1e-300, 1e-9, nan, inf}) {
        const PatternHost host(L"S", {{0, 0, 0, 0, step}, {0, 0, 0, 1}, {0}});
        EXPECT_TRUE(none(square, {L"S", 0, 1, false}));
        EXPECT_EQ(cut, step > 0.0 && step < 1.0);
    }
    for (const double dash : {nan, inf, 1e-300, 1e300, -1.0}) {
        const PatternHost host(L"D", {{0, 0, 0, 0, 1, dash, -1e-12}, {0, 0, 0, nan, 1}, {0, 1e12, 1e12, 0, 1e-3}});
        EXPECT_LE(piecesOf(vek_gdx_image_reg_hatch2(square, {}, {L"D", 0, 1, false}, cut)).size(),
                  std::size_t(VEK::kHatchPieces));
    }
    // Open and broken contours and empty ones.
    CVekVertexArray open = rectangle(0, 0, 10, 10), broken = open;
    open.setLogicalLength(3);
    broken.removeAt(1);
    const PatternHost plain(L"P", {{0, 0.3, 0.3, 0, 1, 2, -1}});
    EXPECT_GT(expectSame(list({open}), {}, {L"P", 1.0, 1, false}), 0u);
    expectSame(list({broken}), {}, {L"P", 0.4, 1, false});
    EXPECT_GT(expectSame(list({shapes::circle(0, 0, 5), shapes::circle(1, 0, 2)}), {}, {L"P", 0.4, 1, false}), 0u);
    for (const Polylines& empty : {Polylines(), list({{}, rectangle(0, 0, 5, 5)})}) {
        EXPECT_TRUE(none(empty, {L"P", 0, 1, false}));
        EXPECT_EQ(vek_gdx_image_reg_hatch(empty, {}, L"DOTS", 1, 0).len(), 0);
    }
}

TEST(DrawPattern, ExamplePatternsAllDraw)
{
    const std::filesystem::path path = std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "patterns" / "vek.pat";
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    CVekString error;
    ASSERT_TRUE(VEK::hatchPatternsLoad(patterns, path.wstring().c_str(), error));
    EXPECT_GE(patterns.len(), 20);
    CVekLocalApp app;
    CVekApp* const before = vekAppSet(&app);
    const Polylines reg = list({rectangle(-31, -33, 37, 35)});
    for (const VEK::CHatchPattern& pattern : patterns) {
        app.hatchPatternSet(pattern.name, pattern.lines);
        const CHatchProp hatch(pattern.name, 0, 1, false);
        // Wide enough that each family shows.
        EXPECT_GE(vek_gdx_image_reg_hatch2(reg, {}, hatch).len(), pattern.lines.len()) << pattern.name.len();
        EXPECT_TRUE(vek_gdx_pattern_test(reg, hatch, CVekMatrix3d().setToScaling(4.0, {})));
    }
    // Waves of four strokes, 12 by 12, in which strokes end on the edges: none of ten is lost, however far out.
    int slopes = 0;
    for (const CVekVertex& v :
         piecesOf(vek_gdx_image_reg_hatch2(list({rectangle(0, 0, 120, 120)}), {}, {L"MINERALWOOL", 0, 1, false})))
        slopes += v.start.distanceTo(v.end) > 4.9;
    EXPECT_EQ(slopes, 2 * 10 * 10);
    vekAppSet(before);
}

TEST(DrawPatternTest, CountsLinesAndMeasuresSteps)
{
    shapes::Random random(3);
    int drawn = 0;
    for (int round = 0; round < 300; ++round) {
        Polylines region = anyRegion(random);
        region[0].transformBy(random.coin() ? random.tilt() : CVekMatrix3d());
        const double angle = random.uniform(-180, 180), step = random.pick({-1, 1}) * random.uniform(0.02, 0.4);
        const PatternHost host(L"R", {{angle, 1, 2, random.pick({0, 0.1, -0.2, 0.4}), step},
                                      {angle + 30, 0, 0, 0, random.pick({0, 0.5, HUGE_VAL})}});
        CVekMatrix3d mtx = random.motion();
        mtx *= CVekMatrix3d().setToScaling(random.uniform(3, 60), {});
        const CHatchProp hatch(L"R", 0.5, random.pick({1, -1, 2}), false);
        EXPECT_EQ(vek_gdx_pattern_test(region, hatch, mtx), slowTest(region, hatch, mtx)) << round;
        drawn += slowTest(region, hatch, mtx);
    }
    EXPECT_GT(drawn, 50);
    EXPECT_LT(drawn, 250);
    const PatternHost host(L"P", {{0, 0, 0, 0, 3}});
    const auto test = [](double height, double scale, double factor) {
        return vek_gdx_pattern_test(list({rectangle(0, 0, 1, height)}), {L"P", 0, scale, false},
                                    CVekMatrix3d().setToScaling(factor, {}));
    };
    EXPECT_FALSE(test(9, 1, 0.5)); // a step of 1.5
    EXPECT_TRUE(test(94 * 3, 1, 10));
    EXPECT_FALSE(test(95 * 3, 1, 10)); // limits are strict
    EXPECT_TRUE(test(95 * 3, -1, 10)); // a step downwards counts no lines
    EXPECT_FALSE(test(1, 0, 1));
    EXPECT_TRUE(vek_gdx_pattern_test(list({rectangle(0, 0, 1, 1e9)}), {L"_USER", 0, 1e-9, false}, {}));
    for (const wchar_t* name : {L"nobody's", L"P"})
        EXPECT_TRUE(vek_gdx_pattern_test({}, {name, 0, 2, false}, {}));
}

} // namespace
