#include <maya/MQuaternion.h>

#include <maya/MEulerRotation.h>
#include <maya/MMatrix.h>
#include <maya/MVector.h>

#include "MatrixMath.h"

#include <cmath>
#include <ostream>

using namespace mayasim;

namespace {

// The Hamilton product p q, which rotates by q first for column vectors.
MQuaternion hamilton(const MQuaternion& p, const MQuaternion& q)
{
    return MQuaternion(p.w * q.x + q.w * p.x + p.y * q.z - p.z * q.y,
                       p.w * q.y + q.w * p.y + p.z * q.x - p.x * q.z,
                       p.w * q.z + q.w * p.z + p.x * q.y - p.y * q.x,
                       p.w * q.w - p.x * q.x - p.y * q.y - p.z * q.z);
}

double dot(const MQuaternion& p, const MQuaternion& q)
{
    return p.x * q.x + p.y * q.y + p.z * q.z + p.w * q.w;
}

MVector imaginary(const MQuaternion& q)
{
    return MVector(q.x, q.y, q.z);
}

} // namespace

const MQuaternion MQuaternion::identity;

MQuaternion::MQuaternion() : x(0.0), y(0.0), z(0.0), w(1.0) {}
MQuaternion::MQuaternion(const MQuaternion&) = default;
MQuaternion::MQuaternion(double xx, double yy, double zz, double ww) : x(xx), y(yy), z(zz), w(ww) {}
MQuaternion::MQuaternion(const double q[4]) : x(q[0]), y(q[1]), z(q[2]), w(q[3]) {}

MQuaternion::MQuaternion(const MVector& a, const MVector& b) : MQuaternion(a, b, 1.0) {}

// The shortest rotation taking direction a onto direction b, scaled by angleFactor.
MQuaternion::MQuaternion(const MVector& a, const MVector& b, double angleFactor) : MQuaternion()
{
    MVector axis = a ^ b;
    const double angle = a.angle(b);
    if (axis.length() <= MVector_kTol * a.length() * b.length())
    {
        if (a * b >= 0.0)
            return;
        // Opposite directions: any axis perpendicular to a will do.
        axis = a ^ MVector::xAxis;
        if (axis.length() <= MVector_kTol * a.length())
            axis = a ^ MVector::yAxis;
    }
    setAxisAngle(axis, angle * angleFactor);
}

MQuaternion::MQuaternion(double angle, const MVector& axis) : MQuaternion()
{
    setAxisAngle(axis, angle);
}

MQuaternion::~MQuaternion() = default;
MQuaternion& MQuaternion::operator=(const MQuaternion&) = default;

// Reads the rotation of the upper 3x3 block, ignoring any scale on its rows.
MQuaternion& MQuaternion::operator=(const MMatrix& matrix)
{
    double m[3][3];
    for (int r = 0; r < 3; ++r)
    {
        const double len = MVector(matrix[r][0], matrix[r][1], matrix[r][2]).length();
        for (int c = 0; c < 3; ++c)
            m[r][c] = len > 0.0 ? matrix[r][c] / len : matrix[r][c];
    }
    // Row vectors: m is the transpose of the column-vector rotation.
    const double trace = m[0][0] + m[1][1] + m[2][2];
    if (trace > 0.0)
    {
        const double s = 2.0 * std::sqrt(trace + 1.0);
        *this = MQuaternion((m[1][2] - m[2][1]) / s, (m[2][0] - m[0][2]) / s, (m[0][1] - m[1][0]) / s, 0.25 * s);
    }
    else if (m[0][0] >= m[1][1] && m[0][0] >= m[2][2])
    {
        const double s = 2.0 * std::sqrt(1.0 + m[0][0] - m[1][1] - m[2][2]);
        *this = MQuaternion(0.25 * s, (m[1][0] + m[0][1]) / s, (m[2][0] + m[0][2]) / s, (m[1][2] - m[2][1]) / s);
    }
    else if (m[1][1] >= m[2][2])
    {
        const double s = 2.0 * std::sqrt(1.0 + m[1][1] - m[0][0] - m[2][2]);
        *this = MQuaternion((m[1][0] + m[0][1]) / s, 0.25 * s, (m[2][1] + m[1][2]) / s, (m[2][0] - m[0][2]) / s);
    }
    else
    {
        const double s = 2.0 * std::sqrt(1.0 + m[2][2] - m[0][0] - m[1][1]);
        *this = MQuaternion((m[2][0] + m[0][2]) / s, (m[2][1] + m[1][2]) / s, 0.25 * s, (m[0][1] - m[1][0]) / s);
    }
    return *this;
}

MQuaternion& MQuaternion::operator=(const MEulerRotation& rotation)
{
    return *this = rotation.asQuaternion();
}

MMatrix MQuaternion::asMatrix() const
{
    const MQuaternion q = normal();
    const double xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const double wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    const double rows[4][4] = {{1.0 - 2.0 * (yy + zz), 2.0 * (xy + wz), 2.0 * (xz - wy), 0.0},
                               {2.0 * (xy - wz), 1.0 - 2.0 * (xx + zz), 2.0 * (yz + wx), 0.0},
                               {2.0 * (xz + wy), 2.0 * (yz - wx), 1.0 - 2.0 * (xx + yy), 0.0},
                               {0.0, 0.0, 0.0, 1.0}};
    return MMatrix(rows);
}

MQuaternion::operator MMatrix() const
{
    return asMatrix();
}

