// Hatches: plain ones by hand, patterns against a slow second way that follows a line step by step.
#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/host.h>
#include <vek/values/tolerance.h>
#include <vek/values/units.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <initializer_list>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace
{

using Lines = CVekArrayTempl<CVekVertexArray>;
using Region = CVekArrayTempl<CVekVertexArray>;

constexpr double kTolerance = 1e-6;
constexpr double kPi = std::numbers::pi;

CVekVertexArray polygon(std::initializer_list<std::array<double, 2>> corners)
{
    CVekPoint3dArray points;
    for (const auto& corner : corners)
        points.append({corner[0], corner[1], 0.0});
    return CVekVertexArray().fromPoints(points, true);
}

CVekVertexArray box(double x0, double y0, double x1, double y1)
{
    return polygon({{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}});
}

CVekVertexArray circle(double x, double y, double r)
{
    CVekVertexArray vl(CVekVertex({x - r, y, 0}, {x + r, y, 0}, 1.0));
    vl.append(CVekVertex({x + r, y, 0}, {x - r, y, 0}, 1.0));
    return vl;
}

Region region(std::initializer_list<CVekVertexArray> contours)
{
    Region list;
    for (const CVekVertexArray& contour : contours)
        list.append(contour);
    return list;
}

/// A host that knows one pattern.
class Host
{
public:
    Host(const wchar_t* name, std::initializer_list<std::initializer_list<double>> families)
    {
        VekPatternLines lines;
        for (const auto& family : families) {
            CVekArrayTempl<double>& numbers = lines[lines.len()];
            for (const double number : family)
                numbers.append(number);
        }
        m_app.hatchPatternSet(name, lines);
    }
    ~Host() { vekAppSet(m_before); }

private:
    CVekLocalApp m_app;
    CVekApp* m_before = vekAppSet(&m_app);
};

struct Piece {
    double x0, y0, x1, y1;
    auto operator<=>(const Piece&) const = default;
};

std::vector<Piece> pieces(const Lines& lines)
{
    std::vector<Piece> list;
    for (const CVekVertexArray& line : lines) {
        for (const CVekVertex& v : line)
            list.push_back({v.start[0], v.start[1], v.end[0], v.end[1]});
    }
    return list;
}

void expectPieces(const std::vector<Piece>& actual, const std::vector<Piece>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        const Piece &a = actual[i], &e = expected[i];
        EXPECT_NEAR(
            std::max({std::fabs(a.x0 - e.x0), std::fabs(a.y0 - e.y0), std::fabs(a.x1 - e.x1), std::fabs(a.y1 - e.y1)}),
            0.0, kTolerance)
            << i << ": " << a.x0 << ' ' << a.y0 << ' ' << a.x1 << ' ' << a.y1;
    }
}

std::vector<double> heights(const Lines& lines)
{
    std::vector<double> list;
    for (const CVekVertexArray& line : lines)
        list.push_back(line[0].start[1]);
    return list;
}

// --- The slow way.

CVekMatrix3d rotation(double angle)
{
    return CVekMatrix3d().setToRotation(angle, CVekVector3d::kZAxis, CVekPoint3d::kOrigin);
}

CVekVertexArray joined(const Lines& list)
{
    CVekVertexArray all;
    for (const CVekVertexArray& vl : list)
        all += vl;
    return all;
}

CVekPoint3dArray regionLineCuts(const Region& local, const CVekVertexArray& line)
{
    CVekPoint3dArray cuts, found;
    for (const CVekVertexArray& contour : local) {
        line.intersectWith(found, contour, 3);
        for (const CVekPoint3d& p : found) {
            const auto same = [&](const CVekPoint3d& q) { return p.distanceTo(q) <= VEK::kPointTol; };
            if (std::none_of(cuts.begin(), cuts.end(), same))
                cuts.append(p);
        }
    }
    if (cuts.len() % 2 != 0)
        cuts.setLogicalLength(0);
    cuts.sort(line[0].start - line[0].end);
    return cuts;
}

bool splitKeeps(const Region& local, const CVekVertex& v, const CVekPoint3d& at, CVekVertexArray& hit)
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

