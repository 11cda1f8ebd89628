#include <vek/values/matrix.h>

#include <algorithm>

namespace
{

/// The axes of a matrix; very short and long ones are scaled by a power of two so that products stay in range.
struct ScaledAxes {
    CVekVector3d axis[3];
    int exponent[3] = {0, 0, 0}; ///< of the powers of two taken out

    explicit ScaledAxes(const CVekMatrix3d& m)
    {
        for (int i = 0; i < 3; ++i) {
            CVekVector3d& a = axis[i] = m.axis(i);
            const double size = std::max({std::fabs(a.x), std::fabs(a.y), std::fabs(a.z)});
            constexpr double kShort = 1e-60;
            if ((size > kShort && size < 1.0 / kShort) || size == 0.0 || !std::isfinite(size))
                continue;
            exponent[i] = std::ilogb(size);
            a.set(std::scalbn(a.x, -exponent[i]), std::scalbn(a.y, -exponent[i]), std::scalbn(a.z, -exponent[i]));
        }
    }

    double determinant() const { return axis[0].dot(axis[1] * axis[2]); }
};

} // namespace

constinit const CVekMatrix3d CVekMatrix3d::kIdentity;

CVekMatrix3d CVekMatrix3d::operator*(const CVekMatrix3d& b) const
{
    CVekMatrix3d product;
    for (int row = 0; row < 3; ++row) {
        const double* a = m_rows[row];
        for (int column = 0; column < 4; ++column) {
            product.m_rows[row][column] =
                a[0] * b.m_rows[0][column] + a[1] * b.m_rows[1][column] + a[2] * b.m_rows[2][column];
        }
        product.m_rows[row][3] += a[3];
    }
    return product;
}

bool CVekMatrix3d::operator==(const CVekMatrix3d& other) const
{
    const double* a = m_rows[0];
    const double* b = other.m_rows[0];
    bool equal = true; // compared matrices are mostly equal, and no branches is fastest then
    for (int i = 0; i < 16; ++i)
        equal &= a[i] == b[i];
    return equal;
}

CVekMatrix3d& CVekMatrix3d::setToIdentity()
{
    return *this = CVekMatrix3d();
}

CVekMatrix3d& CVekMatrix3d::setToTranslation(const CVekVector3d& by)
{
    setToIdentity();
    for (int row = 0; row < 3; ++row)
        m_rows[row][3] = by[row];
    return *this;
}

CVekMatrix3d& CVekMatrix3d::setToScaling(double factor, const CVekPoint3d& centre)
{
    setToIdentity();
    for (int row = 0; row < 3; ++row) {
        m_rows[row][row] = factor;
        m_rows[row][3] = centre[row] - factor * centre[row];
    }
    return *this;
}

CVekMatrix3d& CVekMatrix3d::setToRotation(double angle, const CVekVector3d& axis, const CVekPoint3d& centre)
{
    setToIdentity();
    CVekVector3d n = axis;
    if (!n.normalize().isUnit())
        return *this;
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    const double t = 1.0 - c;
    const double cross[3][3] = {{0.0, -n[2], n[1]}, {n[2], 0.0, -n[0]}, {-n[1], n[0], 0.0}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            m_rows[row][column] = (row == column ? c : 0.0) + t * n[row] * n[column] + s * cross[row][column];
    }
    const CVekVector3d moved = centre - centre * *this;
    for (int row = 0; row < 3; ++row)
        m_rows[row][3] = moved[row];
    return *this;
}

CVekMatrix3d& CVekMatrix3d::setToMirroring(const CVekPlane& plane)
{
    setToIdentity();
    CVekVector3d n = plane.normal();
    if (!n.normalize().isUnit())
        return *this;
    const double distance = plane.point().asVector().dot(n);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column)
            m_rows[row][column] -= 2.0 * n[row] * n[column];
        m_rows[row][3] = 2.0 * distance * n[row];
    }
    return *this;
}

CVekMatrix3d& CVekMatrix3d::setToPlaneToWorld(const CVekVector3d& normal)
{
    CVekVector3d z = normal;
    if (!z.normalize().isUnit())
        return setToIdentity();
    constexpr double kNearZ = 1.0 / 64.0;
    const bool nearZ = std::fabs(z[0]) < kNearZ && std::fabs(z[1]) < kNearZ;
    CVekVector3d x = (nearZ ? CVekVector3d::kYAxis : CVekVector3d::kZAxis) * z;
    x.normalize();
    return setCoordSystem(CVekPoint3d::kOrigin, x, z * x, z);
}

CVekMatrix3d& CVekMatrix3d::setCoordSystem(const CVekPoint3d& origin, const CVekVector3d& x, const CVekVector3d& y,
                                           const CVekVector3d& z)
{
    setToIdentity();
    for (int row = 0; row < 3; ++row) {
        m_rows[row][0] = x[row];
        m_rows[row][1] = y[row];
        m_rows[row][2] = z[row];
        m_rows[row][3] = origin[row];
    }
    return *this;
}

CVekVector3d CVekMatrix3d::axis(int number) const
{
    if (number < 0 || number > 2)
        return {};
    return {m_rows[0][number], m_rows[1][number], m_rows[2][number]};
}

double CVekMatrix3d::determinant() const
{
    return axis(0).dot(axis(1) * axis(2));
}

CVekMatrix3d& CVekMatrix3d::invert()
{
    return *this = inverse();
}

bool CVekMatrix3d::mirrors() const
{
    return ScaledAxes(*this).determinant() < 0.0;
}

CVekMatrix3d CVekMatrix3d::inverse() const
{
    const ScaledAxes scaled(*this);
    const double det = scaled.determinant();
    if (!std::isnormal(det))
        return {};
    // The rows of the inverse are the cross products of the axes over the determinant.
    CVekMatrix3d result;
    for (int row = 0; row < 3; ++row) {
        const CVekVector3d cross = scaled.axis[(row + 1) % 3] * scaled.axis[(row + 2) % 3];
        for (int column = 0; column < 3; ++column)
            result.m_rows[row][column] = std::scalbn(cross[column] / det, -scaled.exponent[row]);
    }
    const CVekVector3d moved = translation() * result;
    for (int row = 0; row < 3; ++row)
        result.m_rows[row][3] = -moved[row];
    const double* numbers = result.m_rows[0];
    return std::all_of(numbers, numbers + 12, [](double number) { return std::isfinite(number); }) ? result
                                                                                                   : CVekMatrix3d();
}