MEulerRotation MQuaternion::asEulerRotation() const
{
    return MEulerRotation::decompose(asMatrix(), MEulerRotation::kXYZ);
}

MQuaternion& MQuaternion::setAxisAngle(const MVector& axis, double theta)
{
    const MVector n = axis.normal() * std::sin(theta / 2.0);
    return *this = MQuaternion(n.x, n.y, n.z, std::cos(theta / 2.0));
}

// False when the rotation is the identity and so has no axis.
bool MQuaternion::getAxisAngle(MVector& axis, double& theta) const
{
    const MQuaternion q = normal();
    const MVector v = imaginary(q);
    theta = 2.0 * std::atan2(v.length(), q.w);
    if (v.length() == 0.0)
    {
        axis = MVector::zAxis;
        return false;
    }
    axis = v.normal();
    return true;
}

MQuaternion& MQuaternion::setToXAxis(double theta)
{
    return setAxisAngle(MVector::xAxis, theta);
}

MQuaternion& MQuaternion::setToYAxis(double theta)
{
    return setAxisAngle(MVector::yAxis, theta);
}

MQuaternion& MQuaternion::setToZAxis(double theta)
{
    return setAxisAngle(MVector::zAxis, theta);
}

MStatus MQuaternion::get(double dest[4]) const
{
    for (unsigned int i = 0; i < 4; ++i)
        dest[i] = (*this)[i];
    return MS::kSuccess;
}

double MQuaternion::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

double& MQuaternion::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

MQuaternion MQuaternion::operator+(const MQuaternion& other) const
{
    return MQuaternion(x + other.x, y + other.y, z + other.z, w + other.w);
}

// Maya composes like its row-vector matrices: a * b applies a, then b.
MQuaternion MQuaternion::operator*(const MQuaternion& other) const
{
    return hamilton(other, *this);
}

MQuaternion& MQuaternion::operator*=(const MQuaternion& rhs)
{
    return *this = *this * rhs;
}

MQuaternion MQuaternion::operator-(const MQuaternion& other) const
{
    return *this + -other;
}

MQuaternion MQuaternion::operator-() const
{
    return MQuaternion(-x, -y, -z, -w);
}

MQuaternion& MQuaternion::negateIt()
{
    return *this = -*this;
}

bool MQuaternion::operator==(const MQuaternion& other) const
{
    return x == other.x && y == other.y && z == other.z && w == other.w;
}

bool MQuaternion::operator!=(const MQuaternion& other) const
{
    return !(*this == other);
}

bool MQuaternion::isEquivalent(const MQuaternion& other, double tolerance) const
{
    const MQuaternion d = *this - other;
    return std::sqrt(dot(d, d)) <= tolerance;
}

MQuaternion& MQuaternion::scaleIt(double scale)
{
    return *this = scale * *this;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MQuaternion operator*(double scale, const MQuaternion& q)
{
    return MQuaternion(scale * q.x, scale * q.y, scale * q.z, scale * q.w);
}
OPENMAYA_NAMESPACE_CLOSE

MQuaternion MQuaternion::normal() const
{
    return MQuaternion(*this).normalizeIt();
}

MQuaternion& MQuaternion::normalizeIt()
{
    const double len = std::sqrt(dot(*this, *this));
    return len > 0.0 ? scaleIt(1.0 / len) : *this;
}

MQuaternion MQuaternion::conjugate() const
{
    return MQuaternion(-x, -y, -z, w);
}

MQuaternion& MQuaternion::conjugateIt()
{
    return *this = conjugate();
}

MQuaternion MQuaternion::inverse() const
{
    const double norm = dot(*this, *this);
    return norm > 0.0 ? (1.0 / norm) * conjugate() : *this;
}

MQuaternion& MQuaternion::invertIt()
{
    return *this = inverse();
}

MQuaternion MQuaternion::log() const
{
    const MVector v = imaginary(*this);
    const double len = v.length();
    const MVector scaled = len > 0.0 ? v * (std::atan2(len, w) / len) : v;
    return MQuaternion(scaled.x, scaled.y, scaled.z, 0.0);
}

MQuaternion MQuaternion::exp() const
{
    const MVector v = imaginary(*this);
    const double theta = v.length();
    const MVector scaled = theta > 0.0 ? v * (std::sin(theta) / theta) : v;
    return MQuaternion(scaled.x, scaled.y, scaled.z, std::cos(theta));
}

// Along the shorter arc.
OPENMAYA_MAJOR_NAMESPACE_OPEN
MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t)
{
    return slerp(p, dot(p, q) < 0.0 ? -q : q, t, 0);
}
OPENMAYA_NAMESPACE_CLOSE

// Along the arc from p to q as given, with `spin` extra half turns.
OPENMAYA_MAJOR_NAMESPACE_OPEN
MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t, short spin)
{
    const double cosOmega = std::fmax(-1.0, std::fmin(1.0, dot(p, q)));
    const double omega = std::acos(cosOmega);
    const double sinOmega = std::sin(omega);
    if (std::fabs(sinOmega) < 1.0e-9)
        return ((1.0 - t) * p + t * q).normalizeIt();
    const double phi = omega + spin * math::kPi;
    return (std::sin(omega - t * phi) / sinOmega) * p + (std::sin(t * phi) / sinOmega) * q;
}
OPENMAYA_NAMESPACE_CLOSE

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MQuaternion& q)
{
    return os << math::listText({q.x, q.y, q.z, q.w});
}
OPENMAYA_NAMESPACE_CLOSE