CVekVertexArray clipped(const Region& local, const CVekVertexArray& line, const CVekVertexArray& piece, bool dashed)
{
    CVekVertexArray hit;
    const CVekPoint3dArray cuts = regionLineCuts(local, line);
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

void slowFamily(const Region& plane, const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch,
                const CVekArrayTempl<double>& L, Lines& result)
{
    const CVekPoint3dArray whole = VEK::vl_extmax(plane[0], 0.0);
    const double diag = whole[0].distanceTo(whole[1]);
    const double a = L[0] * kPi / 180, dx = hatch.scale * L[3], dy = hatch.scale * L[4];
    const bool gravel = hatch.name == L"GRAVEL", fine = hatch.scale < 1.0;
    CVekMatrix3d frame;
    frame.setCoordSystem({}, VEK::polar(a, 1.0), VEK::polar(a + kPi / 2, 1.0), CVekVector3d::kZAxis);
    const CVekMatrix3d toFrame = frame.inverse();
    Region local = plane;
    for (CVekVertexArray& contour : local)
        contour.transformBy(toFrame);
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
    const CVekPoint3d middle = CVekPoint3d(hatch.scale * L[1], hatch.scale * L[2], 0.0) * toFrame;
    CVekVertexArray line(CVekVertex(middle - CVekVector3d(half, 0, 0), middle + CVekVector3d(half, 0, 0)));
    const CVekVector3d forward(dy > 0 ? dx : -dx, std::fabs(dy), 0.0);
    const auto cuts = [&](const CVekVertexArray& vl) {
        return vl.len() > 0 && CVekVertexArray(CVekVertex(vl[0].start, vl[-1].end)).intersectWith(local[0], 0);
    };
    while (dy != 0.0 && line[0].mid()[1] > ext[0][1])
        line.move(-forward);
    const int tries = count * (gravel && fine ? 200 : 20);
    for (int i = 0; i < tries; ++i) {
        line.move(-forward);
        if (!cuts(line.getTransformedCopy(rotation(hatch.angle))))
            break;
    }
    bool reached = false;
    for (int i = 0; i < tries * 3; ++i) {
        line.move(forward);
        const CVekVertexArray turned = line.getTransformedCopy(rotation(hatch.angle));
        CVekVertexArray piece = line;
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

Lines slowHatch(Region plane, const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(hatch.name, lines);
    for (CVekVertexArray& contour : plane)
        contour.transformBy(mtx.inverse());
    Lines result;
    for (const CVekArrayTempl<double>& family : lines)
        slowFamily(plane, mtx, hatch, family, result);
    return result;
}

/// Both ways give the same lines with the same pieces; of a line the order of pieces is free.
/// @return the number of pieces
std::size_t expectSame(const Region& reg, const CVekMatrix3d& mtx, const VEK::CHatchProp& hatch)
{
    const Lines quick = vek_gdx_image_reg_hatch2(reg, mtx, hatch);
    const Lines slow = slowHatch(reg, mtx, hatch);
    EXPECT_EQ(quick.len(), slow.len());
    std::size_t count = 0;
    for (int i = 0; i < std::min(quick.len(), slow.len()); ++i) {
        const auto sorted = [](const CVekVertexArray& line) {
            std::vector<Piece> list;
            for (const CVekVertex& v : line) {
                if (v.start.distanceTo(v.end) > 10 * kTolerance)
                    list.push_back({v.start[0], v.start[1], v.end[0], v.end[1]});
            }
            const CVekVector3d along = line[0].end - line[0].start;
            std::sort(list.begin(), list.end(), [&](const Piece& a, const Piece& b) {
                const auto at = [&](const Piece& p) {
                    return CVekVector3d(p.x0 + p.x1, p.y0 + p.y1, 0).dot(along) +
                           1e-3 * CVekVector3d(p.x1 - p.x0, p.y1 - p.y0, 0).dot(along);
                };
                return at(a) < at(b);
            });
            return list;
        };
        expectPieces(sorted(quick[i]), sorted(slow[i]));
        count += static_cast<std::size_t>(quick[i].len());
    }
    return count;
}

CVekVertexArray star(std::mt19937& random, double x, double y, double r, bool arcs)
{
    std::uniform_real_distribution<double> part(0.3, 1.0), bulge(-0.3, 0.3);
    const int corners = std::uniform_int_distribution<int>(3, 12)(random);
    CVekPoint3dArray points;
    for (int i = 0; i < corners; ++i) {
        const double distance = r * part(random), angle = 2 * kPi * i / corners;
        points.append({x + distance * std::cos(angle), y + distance * std::sin(angle), 0});
    }
    CVekVertexArray vl = CVekVertexArray().fromPoints(points, true);
    for (CVekVertex& v : vl)
        v.bulge = arcs ? bulge(random) : 0.0;
    return vl;
}

// --- Plain hatches.

TEST(DrawHatch, DotsStandInRowsFromTheLowerEdge)
{
    const Lines dots = vek_gdx_image_reg_hatch(region({box(0, 0, 10, 10)}), {}, L"DOTS", 2.0, 0.7);
    ASSERT_EQ(dots.len(), 36);
    for (int i = 0; i < 36; ++i) {
        EXPECT_NEAR(dots[i][0].start[0], 2.0 * (i % 6), kTolerance);
        EXPECT_NEAR(dots[i][0].end[1], 2.0 * (i / 6), kTolerance);
        EXPECT_EQ(dots[i][0].start, dots[i][0].end);
    }
    // Behind a hole the dots begin anew: one row, at y = 0.5, through a hole from 3.5 to 6.25.
    const Lines row = vek_gdx_image_reg_hatch(region({box(0, 0.5, 8, 2), box(3.5, 0, 6.25, 1.5)}), {}, L"DOTS", 1.6, 0);
    std::vector<double> stations;
    for (const CVekVertexArray& dot : row)
        stations.push_back(dot[0].start[0]);
    const std::vector<double> expected{0, 1.6, 3.2, 6.25, 7.85};
    ASSERT_EQ(stations.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(stations[i], expected[i], kTolerance);
}

TEST(DrawHatch, LinesAreAsManyAsTheSpreadHasWholeUnits)
{
    const auto count = [](double from, double to, double pitch) {
        return vek_gdx_image_reg_hatch(region({box(0, from, 0.5, to)}), {}, L"", pitch, 0).len();
    };
    EXPECT_EQ(count(0.1, 0.9, 0.01), 0);
    EXPECT_EQ(vek_gdx_image_reg_hatch(region({box(0.1, 0.1, 0.9, 0.2)}), {}, L"", 0.01, 0).len(), 0);
    EXPECT_EQ(count(-0.5, 5.5, 1.0), 5);
    EXPECT_EQ(count(0.0, 6.0, 1.0), 6);
    EXPECT_EQ(count(0.0, 6.0, 0.5), 6); // stops short
    EXPECT_EQ(count(0.0, 6.0, 2.0), 4); // 0, 2, 4, 6; the other two lie past the region
    expectPieces(pieces(vek_gdx_image_reg_hatch(region({box(0, 0, 3, 2), box(1, -1, 2, 1.5)}), {}, L"any", 1.0, 0)),
                 {{0, 0, 1, 0}, {2, 0, 3, 0}, {0, 1, 1, 1}, {2, 1, 3, 1}, {0, 2, 3, 2}});
}

TEST(DrawHatch, PositiveAnglesTiltClockwise)
{
    // From the lower corner in the direction of -45 degrees: of the box in the turned frame that corner lies at (0, 0)
    // for the square, beside the corner (0, 0), sqrt(8) / 2 below its middle along the lines.
    CVekMatrix3d mtx;
    mtx.setToTranslation({100, 0, 5});
    const Lines lines = vek_gdx_image_reg_hatch(region({box(100, 0, 104, 4)}), mtx, L"", std::sqrt(2.0), kPi / 4);
    ASSERT_EQ(lines.len(), 3); // of 4 lines the first one touches a corner
    expectPieces(pieces(lines), {{100, 2, 102, 0}, {100, 4, 104, 0}, {102, 4, 104, 2}});
    EXPECT_NEAR(lines[0][0].start[2], 0.0, kTolerance); // the lowest height of the contour
}

TEST(DrawHatch, ImpossibleNumbersGiveNothing)
{
    const double inf = std::numeric_limits<double>::infinity(), nan = VEK::nan();
    const Region square = region({box(0, 0, 10, 10)});
    for (const double pitch : {0.0, -1.0, nan, inf}) {
        EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, L"", pitch, 0).len(), 0);
        EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, L"DOTS", pitch, 0).len(), 0);
    }
    EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, L"", 1, nan).len(), 0);
    EXPECT_EQ(vek_gdx_image_reg_hatch({}, {}, L"", 1, 0).len(), 0);
    EXPECT_EQ(vek_gdx_image_reg_hatch(region({{}}), {}, L"DOTS", 1, 0).len(), 0);
    for (const double far : {1e200, -1.7e308}) {
        for (const double angle : {0.0, 0.7}) {
            const Region huge = region({box(far, -far, 10, 10)});
            EXPECT_EQ(vek_gdx_image_reg_hatch(huge, {}, L"", 1, angle).len(), 0);
            EXPECT_EQ(vek_gdx_image_reg_hatch2(huge, {}, {L"_U", angle, 1, true}).len(), 0);
        }
    }
    for (const double bad : {nan, inf}) {
        const Region broken = region({box(0, 0, bad, 10)});
        EXPECT_EQ(vek_gdx_image_reg_hatch(broken, {}, L"", 1, 0).len(), 0);
        EXPECT_EQ(vek_gdx_image_reg_hatch(broken, {}, L"DOTS", 1, 0).len(), 0);
        EXPECT_EQ(vek_gdx_image_reg_hatch2(broken, {}, {L"_U", 0, 1, true}).len(), 0);
        for (const VEK::CHatchProp& hatch : {VEK::CHatchProp(L"_U", bad, 1, false), {L"_U", 0, bad, false}})
            EXPECT_EQ(vek_gdx_image_reg_hatch2(square, {}, hatch).len(), 0);
    }
    EXPECT_EQ(vek_gdx_image_reg_hatch(square, {}, L"DOTS", 1e-9, 0).len(), VEK::kHatchPieces);
}

