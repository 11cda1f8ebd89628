#include "core/values/stepping.h"
#include "core/values/whole.h"
#include "draw/hatch_dashes.h"
#include "draw/hatch_plane.h"
#include "draw/hatch_rows.h"

#include <vek/data/app.h>
#include <vek/draw/hatch.h>
#include <vek/geometry.h>
#include <vek/values/units.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>

namespace
{

using VEK::detail::cutToInt;
using VEK::detail::HatchDashes;
using VEK::detail::HatchRows;
using VEK::detail::HatchScratch;
using VEK::detail::HatchStrokes;
using VEK::detail::HatchView;
using VEK::plane::Box;
using VEK::plane::Vec;

constexpr double kDotLength = 0.2; // millimetres
constexpr double kMostLines = 95.0;
constexpr double kLeastStep = 2.3;

/// Line numbers beyond this are no longer exact in a double.
constexpr double kMostSteps = 4e15;

bool isUserPattern(const CVekString& name)
{
    return name == L"_USER" || name == L"_U";
}

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

/// Coordinates in the frame whose x axis points along an angle.
class TurnedFrame
{
public:
    explicit TurnedFrame(double angle) : m_cosine(std::cos(angle)), m_sine(std::sin(angle)) {}

    Vec operator()(Vec p) const { return {p.x * m_cosine + p.y * m_sine, p.y * m_cosine - p.x * m_sine}; }

private:
    double m_cosine;
    double m_sine;
};

/// The box around a level contour in the frame whose x axis points along an angle.
Box turnedBox(const CVekVertexArray& contour, double angle)
{
    const TurnedFrame turned(angle);
    Box box{};
    bool first = true;
    for (const CVekVertex& vertex : contour) {
        const Vec start = turned({vertex.start[0], vertex.start[1]}), end = turned({vertex.end[0], vertex.end[1]});
        if (first)
            box = {start, start};
        first = false;
        box.add(start);
        box.add(end);
        if (vertex.bulge != 0.0)
            box.add(VEK::plane::Arc(start, end, contour.normal()[2] < 0.0 ? -vertex.bulge : vertex.bulge).box());
    }
    return box;
}

/// Collects hatch lines in the world.
class Collector
{
public:
    Collector(HatchStrokes& strokes, const CVekMatrix3d& toWorld) : m_strokes(strokes), m_toWorld(toWorld)
    {
        strokes.clear(CVekVector3d::kZAxis * toWorld);
    }

    bool isCutShort() const { return m_isCutShort; }
    void cutShort() { m_isCutShort = true; }

    /// Counts a dash that is examined, since not every one produces a piece.
    /// @return false if the limit is reached
    bool count()
    {
        m_isCutShort = m_isCutShort || m_dashes == VEK::kHatchPieces;
        m_dashes += !m_isCutShort;
        return !m_isCutShort;
    }

    /// Sets the angle of the following lines.
    void turn(double angle)
    {
        m_along = CVekVector3d(std::cos(angle), std::sin(angle), 0.0) * m_toWorld;
        m_across = CVekVector3d(-std::sin(angle), std::cos(angle), 0.0) * m_toWorld;
    }

    void add(double y, const std::vector<HatchRows::Stretch>& pieces)
    {
        const int room = VEK::kHatchPieces - m_count;
        m_isCutShort = m_isCutShort || pieces.size() > static_cast<std::size_t>(room);
        const int count = std::min(static_cast<int>(pieces.size()), room);
        if (count <= 0)
            return;
        m_count += count;
        m_strokes.add((m_toWorld.translation() + m_across * y).asPoint(), m_along, pieces.data(), count);
    }

private:
    HatchStrokes& m_strokes;
    const CVekMatrix3d& m_toWorld;
    CVekVector3d m_along;
    CVekVector3d m_across;
    int m_count = 0; ///< pieces
    int m_dashes = 0;
    bool m_isCutShort = false;
};

/// A family of lines, in the frame in which they are level. Line number m lies m steps from the pattern's first point.
class Family
{
public:
    /// @param angle of the hatch
    Family(const CVekArrayTempl<CVekVertexArray>& region, const VEK::CHatchProp& hatch, double angle,
           std::span<const double> numbers, double dot, HatchScratch& scratch)
        : m_region(region), m_angle(radians(at(numbers, 0))), m_turn(m_angle + angle), m_rows(scratch.rows),
          m_dashes(scratch.dashes), m_pieces(scratch.pieces)
    {
        m_dashes.assign(numbers.subspan(std::min<std::size_t>(numbers.size(), 5)), hatch.scale, dot);
        const double x = hatch.scale * at(numbers, 1), y = hatch.scale * at(numbers, 2);
        m_x = x * std::cos(m_angle) + y * std::sin(m_angle);
        m_y = y * std::cos(m_angle) - x * std::sin(m_angle);
        // Lines are counted upwards, whatever the direction of the step.
        const double distance = hatch.scale * at(numbers, 4), shift = at(numbers, 3);
        m_stepX = hatch.scale * (distance < 0.0 ? -shift : shift);
        m_stepY = std::fabs(distance);
        m_isGravel = hatch.name == L"GRAVEL";
        m_isFine = hatch.scale < 1.0;
    }

