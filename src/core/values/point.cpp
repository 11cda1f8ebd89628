#include <vek/values/point.h>

#include <numbers>

constinit const CVekPoint3d CVekPoint3d::kOrigin;
constinit const CVekVector3d CVekVector3d::kXAxis{1.0, 0.0, 0.0};
constinit const CVekVector3d CVekVector3d::kYAxis{0.0, 1.0, 0.0};
constinit const CVekVector3d CVekVector3d::kZAxis{0.0, 0.0, 1.0};
constinit double CVekVector3d::tol = 1e-10;

bool CVekVector3d::operator==(const CVekVector3d& other) const
{
    const auto alike = [](double a, double b) { return std::fabs(a - b) <= tol; };
    return alike(x, other.x) && alike(y, other.y) && alike(z, other.z);
}

namespace
{

/// Scales the greatest component to between 1 and 2 by a power of two, which is exact.
/// @return the exponent of the power that was taken out; a vector without direction stays as it is
int scaleDown(CVekVector3d& v)
{
    const double size = std::fmax(std::fabs(v.x), std::fmax(std::fabs(v.y), std::fabs(v.z)));
    if (size == 0.0 || !std::isfinite(v.x) || !std::isfinite(v.y) || !std::isfinite(v.z))
        return 0;
    const int exponent = std::ilogb(size);
    v.set(std::scalbn(v.x, -exponent), std::scalbn(v.y, -exponent), std::scalbn(v.z, -exponent));
    return exponent;
}

} // namespace

double CVekVector3d::farAbs() const
{
    CVekVector3d scaled = *this;
    const int exponent = scaleDown(scaled);
    return std::scalbn(std::sqrt(scaled.dot(scaled)), exponent);
}

CVekVector3d& CVekVector3d::normalize()
{
    double square = dot(*this);
    if (!(square > kLeastSquare && square < kGreatestSquare)) {
        scaleDown(*this);
        square = dot(*this);
        if (!(square >= 1.0 && square < kGreatestSquare))
            return *this;
    }
    const double length = std::sqrt(square);
    return set(x / length, y / length, z / length);
}

namespace VEK
{

CVekPoint3d polar(const CVekPoint3d& point, double angle, double distance)
{
    return point + polar(angle, distance);
}

CVekVector3d polar(double angle, double distance)
{
    return {std::cos(angle) * distance, std::sin(angle) * distance, 0.0};
}

double g_ang(double angle)
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    if (!std::isfinite(angle))
        return 0.0;
    double inTurn = std::fmod(angle, kTurn);
    if (inTurn < 0.0)
        inTurn += kTurn;
    return inTurn < kTurn ? inTurn : 0.0; // the sum of a tiny negative angle and a turn rounds to the turn
}

} // namespace VEK