// --- Patterns.

TEST(DrawPattern, UserPatternIsSolidAndMayBeCrossed)
{
    const Region square = region({box(0, 0, 10, 10)});
    const Lines level = vek_gdx_image_reg_hatch2(square, {}, {L"_USER", 0, 2, false});
    expectPieces(pieces(level),
                 {{10, 0, 0, 0}, {10, 2, 0, 2}, {10, 4, 0, 4}, {10, 6, 0, 6}, {10, 8, 0, 8}, {10, 10, 0, 10}});
    const Lines both = vek_gdx_image_reg_hatch2(square, {}, {L"_U", 0, 2, true});
    ASSERT_EQ(both.len(), 12); // the upright ones come first
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(both[i][0].start[0], both[i][0].end[0], kTolerance);
    EXPECT_EQ(heights(region({both[6], both[7]})), (std::vector<double>{0, 2}));
    EXPECT_EQ(vek_gdx_image_reg_hatch2(square, {}, {L"UNKNOWN", 0, 2, true}).len(), 0);
}

TEST(DrawPattern, LinesThroughALoneCornerAreLeftOut)
{
    // The line at y = 2 meets the point of the roof alone, that at y = 1 a corner of the outline and two sides.
    const Region house = region({polygon({{0, -0.5}, {4, -0.5}, {4, 1}, {2, 2}, {0, 0.5}})});
    EXPECT_EQ(heights(vek_gdx_image_reg_hatch2(house, {}, {L"_U", 0, 1, false})), (std::vector<double>{0, 1}));
    const Region notch = region({polygon({{0, -0.5}, {4, -0.5}, {4, 3}, {2, 1}, {0, 3}})});
    EXPECT_EQ(heights(vek_gdx_image_reg_hatch2(notch, {}, {L"_U", 0, 1, false})), (std::vector<double>{0, 2}));
}

