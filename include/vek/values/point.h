/// @file
/// Points, vectors and planes. Coordinates are in whatever space and unit the caller works in; angles are radians,
/// counter-clockwise from the x axis.
#pragma once

#include <vek/values/object.h>

#include <cmath>

class CVekMatrix3d;
class CVekVector3d;

/// The coordinates by index.
template <class T>
inline constexpr double T::*kVekAxes[3] = {&T::x, &T::y, &T::z};

/// A point: three coordinates. A matrix moves it as a whole, translation included.
class VEK_API CVekPoint3d : public CVekObj
{
public:
    using MovesAsBytes = CVekPoint3d; ///< see `kVekMovesAsBytes`
    using OwnsNothing = CVekPoint3d;  ///< see `kVekOwnsNothing`

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr CVekPoint3d() = default;
    constexpr CVekPoint3d(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

    CVekPoint3d& set(double xValue, double yValue, double zValue)
    {
        x = xValue;
        y = yValue;
        z = zValue;
        return *this;
    }

    /// The coordinates by index: 0, 1 or 2.
    constexpr double& operator[](int axis) { return this->*kVekAxes<CVekPoint3d>[axis]; }
    constexpr double operator[](int axis) const { return this->*kVekAxes<CVekPoint3d>[axis]; }

    /// Exact comparison; for a tolerance compare `distanceTo`.
    bool operator==(const CVekPoint3d& other) const { return x == other.x && y == other.y && z == other.z; }
    bool operator!=(const CVekPoint3d& other) const { return !(*this == other); }

    /// The vector from `other` to this point.
    CVekVector3d operator-(const CVekPoint3d& other) const;
    CVekPoint3d operator+(const CVekVector3d& by) const;
    CVekPoint3d operator-(const CVekVector3d& by) const;
    CVekPoint3d& operator+=(const CVekVector3d& by);
    CVekPoint3d& operator-=(const CVekVector3d& by);

    /// `m` times the point.
    CVekPoint3d operator*(const CVekMatrix3d& m) const;
    CVekPoint3d& operator*=(const CVekMatrix3d& m);

    double distanceTo(const CVekPoint3d& other) const;

    /// The same three numbers as a vector from the origin.
    CVekVector3d asVector() const;

    static const CVekPoint3d kOrigin;
};

/// A vector: a direction with a length. A matrix acts on it by its linear part, without the translation.
class VEK_API CVekVector3d : public CVekObj
{
public:
    using MovesAsBytes = CVekVector3d; ///< see `kVekMovesAsBytes`
    using OwnsNothing = CVekVector3d;  ///< see `kVekOwnsNothing`

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    constexpr CVekVector3d() = default;
    constexpr CVekVector3d(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

    CVekVector3d& set(double xValue, double yValue, double zValue)
    {
        x = xValue;
        y = yValue;
        z = zValue;
        return *this;
    }

    /// The components by index: 0, 1 or 2.
    constexpr double& operator[](int axis) { return this->*kVekAxes<CVekVector3d>[axis]; }
    constexpr double operator[](int axis) const { return this->*kVekAxes<CVekVector3d>[axis]; }

    /// The same three numbers as a point.
    CVekPoint3d asPoint() const { return {x, y, z}; }

    /// Two vectors are equal when no component differs by more than `tol`.
    bool operator==(const CVekVector3d& other) const;
    bool operator!=(const CVekVector3d& other) const { return !(*this == other); }

    CVekVector3d operator+(const CVekVector3d& b) const { return {x + b.x, y + b.y, z + b.z}; }
    CVekVector3d operator-(const CVekVector3d& b) const { return {x - b.x, y - b.y, z - b.z}; }
    CVekVector3d operator-() const { return {-x, -y, -z}; }
    CVekVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }

    /// The cross product.
    CVekVector3d operator*(const CVekVector3d& b) const
    {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }

