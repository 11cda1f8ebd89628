#include <vek/values/point.h>

#include <numbers>

constinit const CVekPoint3d CVekPoint3d::kOrigin;
constinit const CVekVector3d CVekVector3d::kXAxis{1.0, 0.0, 0.0};
constinit const CVekVector3d CVekVector3d::kYAxis{0.0, 1.0, 0.0};
constinit const CVekVector3d CVekVector3d::kZAxis{0.0, 0.0, 1.0};
constinit double CVekVector3d::tol = 1e-10;

bool CVekVector3d::operator==(const CVekVector3d& other) const
{
    for (int i = 0; i < 3; ++i) {
        if (!(std::fabs(m_xyz[i] - other.m_xyz[i]) <= tol))
            return false;
    }
    return true;
}

CVekVector3d& CVekVector3d::normalize()
{
    const double length = abs();
    if (length > 0.0) {
        for (double& component : m_xyz)
            component /= length;
    }
    return *this;
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