TEST(DrawPattern, ADashOverANarrowHoleKeepsThePartBeforeTheCut)
{
    // Dashes from 0 to 10 and on to 20, and a hole from 6 to 7: the stretch from 7 to 15 keeps 0 to 7 of the first
    // dash, whose middle is inside, and the one before the hole 0 to 6.
    const Host host(L"LONG", {{0, 0, 0.5, 0, 9, 10, 10}});
    const Lines lines =
        vek_gdx_image_reg_hatch2(region({box(0, 0, 15, 1), box(6, -1, 7, 2)}), {}, {L"LONG", 0, 1, false});
    expectPieces(pieces(lines), {{0, 0.5, 7, 0.5}, {10, 0.5, 15, 0.5}, {0, 0.5, 6, 0.5}});
}

TEST(DrawPattern, AgreesWithFollowingTheLineStepByStep)
{
    std::mt19937 random(7);
    const auto any = [&](double from, double to) { return std::uniform_real_distribution<double>(from, to)(random); };
    std::size_t count = 0, empty = 0;
    for (int round = 0; round < 24; ++round) {
        SCOPED_TRACE(round);
        const bool arcs = round % 3 == 0;
        Region reg = region({star(random, any(-20, 20), any(-20, 20), 10, arcs)});
        const CVekPoint3d middle = reg[0][0].mid();
        for (int hole = 0; hole < round % 3; ++hole)
            reg.append(star(random, middle[0] - any(0, 8), middle[1] + any(-5, 5), any(0.5, 4), arcs));
        CVekMatrix3d mtx = rotation(any(-3, 3));
        mtx *= CVekMatrix3d().setToTranslation({any(-5, 5), any(-5, 5), 0});
        for (CVekVertexArray& contour : reg)
            contour.transformBy(mtx);
        const double sign = round % 2 ? -1.0 : 1.0;
        const Host host(L"A", {{any(-180, 180), any(-3, 3), any(-3, 3), any(-1, 1), sign * any(0.7, 3)},
                               {any(0, 90), any(-3, 3), 0, any(-2, 2), any(0.7, 3), any(0.5, 4), -any(0.5, 2), 0, -0.5},
                               {90, 0, 0, 0, any(1, 3), -any(0.2, 1), any(0.2, 3)}});
        const std::size_t pieceCount = expectSame(reg, mtx, {L"A", round % 4 ? any(-3, 3) : 0.0, any(0.6, 1.5), false});
        count += pieceCount;
        empty += pieceCount == 0;
    }
    EXPECT_GT(count, 1000u);
    EXPECT_LT(empty, 8u);
}