    /// The linear part of `m` times the vector.
    CVekVector3d operator*(const CVekMatrix3d& m) const;

    CVekVector3d& operator+=(const CVekVector3d& b) { return set(x + b.x, y + b.y, z + b.z); }
    CVekVector3d& operator-=(const CVekVector3d& b) { return set(x - b.x, y - b.y, z - b.z); }
    CVekVector3d& operator*=(double factor) { return set(x * factor, y * factor, z * factor); }
    CVekVector3d& operator*=(const CVekMatrix3d& m);

    /// The scalar product.
    double dot(const CVekVector3d& b) const { return x * b.x + y * b.y + z * b.z; }

    /// Scales the vector to length 1 in place, however long or short it is; a zero or non-finite vector stays as it is.
    CVekVector3d& normalize();

    /// Whether the length is 1, within rounding.
    bool isUnit() const { return std::fabs(dot(*this) - 1.0) <= 1e-14; }

    /// The length. A plain square root, which is rounded the same on every system, unlike `hypot`.
    double abs() const
    {
        const double square = dot(*this);
        return square > kLeastSquare && square < kGreatestSquare ? std::sqrt(square) : farAbs();
    }

    static const CVekVector3d kXAxis;
    static const CVekVector3d kYAxis;
    static const CVekVector3d kZAxis;

    /// Tolerance for comparing vectors, one for the process; initially 1e-10.
    static double tol;

private:
    static constexpr double kLeastSquare = 1e-280; ///< squares outside these lose digits, or all
    static constexpr double kGreatestSquare = 1e300;

    double farAbs() const;
};

/// A plane, by a point on it and its normal.
class VEK_API CVekPlane : public CVekObj
{
public:
    CVekPlane(const CVekPoint3d& point, const CVekVector3d& normal) : m_point(point), m_normal(normal) {}

    const CVekPoint3d& point() const { return m_point; }
    const CVekVector3d& normal() const { return m_normal; }

private:
    CVekPoint3d m_point;
    CVekVector3d m_normal;
};

inline CVekVector3d CVekPoint3d::operator-(const CVekPoint3d& other) const
{
    return {x - other.x, y - other.y, z - other.z};
}
inline CVekPoint3d CVekPoint3d::operator+(const CVekVector3d& by) const
{
    return {x + by.x, y + by.y, z + by.z};
}
inline CVekPoint3d CVekPoint3d::operator-(const CVekVector3d& by) const
{
    return {x - by.x, y - by.y, z - by.z};
}
inline CVekPoint3d& CVekPoint3d::operator+=(const CVekVector3d& by)
{
    return *this = *this + by;
}
inline CVekPoint3d& CVekPoint3d::operator-=(const CVekVector3d& by)
{
    return *this = *this - by;
}
inline double CVekPoint3d::distanceTo(const CVekPoint3d& other) const
{
    return (*this - other).abs();
}
inline CVekVector3d CVekPoint3d::asVector() const
{
    return {x, y, z};
}

namespace VEK
{

/// Minimum and maximum of each coordinate.
inline CVekPoint3d p_min(const CVekPoint3d& a, const CVekPoint3d& b)
{
    return {b.x < a.x ? b.x : a.x, b.y < a.y ? b.y : a.y, b.z < a.z ? b.z : a.z};
}
inline CVekPoint3d p_max(const CVekPoint3d& a, const CVekPoint3d& b)
{
    return {b.x > a.x ? b.x : a.x, b.y > a.y ? b.y : a.y, b.z > a.z ? b.z : a.z};
}

/// The point at a distance in a direction in the xy plane, and the vector with a direction and length.
VEK_API CVekPoint3d polar(const CVekPoint3d& point, double angle, double distance);
VEK_API CVekVector3d polar(double angle, double distance);

/// The angle normalised to one turn: from 0 up to, but not including, 2 PI. A non-finite angle gives 0.
VEK_API double g_ang(double angle);

} // namespace VEK
