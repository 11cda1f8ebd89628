#include "core/values/crossing.h"

namespace VEK::plane
{
namespace
{

/// A crossing of the whole curve of a segment.
struct Root {
    double t; ///< its parameter, clamped to the nearer end
    bool beyond;
};

/// @param period of the parameter around a circle
Root rootAt(double t, double period)
{
    if (t >= 0.0 && t <= 1.0)
        return {t, false};
    const double start = t < 0.0 ? -t : period - t;
    const double end = t < 0.0 ? period - 1.0 + t : t - 1.0;
    return {start <= end ? 0.0 : 1.0, true};
}

} // namespace

Passages passages(const Carrier& carrier, Vec start, Vec end, double bulge, double before, double behind)
{
    const bool passes = (before > 0.0) != (behind > 0.0);
    if (bulge == 0.0 && !carrier.bends())
        return {{passes ? before / (before - behind) : 0.0, 0.0}, passes ? 1 : 0};

    // Along the segment the form is a ratio of quadratics in k, where k is the parameter on a straight segment and
    // the tangent of its part of half the sweep, over the sine of that, on an arc. The denominator is above zero.
    const Vec chord = end - start;
    const Bend bend(bulge, chord.abs());
    const double s = bend.sine, c = bend.cosine;
    const Vec slope = carrier.slope(start);
    const double along = slope.dot(chord), across = slope.dot(chord.left());
    const double square = (before + along) * s * s + across * s * c + carrier.sine() * chord.dot(chord);
    const double linear = along * c - across * s;
    const double half = 0.5 * std::fabs(bend.sweep);
    const auto root = [&](double numerator, double denominator) {
        if (!bend.isArc())
            return rootAt(denominator != 0.0 ? numerator / denominator : HUGE_VAL, HUGE_VAL);
        double angle = std::atan(std::fabs(s) * numerator / denominator);
        if (!(angle >= 0.0))
            angle = numerator == 0.0 && denominator == 0.0 ? 0.0 : angle + std::numbers::pi;
        return rootAt(angle / half, std::numbers::pi / half);
    };
    const double discriminant = linear * linear - 4.0 * square * before;
    if (!(discriminant >= 0.0)) {
        if (!passes)
            return {};
        // Rounding hides a touch if one end is classified to the other side.
        const Root touch =
            std::fabs(before) > std::fabs(square) ? root(before, -0.5 * linear) : root(-0.5 * linear, square);
        return {{touch.t, 0.0}, 1};
    }
    const double q = -0.5 * (linear + std::copysign(std::sqrt(discriminant), linear));
    const Root a = root(q, square), b = root(before, q);
    if (passes && a.beyond != b.beyond)
        return {{a.beyond ? b.t : a.t, 0.0}, 1};
    // By the side on which the segment runs between the roots: a single crossing is the root at which it leaves the
    // side of its start; there are two only if that is not the side of both ends; else it touches, or crosses beyond
    // its ends.
    const double first = std::min(a.t, b.t), last = std::max(a.t, b.t);
    const double between = carrier(Arc(start, end, bulge).at(0.5 * (first + last)));
    const bool left = (between > 0.0) != (before > 0.0);
    if (passes)
        return {{left ? first : last, 0.0}, 1};
    return {{first, last}, left ? 2 : 0};
}

} // namespace VEK::plane