TEST(DrawPattern, MissesWhatTheSearchMisses)
{
    const Host host(L"GRAVEL", {{0, 0, 0, 0, 1, 2, -1}, {30, 0, 0, 3, 1, 1, -0.5}});
    std::size_t hits = 0, misses = 0;
    for (const wchar_t* name : {L"GRAVEL", L"_U"}) {
        for (const double aside : {0.0, 212.0, 600.0, 2000.0, 9000.0}) {
            for (const double angle : {0.0, 0.5, 3.0}) {
                SCOPED_TRACE(testing::Message() << name << ' ' << aside << ' ' << angle);
                const Region reg = region({box(aside, 3, aside + 10, 10)});
                if (name[0] == L'_') {
                    const Host user(L"U1", {{0, 0, 0, 0, 1}});
                    (expectSame(reg, {}, {L"U1", angle, 0.9, false}) > 0 ? hits : misses) += 1;
                } else {
                    (expectSame(reg, {}, {name, angle, aside > 500 ? 0.9 : 1.1, false}) > 0 ? hits : misses) += 1;
                }
            }
        }
    }
    EXPECT_GT(hits, 5u);
    EXPECT_GT(misses, 5u);
}

TEST(DrawPattern, PatternsPastAllMeasureEnd)
{
    const Region square = region({box(0, 0, 10, 10)});
    const double nan = VEK::nan();
    {
        const Host host(
            L"STEPS",
            {{0, 0, 0, 0, 0}, {0, 0, 0, 1}, {0}, {0, 0, 0, 0, 1e-9}, {0, 0, 0, 0, 1e-300}, {0, 0, 0, nan, 1}});
        EXPECT_EQ(vek_gdx_image_reg_hatch2(square, {}, {L"STEPS", 0, 1, false}).len(), 0);
    }
    {
        const Host host(L"GAPS", {{0, 0, 0, 0, 1, -1, -1}, {0, 0, 0, 0, 1, 1e-12, -1e-12}});
        EXPECT_EQ(pieces(vek_gdx_image_reg_hatch2(square, {}, {L"GAPS", 0, 1, false})).size(), 0u);
    }
    const Host host(L"FAR", {{0, 1e12, 1e12, 0, 1e-3}, {0, 0, 0, 0, 1, 1e-6, -1e-6}});
    EXPECT_LE(pieces(vek_gdx_image_reg_hatch2(square, {}, {L"FAR", 0, 1, false})).size(),
              std::size_t(VEK::kHatchPieces));
    // Open and broken contours and empty ones.
    CVekVertexArray open = box(0, 0, 10, 10);
    open.setLogicalLength(3);
    CVekVertexArray broken = box(0, 0, 10, 10);
    broken.removeAt(1);
    const Host plain(L"P", {{0, 0.3, 0.3, 0, 1, 2, -1}});
    EXPECT_GT(expectSame(region({open}), {}, {L"P", 1.0, 1, false}), 0u);
    expectSame(region({broken}), {}, {L"P", 0.4, 1, false});
    EXPECT_EQ(vek_gdx_image_reg_hatch2(region({{}, box(0, 0, 5, 5)}), {}, {L"P", 0, 1, false}).len(), 0);
    EXPECT_EQ(vek_gdx_image_reg_hatch2({}, {}, {L"P", 0, 1, false}).len(), 0);
    EXPECT_GT(expectSame(region({circle(0, 0, 5), circle(1, 0, 2)}), {}, {L"P", 0.4, 1, false}), 0u);
}

