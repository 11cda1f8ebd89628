#include "core/geometry/crossing.h"

namespace VEK::plane
{
namespace
{

/// A passage of the whole curve of the segment: its parameter, how far that lies beyond an end, and how far within.
struct Root {
    double t;      ///< brought to the segment
    double beyond; ///< 0 on the segment
    double within; ///< to the nearer end
};

Root rootAt(double t, double period)
{
    if (t >= 0.0 && t <= 1.0)
        return {t, 0.0, std::min(t, 1.0 - t)};
    const double start = t < 0.0 ? -t : period - t;
    const double end = t < 0.0 ? period - 1.0 + t : t - 1.0;
    return start <= end ? Root{0.0, start, 0.0} : Root{1.0, end, 0.0};
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
        // Rounding hides a touch of which one end counts to the other side.
        const Root touch =
            std::fabs(before) > std::fabs(square) ? root(before, -0.5 * linear) : root(-0.5 * linear, square);
        return {{touch.t, 0.0}, 1};
    }
    const double q = -0.5 * (linear + std::copysign(std::sqrt(discriminant), linear));
    const Root a = root(q, square), b = root(before, q);
    if (passes) {
        const bool first = a.beyond != b.beyond ? a.beyond < b.beyond : a.within > b.within;
        return {{first ? a.t : b.t, 0.0}, 1};
    }
    // Two passages only if the segment is on the other side between them; else it touches, or passes beyond its ends.
    const double between = carrier(Arc(start, end, bulge).at(0.5 * (a.t + b.t)));
    if ((between > 0.0) == (before > 0.0))
        return {};
    return {{std::min(a.t, b.t), std::max(a.t, b.t)}, 2};
}

} // namespace VEK::plane