    double turn() const { return m_turn; }

    /// Skips everything wholly outside a part of the hatch plane.
    void see(const HatchView& view);

    /// Determines which lines are drawn.
    bool search(const CVekPoint3d& min, const CVekPoint3d& max, Collector& collector);

    void draw(Collector& collector);

private:
    /// A number of a family; 0 if it is not given.
    static double at(std::span<const double> numbers, std::size_t index)
    {
        return index < numbers.size() ? numbers[index] : 0.0;
    }

    double start(long long line) const { return m_x + static_cast<double>(line) * m_stepX - m_half; }
    bool findReach(double diagonal);
    bool covers() const;
    bool isSeen(double y) const { return y >= m_seen.min.y && y <= m_seen.max.y; }
    long long lineAt(double y) const;
    bool lay(long long first, long long last, Collector& collector) const;
    long long lineBelow(long long from, long long tries) const;
    void clipDashes(double from, Collector& collector);
    void clipDashes(double from, HatchRows::Stretch stretch, Collector& collector);

    const CVekArrayTempl<CVekVertexArray>& m_region;
    double m_angle;
    double m_turn; ///< including the angle of the hatch
    HatchRows& m_rows;
    HatchDashes& m_dashes;
    std::vector<HatchRows::Stretch>& m_pieces;
    double m_x;
    double m_y;
    double m_stepX;
    double m_stepY;
    bool m_isGravel;
    bool m_isFine;