TEST(DrawPattern, ExamplePatternsAllDraw)
{
    const std::filesystem::path path = std::filesystem::path(VEK_SOURCE_DIR) / "examples" / "patterns" / "vek.pat";
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    CVekString error;
    ASSERT_TRUE(VEK::hatchPatternsLoad(patterns, path.wstring().c_str(), error));
    EXPECT_GE(patterns.len(), 20);
    int gravel = 0;
    for (const VEK::CHatchPattern& pattern : patterns) {
        CVekLocalApp app;
        app.hatchPatternSet(pattern.name, pattern.lines);
        CVekApp* const before = vekAppSet(&app);
        const Region reg = region({box(-31, -33, 37, 35)});
        const VEK::CHatchProp hatch(pattern.name, 0, 1, false);
        // Wide enough that each family shows.
        EXPECT_GE(vek_gdx_image_reg_hatch2(reg, {}, hatch).len(), pattern.lines.len()) << pattern.name.len();
        EXPECT_TRUE(vek_gdx_pattern_test(reg, hatch, CVekMatrix3d().setToScaling(4.0, {})));
        gravel += pattern.name == L"GRAVEL" ? pattern.lines.len() : 0;
        vekAppSet(before);
    }
    EXPECT_GE(gravel, 40);
}

TEST(DrawPattern, EndOfMemoryGivesNothing)
{
    struct Full : CVekLocalApp {
        void hatchPatternGet(const wchar_t*, VekPatternLines&) override { throw std::bad_alloc(); }
    } full;
    CVekApp* const before = vekAppSet(&full);
    EXPECT_EQ(vek_gdx_image_reg_hatch2(region({box(0, 0, 9, 9)}), {}, {L"P", 0, 1, false}).len(), 0);
    vekAppSet(before);
}

TEST(DrawPatternTest, LimitsAreStrict)
{
    const Host host(L"P", {{0, 0, 0, 0, 3}});
    const auto test = [](double height, double scale, double factor) {
        CVekMatrix3d mtx;
        mtx.setToScaling(factor, {});
        return vek_gdx_pattern_test(region({box(0, 0, 1, height)}), {L"P", 0, scale, false}, mtx);
    };
    EXPECT_FALSE(test(9, 1, 0.5)); // a step of 1.5
    EXPECT_TRUE(test(94 * 3, 1, 10));
    EXPECT_FALSE(test(95 * 3, 1, 10));
    EXPECT_TRUE(test(95 * 3, 1.01, 10));
    EXPECT_TRUE(test(95 * 3, -1, 10)); // a step downwards counts no lines
    const Host fine(L"P", {{90, 0, 0, 2.3, 0}, {0, 0, 0, 0, 50}});
    EXPECT_FALSE(test(1, 1, 1));
    EXPECT_TRUE(test(1, 1.001, 1));
    EXPECT_FALSE(test(2.3 * 95, 1, 2)); // the height lies along the family's x axis
    EXPECT_TRUE(vek_gdx_pattern_test(region({box(0, 0, 1, 1e9)}), {L"_USER", 0, 1e-9, false}, {}));
    EXPECT_TRUE(vek_gdx_pattern_test({}, {L"nobody's", 0, 1, false}, {}));
    EXPECT_FALSE(test(1, 0, 1));
    EXPECT_TRUE(vek_gdx_pattern_test({}, {L"P", 0, 2, false}, {}));
}

} // namespace
