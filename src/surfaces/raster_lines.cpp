#include "surfaces/raster_lines.h"

#include <climits>
#include <cmath>

namespace VEK::raster
{
namespace
{

/// A line as steps along its longer side. Step i, from 0 up to but excluding `count`, is at `along` + i * sign on that
/// side and at the nearest pixel across, of two equally near ones the smaller.
struct Steps {
    std::int64_t count = 0;
    std::int64_t rise = 0; ///< distance across of the whole line, not negative
    bool falls = false;    ///< whether it goes across towards smaller coordinates

    /// How far step i is across, and the remainder: a step across is due whenever that reaches 2 `count`.
    std::int64_t across(std::int64_t i, std::int64_t& rest) const
    {
        const std::int64_t sum = 2 * i * rise + (falls ? count : count - 1);
        rest = sum % (2 * count);
        return sum / (2 * count);
    }

    /// The first step that is at least that far across.
    std::int64_t firstAt(std::int64_t distance) const
    {
        if (distance <= 0)
            return 0;
        if (distance > rise)
            return count;
        const std::int64_t needed = 2 * count * distance - (falls ? count : count - 1);
        return std::min(count, (needed + 2 * rise - 1) / (2 * rise));
    }
};

template <bool isHoled>
void run(Canvas& canvas, std::ptrdiff_t index, std::ptrdiff_t step, std::ptrdiff_t stepAcross, std::int64_t rest,
         std::int64_t rise, std::int64_t total, std::int64_t count, std::uint32_t color)
{
    rest -= total; // so that its sign shows when a step across is due
    for (std::int64_t i = 0; i < count; ++i) {
        if (!isHoled || !canvas.isCut(index))
            canvas.at(index) = color;
        rest += rise;
        const std::int64_t due = ~(rest >> 63); // all bits or none; a branch would be wrong every other time
        index += step + (stepAcross & due);
        rest -= total & due;
    }
}

/// The part of a range of steps whose coordinate `start` + i * `sign` lies in [low, high).
void confine(std::int64_t start, int sign, std::int64_t low, std::int64_t high, std::int64_t& first, std::int64_t& end)
{
    first = std::max(first, sign > 0 ? low - start : start - high + 1);
    end = std::min(end, sign > 0 ? high - start : start - low + 1);
}

/// Exchanges two numbers without a branch.
void exchangeIf(bool yes, std::int64_t& a, std::int64_t& b)
{
    const std::int64_t both = (a ^ b) & -std::int64_t{yes};
    a ^= both;
    b ^= both;
}

/// A line inside the clip, in which there is no hole. Most lines are such, and short, so that what is done before the
/// first pixel counts: it has no branches, since nobody can tell which way the next line goes.
void freeLine(Canvas& canvas, const Point& from, std::int64_t dx, std::int64_t dy, std::uint32_t color)
{
    std::int64_t count = std::abs(dx), rise = std::abs(dy);
    std::int64_t sign = dx >> 63, signAcross = dy >> 63; // 0 or -1
    std::int64_t step = sign | 1, stepAcross = (signAcross | 1) * canvas.stride();
    const bool isSteep = rise > count;
    exchangeIf(isSteep, count, rise);
    exchangeIf(isSteep, sign, signAcross);
    exchangeIf(isSteep, step, stepAcross);
    run<false>(canvas, canvas.indexOf(from.x, from.y), step, stepAcross, count - 1 - signAcross, 2 * rise, 2 * count,
               count, color);
}

} // namespace

void line(Canvas& canvas, const Point& from, const Point& to, std::uint32_t color)
{
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    const int width = std::abs(dx);
    const int height = std::abs(dy);
    if (width == 0 && height == 0)
        return;
    const Box& clip = canvas.clip();
    const bool isInside = clip.holds(from.x, from.y) && clip.holds(to.x, to.y);
    if (isInside && !canvas.hasHoles()) {
        freeLine(canvas, from, dx, dy, color);
        return;
    }
    const bool isFlat = width >= height;
    const Steps steps{std::max(width, height), std::min(width, height), (isFlat ? dy : dx) < 0};
    const int signX = dx < 0 ? -1 : 1;
    const int signY = dy < 0 ? -1 : 1;
    std::int64_t first = 0;
    std::int64_t end = steps.count;
    std::int64_t across = 0;
    std::int64_t rest = steps.falls ? steps.count : steps.count - 1;

    if (!isInside) {
        std::int64_t low = 0; // range of the distance across that lies in the clip
        std::int64_t high = steps.rise + 1;
        if (isFlat) {
            confine(from.x, signX, clip.left, clip.right, first, end);
            confine(from.y, signY, clip.top, clip.bottom, low, high);
        } else {
            confine(from.y, signY, clip.top, clip.bottom, first, end);
            confine(from.x, signX, clip.left, clip.right, low, high);
        }
        first = std::max(first, steps.firstAt(low));
        end = std::min(end, steps.firstAt(high));
        if (low >= high || first >= end)
            return;
        across = steps.across(first, rest);
    }
    const std::ptrdiff_t stepX = signX;
    const std::ptrdiff_t stepY = signY * canvas.stride();
    const std::ptrdiff_t step = isFlat ? stepX : stepY;
    const std::ptrdiff_t stepAcross = isFlat ? stepY : stepX;
    const std::ptrdiff_t index = canvas.indexOf(from.x, from.y) + first * step + across * stepAcross;
    const Box box = boxOf(from, to);
    if (canvas.isHoled({box.left, box.top, box.right + 1, box.bottom + 1}))
        run<true>(canvas, index, step, stepAcross, rest, 2 * steps.rise, 2 * steps.count, end - first, color);
    else
        run<false>(canvas, index, step, stepAcross, rest, 2 * steps.rise, 2 * steps.count, end - first, color);
}

void farLine(Canvas& canvas, const SurfacePoint& from, const SurfacePoint& to, std::uint32_t color)
{
    const auto whole = [](double value) { return std::trunc(std::clamp(value, -1e300, 1e300)); };
    const bool isFlat = std::abs(to.x - from.x) >= std::abs(to.y - from.y);
    const double start = whole(isFlat ? from.x : from.y), startAcross = whole(isFlat ? from.y : from.x);
    const double end = whole(isFlat ? to.x : to.y), endAcross = whole(isFlat ? to.y : to.x);
    const Box& clip = canvas.clip();
    const double low = isFlat ? clip.left : clip.top;
    const double high = isFlat ? clip.right : clip.bottom;
    const double first = std::max(low, start <= end ? start : end + 1.0);
    const double limit = std::min(high, start <= end ? end : start + 1.0);
    const double slope = (endAcross - startAcross) / (end - start);
    const bool startIsNearer = std::abs(start) < std::abs(end); // loses less precision
    for (double at = first; at < limit; ++at) {
        const double exact = startIsNearer ? startAcross + (at - start) * slope : endAcross + (at - end) * slope;
        const double across = std::clamp(std::ceil(exact - 0.5), -1.0, static_cast<double>(INT_MAX));
        const SurfacePoint p = isFlat ? SurfacePoint{at, across} : SurfacePoint{across, at};
        canvas.pixel(static_cast<int>(p.x), static_cast<int>(p.y), color);
    }
}

} // namespace VEK::raster
