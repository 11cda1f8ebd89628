// Arcs to chords, and polylines to dashes: by hand, and beside a way that follows the rules entry by entry.
#include "shapes.h"

#include <vek/draw/split.h>
#include <vek/values.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace
{

using shapes::line;
using shapes::numbers;

constexpr double kTolerance = 1e-6;

CVekVertexArray run(double length)
{
    return CVekVertexArray(line(0, 0, length, 0));
}

void expectStations(CVekVertexArray vl, const std::vector<double>& pattern, int mode,
                    const std::vector<double>& expected)
{
    ASSERT_TRUE(vek_gdx_image_vl_measure(vl, numbers(pattern), mode));
    ASSERT_EQ(2u * static_cast<unsigned>(vl.len()), expected.size());
    for (int i = 0; i < vl.len(); ++i) {
        EXPECT_NEAR(vl[i].start[0], expected[2u * static_cast<unsigned>(i)], kTolerance) << i;
        EXPECT_NEAR(vl[i].end[0], expected[2u * static_cast<unsigned>(i) + 1], kTolerance) << i;
    }
}

// --- The slow way.

using Pieces = std::vector<CVekVertex>;

CVekVertexArray alone(const CVekVertex& vertex, const CVekVector3d& normal)
{
    CVekVertexArray vl(vertex);
    vl.setNormal(normal);
    return vl;
}

/// The part of a flat chain between two stations.
void cut(const CVekVertexArray& chain, double from, double to, Pieces& pieces)
{
    double before = 0.0;
    for (const CVekVertex& v : chain) {
        const double length = v.bulgLen();
        const double a = std::max((from - before) / length, 0.0), b = std::min((to - before) / length, 1.0);
        if ((b - a) * length > 0.0) {
            const double sign = chain.normal()[2] < 0.0 ? -1.0 : 1.0;
            const CVekVertex upright(v.start, v.end, sign * v.bulge);
            pieces.push_back(CVekVertex(shapes::pointAt(upright, a), shapes::pointAt(upright, b),
                                        std::tan(std::atan(v.bulge) * (b - a))));
        }
        before += length;
    }
}

void walk(const CVekVertexArray& chain, const std::vector<double>& entries, Pieces& pieces)
{
    const double total = shapes::lengthOf(chain);
    for (double at = 0.0; at < total - kTolerance;) {
        for (const double entry : entries) {
            if (entry > 0.0 && at < total - kTolerance)
                cut(chain, at, std::min(at + entry, total), pieces);
            at += std::fabs(entry);
        }
    }
}

void arrange(std::vector<double>& d)
{
    for (std::size_t i = 0; i < d.size(); ++i) {
        if (d[i] > 0.21) {
            if (i + 1 == d.size())
                d.push_back(0.0);
            if (d[i + 1] < 0.0) {
                d[0] /= 2;
                d.push_back(d[0]);
                return;
            }
        }
        std::rotate(d.begin(), d.begin() + 1, d.end());
    }
}

Pieces slowMeasure(const CVekVertexArray& vl, std::vector<double> d, int mode)
{
    if (mode == 1)
        arrange(d);
    double total = 0.0;
    for (double& dash : d) {
        total += dash == 0.0 ? 1.0 : std::fabs(dash);
        if (dash == 0.0)
            VEK::acadUnitCv(dash = 0.2, 4, -1);
    }
    const bool level = std::fabs(vl.normal()[2]) > 1.0 - 1e-12;
    const auto gaps = std::count_if(d.begin(), d.end(), [](double dash) { return dash < 0.0; });
    Pieces pieces;
    for (const CVekVertexArray& part : VEK::vl_to_vll(vl)) {
        CVekVertexArray whole;
        whole.setNormal(vl.normal());
        for (const CVekVertex& vertex : part) {
            CVekVertexArray flat = alone(vertex, vl.normal());
            if (mode != 0 || !level)
                flat = VEK::g_vl_expl(flat, VEK::vx_split_dif(vertex, 0.1));
            for (CVekVertex& v : flat)
                v.start[2] = v.end[2] = 0.0;
            const double length = vertex.bulgLen();
            if (mode == 0) {
                whole.CVekArrayTempl<CVekVertex>::operator+=(flat);
            } else if (length - total <= kTolerance / 2) {
                pieces.push_back(vertex);
            } else {
                const double count = std::floor(length / total + 1e-9);
                std::vector<double> own = d;
                for (double& dash : own)
                    dash -= dash < 0.0 ? std::fabs((length - count * total) / (static_cast<double>(gaps) * count)) : 0;
                walk(flat, own, pieces);
            }
        }
        walk(whole, d, pieces);
    }
    return pieces;
}

/// Without what is too short to tell on which side of a joint it falls.
Pieces longOnes(Pieces pieces)
{
    std::erase_if(pieces, [](const CVekVertex& v) { return v.start.distanceTo(v.end) <= kTolerance; });
    return pieces;
}

double apart(const CVekVertex& a, const CVekVertex& b)
{
    return std::max({a.start.distanceTo(b.start), a.end.distanceTo(b.end), std::fabs(a.bulge - b.bulge)});
}

TEST(DrawMeasure, AgreesWithFollowingThePattern)
{
    shapes::Random random(5);
    std::size_t pieceCount = 0, arcs = 0;
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        const Vek::lUnit before = VEK::acad_unit_get();
        VEK::acad_unit_set(random.coin() ? Vek::unitMillimetre : Vek::unitInch);
        std::vector<double> d;
        double total = 0.0;
        for (int i = 2 + random.whole(5); i > 0; --i) {
            d.push_back(random.pick({5, 2.5, 0.3, 0.1, 0, -0.4, -1, -3}));
            total += d.back() == 0.0 ? 1.0 : std::fabs(d.back());
        }
        if (*std::max_element(d.begin(), d.end()) < 0.0)
            d.front() = 0.0;
        CVekVertexArray vl = random.walk(1 + random.whole(6), 30.0);
        for (int i = random.whole(3); i > 0; --i) { // segments of whole patterns, behind gaps
            const double x = random.uniform(-1e3, 1e3), length = total * (1 + random.whole(4));
            vl.append(random.coin() ? line(x, 9, x + length, 9) : line(9, x + length, 9, x));
        }
        if (const int place = random.whole(3); place == 0)
            vl.transformBy(random.motion());
        else if (place == 1)
            vl.move({0, 0, 7});
        const int mode = random.whole(3);
        const Pieces expected = longOnes(slowMeasure(vl, d, mode));
        CVekVertexArray quick = vl;
        ASSERT_TRUE(vek_gdx_image_vl_measure(quick, numbers(d), mode));
        EXPECT_EQ(quick.normal(), vl.normal());
        const Pieces actual = longOnes(Pieces(quick.begin(), quick.end()));
        ASSERT_EQ(actual.size(), expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i) {
            EXPECT_LE(apart(actual[i], expected[i]), kTolerance) << i;
            arcs += actual[i].bulge != 0.0;
        }
        pieceCount += actual.size();
        VEK::acad_unit_set(before);

        const CVekVertexArray split = vek_gdx_image_vl_split(vl);
        Pieces chords;
        for (const CVekVertex& v : vl) {
            const int n = VEK::vx_split_dif(v, v.bulgLen() < 4.0 ? 0.01 : 0.05);
            const CVekVertexArray own = VEK::g_vl_expl(alone(v, vl.normal()), v.bulge == 0.0 ? 1 : n);
            chords.insert(chords.end(), own.begin(), own.end());
        }
        EXPECT_TRUE(std::equal(split.begin(), split.end(), chords.begin(), chords.end()));
        CVekArrayTempl<CVekVertexArray> region;
        region[1] = vl;
        EXPECT_TRUE(vek_gdx_image_reg_split(region).len() == 2 && vek_gdx_image_reg_split(region)[1] == split);
    }
    EXPECT_GT(pieceCount, 10000u);
    EXPECT_GT(arcs, 500u);
}

