/// @file
/// Transformations.
#pragma once

#include <vek/values/point.h>

/// A transformation of space: 4 by 4 numbers, stored by rows as [row][column].
///
/// A point is a column, so a transformed point is M times p. The translation is in column 3, the coordinate axes in
/// columns 0, 1 and 2. `A * B` applies B first. Row 3 is taken as (0, 0, 0, 1): there is no perspective. A
/// default-constructed matrix is the identity.
class VEK_API CVekMatrix3d : public CVekObj
{
public:
    using MovesAsBytes = CVekMatrix3d; ///< see `kVekMovesAsBytes`
    using OwnsNothing = CVekMatrix3d;  ///< see `kVekOwnsNothing`

    using Rows = double[4][4];

    constexpr CVekMatrix3d() = default;

    /// The numbers themselves, for reading and writing: `m[0][3]` is the x of the translation.
    constexpr operator Rows&() { return m_rows; }
    constexpr operator const Rows&() const { return m_rows; }

    /// The product that applies `b` first and this matrix second.
    CVekMatrix3d operator*(const CVekMatrix3d& b) const;

    /// Multiplies on the left: `a *= b` sets a to b times a, which applies a first and then b.
    CVekMatrix3d& operator*=(const CVekMatrix3d& b) { return *this = b * *this; }

    /// Exact comparison of all numbers.
    bool operator==(const CVekMatrix3d& other) const;

    CVekMatrix3d& setToIdentity();
    CVekMatrix3d& setToTranslation(const CVekVector3d& by);
    CVekMatrix3d& setToScaling(double factor, const CVekPoint3d& centre);

    /// A rotation about the axis through `centre`, counter-clockwise when the axis points at the viewer; a zero or
    /// non-finite axis gives the identity.
    CVekMatrix3d& setToRotation(double angle, const CVekVector3d& axis, const CVekPoint3d& centre);

    /// A reflection in the plane; a zero or non-finite normal gives the identity.
    CVekMatrix3d& setToMirroring(const CVekPlane& plane);

    /// Maps the plane through the origin with that normal to the world. The x axis of the plane is chosen by the
    /// arbitrary axis rule of the published DXF reference: the world's y axis cross the normal where the normal is
    /// within 1/64 of the world's z axis in x and y, the world's z axis cross the normal otherwise. A zero or
    /// non-finite normal gives the identity.
    CVekMatrix3d& setToPlaneToWorld(const CVekVector3d& normal);

    /// Puts the axes into columns 0, 1, 2 and the origin into column 3, unchanged.
    CVekMatrix3d& setCoordSystem(const CVekPoint3d& origin, const CVekVector3d& x, const CVekVector3d& y,
                                 const CVekVector3d& z);

    /// Column 0, 1 or 2, the coordinate axis of that number; a zero vector for any other.
    CVekVector3d axis(int number) const;

    /// Column 3.
    CVekVector3d translation() const { return {m_rows[0][3], m_rows[1][3], m_rows[2][3]}; }

    /// Inverts in place, or returns the inverse, whatever the lengths of the axes. Without an inverse (the axes lie in
    /// one plane, or a number of the matrix or the inverse is not finite) the result is the identity.
    CVekMatrix3d& invert();
    CVekMatrix3d inverse() const;

    /// Determinant of the linear part; with very short or long axes it is 0 or infinite although an inverse exists.
    double determinant() const;

    /// Whether the transformation mirrors, whatever the lengths of the axes.
    bool mirrors() const;

    static const CVekMatrix3d kIdentity;

private:
    double m_rows[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

inline CVekPoint3d CVekPoint3d::operator*(const CVekMatrix3d& m) const
{
    const CVekMatrix3d::Rows& r = m;
    const auto row = [&](int i) { return r[i][0] * x + r[i][1] * y + r[i][2] * z + r[i][3]; };
    return {row(0), row(1), row(2)};
}
inline CVekPoint3d& CVekPoint3d::operator*=(const CVekMatrix3d& m)
{
    return *this = *this * m;
}
inline CVekVector3d CVekVector3d::operator*(const CVekMatrix3d& m) const
{
    const CVekMatrix3d::Rows& r = m;
    const auto row = [&](int i) { return r[i][0] * x + r[i][1] * y + r[i][2] * z; };
    return {row(0), row(1), row(2)};
}
inline CVekVector3d& CVekVector3d::operator*=(const CVekMatrix3d& m)
{
    return *this = *this * m;
}
