/// @file
/// Points, vectors and planes. Coordinates are in whatever space and unit the caller works in; angles are radians,
/// counter-clockwise from the x axis.
#pragma once

#include <vek/values/object.h>

#include <cmath>

class CVekMatrix3d;
class CVekVector3d;

/// A point: three coordinates. A matrix moves it as a whole, translation included.
class VEK_API CVekPoint3d : public CVekObj
{
public:
    using MovesAsBytes = CVekPoint3d; ///< see `kVekMovesAsBytes`

    constexpr CVekPoint3d() = default;
    constexpr CVekPoint3d(double x, double y, double z) : m_xyz{x, y, z} {}

    CVekPoint3d& set(double x, double y, double z)
    {
        m_xyz[0] = x;
        m_xyz[1] = y;
        m_xyz[2] = z;
        return *this;
    }

    /// Coordinate 0, 1 or 2.
    constexpr double& operator[](int axis) { return m_xyz[axis]; }
    constexpr double operator[](int axis) const { return m_xyz[axis]; }

    /// Exact comparison; for a tolerance compare `distanceTo`.
    bool operator==(const CVekPoint3d& other) const
    {
        return m_xyz[0] == other.m_xyz[0] && m_xyz[1] == other.m_xyz[1] && m_xyz[2] == other.m_xyz[2];
    }
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

private:
    double m_xyz[3] = {0.0, 0.0, 0.0};
};

/// A vector: a direction with a length. A matrix acts on it by its linear part, without the translation.
class VEK_API CVekVector3d : public CVekObj
{
public:
    constexpr CVekVector3d() = default;
    constexpr CVekVector3d(double x, double y, double z) : m_xyz{x, y, z} {}

    CVekVector3d& set(double x, double y, double z)
    {
        m_xyz[0] = x;
        m_xyz[1] = y;
        m_xyz[2] = z;
        return *this;
    }

    /// Component 0, 1 or 2.
    constexpr double& operator[](int axis) { return m_xyz[axis]; }
    constexpr double operator[](int axis) const { return m_xyz[axis]; }

    /// The same three numbers as a point.
    CVekPoint3d asPoint() const { return {m_xyz[0], m_xyz[1], m_xyz[2]}; }

    /// Two vectors are equal when no component differs by more than `tol`.
    bool operator==(const CVekVector3d& other) const;
    bool operator!=(const CVekVector3d& other) const { return !(*this == other); }

    CVekVector3d operator+(const CVekVector3d& b) const
    {
        return {m_xyz[0] + b.m_xyz[0], m_xyz[1] + b.m_xyz[1], m_xyz[2] + b.m_xyz[2]};
    }
    CVekVector3d operator-(const CVekVector3d& b) const
    {
        return {m_xyz[0] - b.m_xyz[0], m_xyz[1] - b.m_xyz[1], m_xyz[2] - b.m_xyz[2]};
    }
    CVekVector3d operator-() const { return {-m_xyz[0], -m_xyz[1], -m_xyz[2]}; }
    CVekVector3d operator*(double factor) const { return {m_xyz[0] * factor, m_xyz[1] * factor, m_xyz[2] * factor}; }

    /// The cross product.
    CVekVector3d operator*(const CVekVector3d& b) const
    {
        return {m_xyz[1] * b.m_xyz[2] - m_xyz[2] * b.m_xyz[1], m_xyz[2] * b.m_xyz[0] - m_xyz[0] * b.m_xyz[2],
                m_xyz[0] * b.m_xyz[1] - m_xyz[1] * b.m_xyz[0]};
    }

    /// The linear part of `m` times the vector.
    CVekVector3d operator*(const CVekMatrix3d& m) const;

    /// The scalar product.
    double dot(const CVekVector3d& b) const
    {
        return m_xyz[0] * b.m_xyz[0] + m_xyz[1] * b.m_xyz[1] + m_xyz[2] * b.m_xyz[2];
    }

    /// Brings the length to 1 in place; a zero vector stays.
    CVekVector3d& normalize();

    /// The length. A plain square root, which every system rounds alike, unlike `hypot`.
    double abs() const { return std::sqrt(dot(*this)); }

    static const CVekVector3d kXAxis;
    static const CVekVector3d kYAxis;
    static const CVekVector3d kZAxis;

    /// Tolerance of the comparison of vectors, for the whole process; 1e-10 at start.
    static double tol;

private:
    double m_xyz[3] = {0.0, 0.0, 0.0};
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
    return {m_xyz[0] - other.m_xyz[0], m_xyz[1] - other.m_xyz[1], m_xyz[2] - other.m_xyz[2]};
}
inline CVekPoint3d CVekPoint3d::operator+(const CVekVector3d& by) const
{
    return {m_xyz[0] + by[0], m_xyz[1] + by[1], m_xyz[2] + by[2]};
}
inline CVekPoint3d CVekPoint3d::operator-(const CVekVector3d& by) const
{
    return {m_xyz[0] - by[0], m_xyz[1] - by[1], m_xyz[2] - by[2]};
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
    return {m_xyz[0], m_xyz[1], m_xyz[2]};
}

namespace VEK
{

/// Minimum and maximum of each coordinate.
inline CVekPoint3d p_min(const CVekPoint3d& a, const CVekPoint3d& b)
{
    return {b[0] < a[0] ? b[0] : a[0], b[1] < a[1] ? b[1] : a[1], b[2] < a[2] ? b[2] : a[2]};
}
inline CVekPoint3d p_max(const CVekPoint3d& a, const CVekPoint3d& b)
{
    return {b[0] > a[0] ? b[0] : a[0], b[1] > a[1] ? b[1] : a[1], b[2] > a[2] ? b[2] : a[2]};
}

/// The point at a distance in a direction of the xy plane, and the vector of a direction and length.
VEK_API CVekPoint3d polar(const CVekPoint3d& point, double angle, double distance);
VEK_API CVekVector3d polar(double angle, double distance);

/// The angle brought into one turn: from 0 up to, but not including, 2 PI. What is no finite angle gives 0.
VEK_API double g_ang(double angle);

} // namespace VEK