TEST(DrawMeasure, SegmentsBeginAndEndWithHalfADash)
{
    // 5, -1 becomes 2.5, -1, 2.5; on 12.5 the two gaps grow by 0.25 each.
    expectStations(run(12.5), {5, -1}, 1, {0, 2.5, 3.75, 6.25, 6.25, 8.75, 10, 12.5});
    // Not longer than the pattern: solid, wherever a segment stands and however its length is rounded there.
    for (const double x : {0.0, 5.3, 0.1, -1e5 / 3}) {
        expectStations(CVekVertexArray(line(x, 0, x + 6, 0)), {5, -1}, 1, {x, x + 6});
        expectStations(CVekVertexArray(line(x, 0, x + 12, 0)), {5, -1}, 1,
                       {x, x + 2.5, x + 3.5, x + 6, x + 6, x + 8.5, x + 9.5, x + 12});
    }
}

TEST(DrawMeasure, PatternsPastAllMeasureEnd)
{
    CVekVertexArray solid = run(5);
    EXPECT_FALSE(vek_gdx_image_vl_measure(solid, numbers({3}), 1));
    EXPECT_EQ(solid, run(5));
    expectStations(run(5), {-1, -1}, 1, {});
    expectStations(run(90000), std::vector<double>(1000000, 0.1), 1, {0, 90000}); // searched once
    for (const double bad : {VEK::nan(), HUGE_VAL, 1e300, 1e-300}) {
        for (const int mode : {0, 1})
            expectStations(run(5), {bad, -bad}, mode, {0, 5});
    }
    CVekVertexArray dense{line(0, 0, 3e5, 0), line(0, 1, 3e5, 1), line(0, 2, 3e5, 2)}; // enough for two of them
    const CVekVertex last = dense[-1];
    EXPECT_TRUE(vek_gdx_image_vl_measure(dense, numbers({0.5, -0.5}), 1) && dense.len() > 1000000 && dense[-1] == last);
    CVekVertexArray endless(line(0, 0, HUGE_VAL, 0));
    EXPECT_TRUE(vek_gdx_image_vl_measure(endless, numbers({3, -1}), 1));
    EXPECT_EQ(endless.len(), 1);
}

} // namespace