    double m_half = 0.0;
    Box m_seen{{-HUGE_VAL, -HUGE_VAL}, {HUGE_VAL, HUGE_VAL}};
    long long m_lowest = 0; ///< lines at the height of the region
    long long m_highest = 0;
    bool m_covers = false; ///< these lines extend across the whole outer contour, so each of them meets it
    long long m_first = 0; ///< lines that are examined
    long long m_last = -1;
};

/// Determines how far a line extends to both sides of its middle.
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

void Family::see(const HatchView& view)
{
    const TurnedFrame turned(m_turn);
    m_seen = {turned(view[0]), turned(view[0])};
    for (const Vec corner : view)
        m_seen.add(turned(corner));
}

bool Family::search(const CVekPoint3d& min, const CVekPoint3d& max, Collector& collector)
{
    if (!std::isfinite(m_x + m_y + m_stepX + m_stepY) || !(m_stepY > 0.0) || !findReach(min.distanceTo(max)))
        return false;
    const Box local = turnedBox(m_region[0], m_angle);
    const CVekVector3d size(local.max.x - local.min.x, local.max.y - local.min.y, max[2] - min[2]);
    const double most = std::trunc(size.abs() / m_stepY + 1.0) * (m_isGravel && m_isFine ? 200.0 : 20.0);
    const double lowest = std::ceil((m_rows.box().min.y - m_rows.tolerance() - m_y) / m_stepY);
    const double highest = std::floor((m_rows.box().max.y + m_rows.tolerance() - m_y) / m_stepY);
    const double back = m_y > local.min.y ? std::ceil((m_y - local.min.y) / m_stepY) : 0.0;
    if (!(most + std::fabs(lowest) + std::fabs(highest) + back < kMostSteps)) {
        collector.cutShort();
        return false;
    }
    m_lowest = static_cast<long long>(lowest);
    m_highest = static_cast<long long>(highest);
    const long long tries = static_cast<long long>(most);
    m_covers = covers();
    if (!m_covers && !lay(m_lowest, m_highest, collector))
        return false;
    const long long below = lineBelow(-static_cast<long long>(back), tries);
    m_first = std::max(below + 1, m_lowest);
    m_last = std::min(below + 3 * tries, m_highest);
    if (!m_covers)
        return m_first <= m_last;
    m_first = std::max(m_first, lineAt(m_seen.min.y));
    m_last = std::min(m_last, lineAt(m_seen.max.y));
    return m_first <= m_last && lay(m_first, m_last, collector);
}

/// The last line at or below a height.
long long Family::lineAt(double y) const
{
    return static_cast<long long>(std::clamp(std::floor((y - m_y) / m_stepY), -kMostSteps, kMostSteps));
}

/// Sets up the rows for a range of lines.
bool Family::lay(long long first, long long last, Collector& collector) const
{
    if (last - first >= VEK::kHatchLines) {
        collector.cutShort();
        return false;
    }
    m_rows.lay(m_y, m_stepY, first, last);
    return true;
}

bool Family::covers() const
{
    const double from = m_dashes.isGiven() ? m_dashes.firstStart() : 0.0;
    const double to = m_dashes.isGiven() ? m_dashes.lastEnd(2.0 * m_half) : 2.0 * m_half;
    bool covers = m_rows.isContinuous();
    for (const long long line : {m_lowest, m_highest})
        covers = covers && start(line) + from < m_rows.box().min.x - m_rows.tolerance() &&
                 start(line) + to > m_rows.box().max.x + m_rows.tolerance();
    return covers;
}

/// Goes back from a line while lines meet the outer contour.
/// @return the line before the first one that is drawn
long long Family::lineBelow(long long from, long long tries) const
{
    long long missing = from - 1;
    if (missing >= m_lowest && missing <= m_highest) {
        missing = m_lowest - 1;
        if (!m_covers) {
            m_rows.rewind();
            for (long long line = m_lowest; line < from; ++line) {
                m_rows.cut(line, start(line), start(line) + 2.0 * m_half);
                if (!m_rows.meetsOuter(start(line), start(line) + 2.0 * m_half))
                    missing = line;
            }
        }
    }
    return std::max(missing, from - tries);
}

void Family::draw(Collector& collector)
{
    const double length = 2.0 * m_half;
    const double first = m_dashes.isGiven() ? m_dashes.firstStart() : 0.0;
    const double last = m_dashes.isGiven() ? m_dashes.lastEnd(length) : length;
    bool reached = false;
    m_rows.rewind();
    collector.turn(m_turn);
    for (long long line = m_first; line <= m_last && !collector.isCutShort(); ++line) {
        const double from = start(line);
        m_rows.cut(line, from, from + length);
        if (!m_covers && !m_rows.meetsOuter(from + first, from + last)) {
            if (reached)
                return;
            continue;
        }
        reached = true;
        if (!isSeen(m_rows.height(line)))
            continue;
        if (m_dashes.isGiven())
            clipDashes(from, collector);
        collector.add(m_rows.height(line), m_dashes.isGiven() ? m_pieces : m_rows.pieces());
    }
}

/// Collects the dashes of a row, pair by pair from the line's end to its start.
void Family::clipDashes(double from, Collector& collector)
{
    m_pieces.clear();
    const std::vector<HatchRows::Stretch>& pairs = m_rows.pairs();
    for (auto pair = pairs.rbegin(); pair != pairs.rend(); ++pair)
        clipDashes(from, *pair, collector);
}

/// Collects the dashes of a stretch. Of a dash that an end of the stretch divides, the part whose middle is inside is
/// kept; the part before the end has precedence, even if the dash spans a narrow hole. Existing drawings rely on it.
void Family::clipDashes(double from, HatchRows::Stretch stretch, Collector& collector)
{
    const double tol = m_rows.tolerance();
    const auto split = [&](HatchRows::Stretch dash, double place) {
        if (place - dash.from <= tol || dash.to - place <= tol)
            return;
        if (m_rows.isInside(0.5 * (dash.from + place)))
            m_rows.punch({dash.from, place}, m_pieces);
        else if (m_rows.isInside(0.5 * (place + dash.to)))
            m_rows.punch({place, dash.to}, m_pieces);
    };
    // A visible dash may produce its piece in another stretch than the one to which it is clipped here.
    const double low = std::max(stretch.from - tol, m_seen.min.x - m_dashes.longest());
    const double high = std::min(stretch.to + tol, m_seen.max.x + m_dashes.longest());
    if (!(low < high))
        return;
    m_dashes.visit(low - from, high - from, 2.0 * m_half, [&](double start, double end) {
        const HatchRows::Stretch dash{from + start, from + end};
        if (!collector.count())
            return false;
        const bool coversStart = dash.from <= stretch.from + tol && dash.to >= stretch.from - tol;
        const bool coversEnd = dash.from <= stretch.to + tol && dash.to >= stretch.to - tol;
        if (coversStart && coversEnd)
            m_rows.punch(stretch, m_pieces);
        else if (dash.from >= stretch.from - tol && dash.to <= stretch.to + tol)
            m_rows.punch(dash, m_pieces);
        else
            split(dash, coversStart ? stretch.from : stretch.to);
        return true;
    });
}

/// The lines that the host has for a pattern; none for an unknown name.
VekPatternLines hostLines(const CVekString& name)
{
    VekPatternLines lines;
    vekAppPtr()->hatchPatternGet(name, lines);
    return lines;
}

} // namespace

void HatchStrokes::clear(const CVekVector3d& normal)
{
    m_normal = normal;
    m_lines.clear();
    m_pieces.clear();
}

