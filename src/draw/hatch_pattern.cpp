#include "core/values/stepping.h"
#include "draw/hatch_dashes.h"
#include "draw/hatch_plane.h"
#include "draw/hatch_rows.h"

#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/host.h>
#include <vek/values/units.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>
#include <numbers>

namespace
{

using VEK::detail::cutToInt;
using VEK::detail::HatchDashes;
using VEK::detail::HatchRows;
using VEK::plane::Box;
using VEK::plane::Vec;

constexpr double kDotLength = 0.2; // millimetres
constexpr double kMostLines = 95.0;
constexpr double kLeastStep = 2.3;

/// Parallel to the hatch plane, for a normal.
constexpr double kLevel = 1e-9;

/// Steps beyond this are no longer told apart by a double.
constexpr double kMostSteps = 4e15;

/// The product as 32 bits keep it.
std::int32_t times(std::int32_t a, std::uint32_t b)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * b);
}

bool isUserPattern(const CVekString& name)
{
    return name == L"_USER" || name == L"_U";
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

/// The box around a contour in the frame whose x axis points along an angle.
Box turnedBox(const CVekVertexArray& contour, double angle)
{
    const double cosine = std::cos(angle), sine = std::sin(angle);
    const auto turned = [=](const CVekPoint3d& p) {
        return Vec{p[0] * cosine + p[1] * sine, p[1] * cosine - p[0] * sine};
    };
    Box box{};
    bool first = true;
    for (const CVekVertex& vertex : contour) {
        const Vec start = turned(vertex.start), end = turned(vertex.end);
        if (first)
            box = {start, start};
        first = false;
        box.add(start);
        box.add(end);
        if (vertex.bulge != 0.0) {
            const Box arc = VEK::plane::Arc(start, end, contour.normal()[2] < 0.0 ? -vertex.bulge : vertex.bulge).box();
            box.add(arc.min);
            box.add(arc.max);
        }
    }
    return box;
}

/// Collects hatch lines in the world.
class Collector
{
public:
    explicit Collector(const CVekMatrix3d& toWorld) : m_toWorld(toWorld), m_normal(CVekVector3d::kZAxis * toWorld) {}

    bool isFull() const { return m_count >= VEK::kHatchPieces || m_dashes >= VEK::kHatchPieces; }

    /// Counts a dash that is looked at, since not every one leaves a piece.
    /// @return whether another one may be
    bool count() { return ++m_dashes < VEK::kHatchPieces; }

    /// Sets the angle of the lines to come.
    void turn(double angle)
    {
        m_along = CVekVector3d(std::cos(angle), std::sin(angle), 0.0) * m_toWorld;
        m_across = CVekVector3d(-std::sin(angle), std::cos(angle), 0.0) * m_toWorld;
    }

    void add(double y, const std::vector<HatchRows::Stretch>& pieces)
    {
        const int count = std::min(static_cast<int>(pieces.size()), VEK::kHatchPieces - m_count);
        if (count <= 0)
            return;
        m_count += count;
        const CVekPoint3d row = (m_toWorld.translation() + m_across * y).asPoint();
        CVekVertexArray& line = m_lines[m_lines.len()];
        line.setNormal(m_normal);
        line.reserve(count);
        for (int i = 0; i < count; ++i) {
            const HatchRows::Stretch& piece = pieces[static_cast<std::size_t>(i)];
            line.append(CVekVertex(row + m_along * piece.from, row + m_along * piece.to));
        }
    }

    CVekArrayTempl<CVekVertexArray> lines() { return std::move(m_lines); }

private:
    const CVekMatrix3d& m_toWorld;
    CVekVector3d m_normal;
    CVekVector3d m_along;
    CVekVector3d m_across;
    int m_count = 0; ///< pieces
    int m_dashes = 0;
    CVekArrayTempl<CVekVertexArray> m_lines;
};

/// A family of lines, in the frame in which they are level. Line number m lies m steps from the pattern's first point.
class Family
{
public:
    Family(const CVekArrayTempl<CVekVertexArray>& region, const VEK::CHatchProp& hatch,
           const CVekArrayTempl<double>& numbers, double dot)
        : m_region(region), m_angle(radians(numbers[0])), m_turn(m_angle + hatch.angle),
          m_dashes(numbers, hatch.scale, dot)
    {
        const double x = hatch.scale * numbers[1], y = hatch.scale * numbers[2];
        m_x = x * std::cos(m_angle) + y * std::sin(m_angle);
        m_y = y * std::cos(m_angle) - x * std::sin(m_angle);
        // Lines are counted upwards, whichever way the step goes.
        const double distance = hatch.scale * numbers[4];
        m_stepX = hatch.scale * (distance < 0.0 ? -numbers[3] : numbers[3]);
        m_stepY = std::fabs(distance);
        m_isGravel = hatch.name == L"GRAVEL";
        m_isFine = hatch.scale < 1.0;
    }

    double turn() const { return m_turn; }

    /// Finds the lines that are drawn.
    bool search(const CVekPoint3d& min, const CVekPoint3d& max, HatchRows& rows);

    void draw(HatchRows& rows, Collector& collector);

private:
    double start(long long line) const { return m_x + static_cast<double>(line) * m_stepX - m_half; }
    bool findReach(double diagonal);
    void findCovered(const HatchRows& rows);
    long long lineBelow(long long from, long long tries, HatchRows& rows) const;
    void clipDashes(HatchRows& rows, double from, Collector& collector);
    void clipDashes(HatchRows& rows, double from, HatchRows::Stretch stretch, Collector& collector);

    const CVekArrayTempl<CVekVertexArray>& m_region;
    double m_angle;
    double m_turn; ///< with the angle of the hatch
    HatchDashes m_dashes;
    double m_x;
    double m_y;
    double m_stepX;
    double m_stepY;
    bool m_isGravel;
    bool m_isFine;

    double m_half = 0.0;
    long long m_lowest = 0; ///< lines that lie at the height of the region
    long long m_highest = 0;
    bool m_covers = false; ///< these lines reach across the whole outer contour
    long long m_first = 0; ///< lines that are looked at
    long long m_last = -1;
    std::vector<HatchRows::Stretch> m_pieces;
};

/// How far a line reaches to both sides of its middle.
bool Family::findReach(double diagonal)
{
    if (m_dashes.isGiven()) {
        const std::int32_t whole = cutToInt(diagonal / m_dashes.total());
        const double base = (static_cast<double>(whole) + 1.0) * m_dashes.total();
        m_half = base * (m_isGravel ? (m_isFine ? 200.0 : 150.0) : 20.0);
    } else {
        m_half = diagonal * 15.0;
    }
    return m_half > 0.0 && std::isfinite(m_half) && (!m_dashes.isGiven() || m_dashes.draws());
}

bool Family::search(const CVekPoint3d& min, const CVekPoint3d& max, HatchRows& rows)
{
    if (!std::isfinite(m_x + m_y + m_stepX + m_stepY + m_turn) || !(m_stepY > 0.0) || !findReach(min.distanceTo(max)))
        return false;
    const Box local = turnedBox(m_region[0], m_angle);
    const CVekVector3d size(local.max.x - local.min.x, local.max.y - local.min.y, max[2] - min[2]);
    // In 32 bits, as the numbers of tries have always been: too many lines give none.
    const std::int32_t tries = times(cutToInt(size.abs() / m_stepY + 1.0), m_isGravel && m_isFine ? 200 : 20);
    const double lowest = std::ceil((rows.box().min.y - rows.tolerance() - m_y) / m_stepY);
    const double highest = std::floor((rows.box().max.y + rows.tolerance() - m_y) / m_stepY);
    const double back = m_y > local.min.y ? std::ceil((m_y - local.min.y) / m_stepY) : 0.0;
    if (tries <= 0 || !(std::fabs(lowest) + std::fabs(highest) + back < kMostSteps) ||
        highest - lowest >= VEK::kHatchLines)
        return false;
    m_lowest = static_cast<long long>(lowest);
    m_highest = static_cast<long long>(highest);
    rows.lay(m_y, m_stepY, m_lowest, m_highest);
    findCovered(rows);
    const long long below = lineBelow(-static_cast<long long>(back), tries, rows);
    m_first = std::max(below + 1, m_lowest);
    m_last = std::min(below + times(tries, 3), m_highest);
    return m_first <= m_last;
}

void Family::findCovered(const HatchRows& rows)
{
    const double from = m_dashes.isGiven() ? m_dashes.firstStart() : 0.0;
    const double to = m_dashes.isGiven() ? m_dashes.lastEnd(2.0 * m_half) : 2.0 * m_half;
    m_covers = rows.isContinuous();
    for (const long long line : {m_lowest, m_highest})
        m_covers = m_covers && start(line) + from < rows.box().min.x - rows.tolerance() &&
                   start(line) + to > rows.box().max.x + rows.tolerance();
}

/// Goes back from a line while lines meet the outer contour.
/// @return the line before the first one that is drawn
long long Family::lineBelow(long long from, long long tries, HatchRows& rows) const
{
    long long missing = from - 1;
    if (missing >= m_lowest && missing <= m_highest) {
        missing = m_lowest - 1;
        if (!m_covers) {
            rows.rewind();
            for (long long line = m_lowest; line < from; ++line) {
                rows.cut(line, start(line), start(line) + 2.0 * m_half);
                if (!rows.meetsOuter(start(line), start(line) + 2.0 * m_half))
                    missing = line;
            }
        }
    }
    return std::max(missing, from - tries);
}

void Family::draw(HatchRows& rows, Collector& collector)
{
    const double length = 2.0 * m_half;
    const double first = m_dashes.isGiven() ? m_dashes.firstStart() : 0.0;
    const double last = m_dashes.isGiven() ? m_dashes.lastEnd(length) : length;
    bool reached = false;
    rows.rewind();
    collector.turn(m_turn);
    for (long long line = m_first; line <= m_last && !collector.isFull(); ++line) {
        const double from = start(line);
        rows.cut(line, from, from + length);
        if (!m_covers && !rows.meetsOuter(from + first, from + last)) {
            if (reached)
                return;
            continue;
        }
        reached = true;
        if (m_dashes.isGiven())
            clipDashes(rows, from, collector);
        collector.add(rows.height(line), m_dashes.isGiven() ? m_pieces : rows.pieces());
    }
}

/// Collects the dashes of a row, pair by pair from the line's end to its start.
void Family::clipDashes(HatchRows& rows, double from, Collector& collector)
{
    m_pieces.clear();
    const std::vector<HatchRows::Stretch>& pairs = rows.pairs();
    for (auto pair = pairs.rbegin(); pair != pairs.rend(); ++pair)
        clipDashes(rows, from, *pair, collector);
}

/// Collects the dashes of a stretch. A dash that one of its ends parts keeps the part whose middle is inside; the part
/// before the end comes first, even where the dash reaches over a narrow hole. Drawings show it so.
void Family::clipDashes(HatchRows& rows, double from, HatchRows::Stretch stretch, Collector& collector)
{
    const double tol = rows.tolerance();
    const auto split = [&](HatchRows::Stretch dash, double place) {
        if (place - dash.from <= tol || dash.to - place <= tol)
            return;
        if (rows.isInside(0.5 * (dash.from + place)))
            rows.punch({dash.from, place}, m_pieces);
        else if (rows.isInside(0.5 * (place + dash.to)))
            rows.punch({place, dash.to}, m_pieces);
    };
    m_dashes.visit(stretch.from - tol - from, stretch.to + tol - from, 2.0 * m_half, [&](double start, double end) {
        const HatchRows::Stretch dash{from + start, from + end};
        const bool coversStart = dash.from <= stretch.from + tol && dash.to >= stretch.from - tol;
        const bool coversEnd = dash.from <= stretch.to + tol && dash.to >= stretch.to - tol;
        if (coversStart && coversEnd)
            rows.punch(stretch, m_pieces);
        else if (dash.from >= stretch.from - tol && dash.to <= stretch.to + tol)
            rows.punch(dash, m_pieces);
        else
            split(dash, coversStart ? stretch.from : stretch.to);
        return collector.count();
    });
}

/// The lines of a pattern; none for an unknown name.
VekPatternLines patternLines(const CVekString& name)
{
    VekPatternLines lines;
    if (isUserPattern(name)) {
        for (const double number : {0.0, 0.0, 0.0, 0.0, 1.0})
            lines[0].append(number);
    } else {
        vekAppPtr()->hatchPatternGet(name, lines);
    }
    return lines;
}

void drawPattern(const CVekArrayTempl<CVekVertexArray>& region, const VEK::CHatchProp& hatch, Collector& collector)
{
    CVekPoint3d min, max;
    if (!region[0].extents(min, max))
        return;
    const double dot = VEK::acadUnitCv(kDotLength, Vek::unitMillimetre, Vek::unitCurrent);
    const VekPatternLines lines = patternLines(hatch.name);
    for (const CVekArrayTempl<double>& numbers : lines) {
        Family family(region, hatch, numbers, dot);
        if (!std::isfinite(family.turn()))
            continue;
        HatchRows rows(region, family.turn());
        if (family.search(min, max, rows))
            family.draw(rows, collector);
    }
}

} // namespace

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                         const VEK::CHatchProp& hatch)
try {
    if (!VEK::detail::isFinite(mtx))
        return {};
    const CVekMatrix3d toPlane = mtx.inverse();
    for (CVekVertexArray& contour : regl) {
        if (!(toPlane == CVekMatrix3d::kIdentity))
            contour.transformBy(toPlane);
        const CVekVector3d& normal = contour.normal();
        if (std::fabs(normal[0]) + std::fabs(normal[1]) > kLevel && VEK::plane::hasArcs(contour))
            contour = VEK::plane::inFineChords(contour);
    }
    if (regl.len() == 0 || !VEK::detail::isFinite(regl))
        return {};
    Collector collector(mtx);
    if (isUserPattern(hatch.name) && hatch.crossed) {
        VEK::CHatchProp across = hatch;
        across.angle = VEK::g_ang(hatch.angle + std::numbers::pi / 2);
        drawPattern(regl, across, collector);
    }
    drawPattern(regl, hatch, collector);
    return collector.lines();
} catch (const std::bad_alloc&) {
    return {};
}

bool vek_gdx_pattern_test(CVekArrayTempl<CVekVertexArray> regl, const VEK::CHatchProp& hatch, const CVekMatrix3d& mtx)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(hatch.name, lines);
    if (lines.len() == 0)
        return true;
    double most = std::numeric_limits<double>::lowest();
    double least = std::numeric_limits<double>::max();
    for (const CVekArrayTempl<double>& numbers : std::as_const(lines)) {
        const Box box = turnedBox(regl[0], radians(numbers[0]));
        const auto count = [&](double number, double size) {
            const double step = hatch.scale * number;
            if (number == 0.0 || !std::isfinite(step))
                return;
            most = std::max(most, size / step);
            least = std::min(least, std::fabs(step));
        };
        count(numbers[3], box.max.x - box.min.x);
        count(numbers[4], box.max.y - box.min.y);
    }
    least *= (CVekVector3d::kXAxis * mtx).abs();
    return most < kMostLines && least > kLeastStep;
}