void HatchStrokes::add(const CVekPoint3d& origin, const CVekVector3d& along, const HatchRows::Stretch* pieces,
                       int count)
{
    m_pieces.insert(m_pieces.end(), pieces, pieces + count);
    m_lines.push_back({origin, along, m_pieces.size()});
}

void HatchStrokes::get(int line, CVekVertexArray& pieces) const
{
    const auto at = static_cast<std::size_t>(line);
    const Line& own = m_lines[at];
    const std::size_t begin = at == 0 ? 0 : m_lines[at - 1].end;
    pieces.setLogicalLength(0);
    pieces.setNormal(m_normal);
    pieces.reserveExactly(static_cast<int>(own.end - begin));
    for (std::size_t i = begin; i < own.end; ++i)
        pieces.append(CVekVertex(own.origin + own.along * m_pieces[i].from, own.origin + own.along * m_pieces[i].to));
}

bool VEK::detail::hatchPattern(const CVekArrayTempl<CVekVertexArray>& region, const CVekMatrix3d& mtx,
                               const CHatchProp& hatch, const VekPatternLines& lines, const HatchView* view,
                               HatchStrokes& strokes)
{
    return whole(false, [&] {
        Collector collector(strokes, mtx);
        CVekPoint3d min, max;
        if (!std::isfinite(hatch.angle) || region.len() == 0 || !isFinite(region) || !region[0].extents(min, max))
            return true;
        const double dot = acadUnitCv(kDotLength, Vek::unitMillimetre, Vek::unitCurrent);
        const auto draw = [&](double angle, std::span<const double> numbers) {
            Family family(region, hatch, angle, numbers, dot, strokes.scratch);
            if (!std::isfinite(family.turn()))
                return;
            if (view)
                family.see(*view);
            strokes.scratch.rows.set(region, family.turn());
            if (family.search(min, max, collector))
                family.draw(collector);
        };
        if (isUserPattern(hatch.name)) {
            constexpr double solid[] = {0.0, 0.0, 0.0, 0.0, 1.0};
            if (hatch.crossed)
                draw(g_ang(hatch.angle + std::numbers::pi / 2), solid);
            draw(hatch.angle, solid);
        } else {
            for (const CVekArrayTempl<double>& numbers : lines)
                draw(hatch.angle, {numbers.begin(), numbers.end()});
        }
        return !collector.isCutShort();
    });
}

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                         const VEK::CHatchProp& hatch, bool& cutShort)
{
    cutShort = true;
    return VEK::whole(CVekArrayTempl<CVekVertexArray>(), [&] {
        const unsigned long shortages = VEK::memoryShortages();
        const VekPatternLines lines = isUserPattern(hatch.name) ? VekPatternLines() : hostLines(hatch.name);
        HatchStrokes strokes;
        const bool complete = !VEK::detail::toHatchPlane(regl, mtx) ||
                              VEK::detail::hatchPattern(regl, mtx, hatch, lines, nullptr, strokes);
        CVekArrayTempl<CVekVertexArray> result;
        if (strokes.len() > 0 && result.reserveExactly(strokes.len())) {
            result.setLogicalLength(strokes.len());
            for (int i = 0; i < strokes.len(); ++i)
                strokes.get(i, result[i]);
        }
        cutShort = !complete || VEK::memoryShortages() != shortages;
        return result;
    });
}

CVekArrayTempl<CVekVertexArray> vek_gdx_image_reg_hatch2(CVekArrayTempl<CVekVertexArray> regl, const CVekMatrix3d& mtx,
                                                         const VEK::CHatchProp& hatch)
{
    bool cutShort = false;
    return vek_gdx_image_reg_hatch2(std::move(regl), mtx, hatch, cutShort);
}

bool VEK::detail::patternTest(const CVekArrayTempl<CVekVertexArray>& region, const CHatchProp& hatch,
                              const VekPatternLines& lines, const CVekMatrix3d& mtx)
{
    if (lines.len() == 0)
        return true;
    const plane::Levelled outer(region[0]);
    double most = std::numeric_limits<double>::lowest();
    double least = std::numeric_limits<double>::max();
    for (const CVekArrayTempl<double>& numbers : std::as_const(lines)) {
        const Box box = turnedBox(*outer, radians(numbers[0]));
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

// NOLINTNEXTLINE(performance-unnecessary-value-param): callers hand the region over by value
bool vek_gdx_pattern_test(CVekArrayTempl<CVekVertexArray> regl, const VEK::CHatchProp& hatch, const CVekMatrix3d& mtx)
{
    return VEK::whole(false, [&] { return VEK::detail::patternTest(regl, hatch, hostLines(hatch.name), mtx); });
}
