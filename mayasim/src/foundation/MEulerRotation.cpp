#include <maya/MEulerRotation.h>

#include <maya/MMatrix.h>
#include <maya/MQuaternion.h>
#include <maya/MVector.h>

#include "MatrixMath.h"

#include <cmath>
#include <ostream>

using namespace mayasim;

namespace {

struct OrderAxes
{
    int axis[3];   // axes in the order they apply
    bool even;     // an even permutation of x, y, z
};

OrderAxes axesOf(MEulerRotation::RotationOrder order)
{
    switch (order)
    {
    case MEulerRotation::kYZX: return {{1, 2, 0}, true};
    case MEulerRotation::kZXY: return {{2, 0, 1}, true};
    case MEulerRotation::kXZY: return {{0, 2, 1}, false};
    case MEulerRotation::kYXZ: return {{1, 0, 2}, false};
    case MEulerRotation::kZYX: return {{2, 1, 0}, false};
    default: return {{0, 1, 2}, true};
    }
}

// Rotation about one axis for row vectors: for x, rows [1 0 0] [0 c s] [0 -s c].
MMatrix axisMatrix(int axis, double angle)
{
    MMatrix m;
    const int j = (axis + 1) % 3, k = (axis + 2) % 3;
    const double c = std::cos(angle), s = std::sin(angle);
    m[j][j] = c;
    m[j][k] = s;
    m[k][j] = -s;
    m[k][k] = c;
    return m;
}

MQuaternion axisQuaternion(int axis, double angle)
{
    MQuaternion q(0.0, 0.0, 0.0, std::cos(angle / 2.0));
    q[static_cast<unsigned int>(axis)] = std::sin(angle / 2.0);
    return q;
}

// Same angle modulo 2 pi, as close to `target` as possible.
double nearestCut(double angle, double target)
{
    return angle + 2.0 * math::kPi * std::round((target - angle) / (2.0 * math::kPi));
}

// Within [-pi, pi].
double boundAngle(double angle)
{
    return nearestCut(angle, 0.0);
}

double distance(const MEulerRotation& a, const MEulerRotation& b)
{
    return std::fabs(a.x - b.x) + std::fabs(a.y - b.y) + std::fabs(a.z - b.z);
}

} // namespace

const MEulerRotation MEulerRotation::identity;

MEulerRotation::MEulerRotation() : x(0.0), y(0.0), z(0.0), order(kXYZ) {}
MEulerRotation::MEulerRotation(const MEulerRotation&) = default;
MEulerRotation::MEulerRotation(const MVector& v, RotationOrder ord) : x(v.x), y(v.y), z(v.z), order(ord) {}
MEulerRotation::MEulerRotation(double xx, double yy, double zz, RotationOrder ord) : x(xx), y(yy), z(zz), order(ord)
{
}
MEulerRotation::~MEulerRotation() = default;
MEulerRotation& MEulerRotation::operator=(const MEulerRotation&) = default;

// Assigning a rotation keeps this rotation order.
MEulerRotation& MEulerRotation::operator=(const MQuaternion& q)
{
    return *this = q.asMatrix();
}

MEulerRotation& MEulerRotation::operator=(const MMatrix& m)
{
    return *this = decompose(m, order);
}

MEulerRotation& MEulerRotation::operator=(const MVector& v)
{
    return setValue(v.x, v.y, v.z, order);
}

MEulerRotation& MEulerRotation::setValue(const MVector& v, RotationOrder ord)
{
    return setValue(v.x, v.y, v.z, ord);
}

MEulerRotation& MEulerRotation::setValue(double xx, double yy, double zz, RotationOrder ord)
{
    x = xx;
    y = yy;
    z = zz;
    order = ord;
    return *this;
}

MQuaternion MEulerRotation::asQuaternion() const
{
    const OrderAxes axes = axesOf(order);
    MQuaternion q;
    for (int axis : axes.axis)
        q *= axisQuaternion(axis, (*this)[static_cast<unsigned int>(axis)]);
    return q;
}

MMatrix MEulerRotation::asMatrix() const
{
    const OrderAxes axes = axesOf(order);
    MMatrix m;
    for (int axis : axes.axis)
        m *= axisMatrix(axis, (*this)[static_cast<unsigned int>(axis)]);
    return m;
}

MVector MEulerRotation::asVector() const
{
    return MVector(x, y, z);
}

double MEulerRotation::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : z;
}

double& MEulerRotation::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : z;
}

MEulerRotation MEulerRotation::operator+(const MEulerRotation& other) const
{
    return MEulerRotation(x + other.x, y + other.y, z + other.z, order);
}

MEulerRotation& MEulerRotation::operator+=(const MEulerRotation& other)
{
    return *this = *this + other;
}

MEulerRotation MEulerRotation::operator-(const MEulerRotation& other) const
{
    return *this + -other;
}

MEulerRotation& MEulerRotation::operator-=(const MEulerRotation& other)
{
    return *this = *this - other;
}

MEulerRotation MEulerRotation::operator-() const
{
    return MEulerRotation(-x, -y, -z, order);
}

// Products compose the rotations (this first) and keep this order.
MEulerRotation MEulerRotation::operator*(const MEulerRotation& other) const
{
    return *this * other.asQuaternion();
}

MEulerRotation MEulerRotation::operator*(const MQuaternion& other) const
{
    return decompose((asQuaternion() * other).asMatrix(), order);
}

MEulerRotation MEulerRotation::operator*(double other) const
{
    return MEulerRotation(x * other, y * other, z * other, order);
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MEulerRotation operator*(double scale, const MEulerRotation& other)
{
    return other * scale;
}
OPENMAYA_NAMESPACE_CLOSE

MEulerRotation& MEulerRotation::operator*=(const MEulerRotation& other)
{
    return *this = *this * other;
}

MEulerRotation& MEulerRotation::operator*=(const MQuaternion& other)
{
    return *this = *this * other;
}

MEulerRotation& MEulerRotation::operator*=(double other)
{
    return *this = *this * other;
}

bool MEulerRotation::operator==(const MEulerRotation& other) const
{
    return x == other.x && y == other.y && z == other.z && order == other.order;
}

bool MEulerRotation::operator!=(const MEulerRotation& other) const
{
    return !(*this == other);
}

bool MEulerRotation::isEquivalent(const MEulerRotation& other, double tolerance) const
{
    return order == other.order && std::fabs(x - other.x) <= tolerance && std::fabs(y - other.y) <= tolerance &&
           std::fabs(z - other.z) <= tolerance;
}

bool MEulerRotation::isZero(double tolerance) const
{
    return isEquivalent(MEulerRotation(0.0, 0.0, 0.0, order), tolerance);
}

// The same angles undone in reverse order.
MEulerRotation MEulerRotation::inverse() const
{
    static const RotationOrder reversed[] = {kZYX, kXZY, kYXZ, kYZX, kZXY, kXYZ};
    return MEulerRotation(-x, -y, -z, reversed[order]);
}

MEulerRotation& MEulerRotation::invertIt()
{
    return *this = inverse();
}

MEulerRotation MEulerRotation::reorder(RotationOrder ord) const
{
    return decompose(asMatrix(), ord);
}

MEulerRotation& MEulerRotation::reorderIt(RotationOrder ord)
{
    return *this = reorder(ord);
}

MEulerRotation MEulerRotation::bound() const
{
    return bound(*this);
}

MEulerRotation MEulerRotation::bound(const MEulerRotation& src)
{
    return MEulerRotation(boundAngle(src.x), boundAngle(src.y), boundAngle(src.z), src.order);
}

MEulerRotation& MEulerRotation::boundIt(const MEulerRotation& src)
{
    return *this = bound(src);
}

MEulerRotation& MEulerRotation::boundIt()
{
    return *this = bound(*this);
}

// The other angles giving the same rotation: first and last axes turn a
// half turn further, the middle one is mirrored about a quarter turn.
MEulerRotation MEulerRotation::alternateSolution(const MEulerRotation& src)
{
    const OrderAxes axes = axesOf(src.order);
    MEulerRotation result(src);
    result[static_cast<unsigned int>(axes.axis[0])] += math::kPi;
    result[static_cast<unsigned int>(axes.axis[1])] = math::kPi - result[static_cast<unsigned int>(axes.axis[1])];
    result[static_cast<unsigned int>(axes.axis[2])] += math::kPi;
    return bound(result);
}

MEulerRotation MEulerRotation::alternateSolution() const
{
    return alternateSolution(*this);
}

MEulerRotation& MEulerRotation::setToAlternateSolution(const MEulerRotation& src)
{
    return *this = alternateSolution(src);
}

MEulerRotation& MEulerRotation::setToAlternateSolution()
{
    return *this = alternateSolution(*this);
}

MEulerRotation MEulerRotation::closestCut(const MEulerRotation& src, const MEulerRotation& dst)
{
    return MEulerRotation(nearestCut(src.x, dst.x), nearestCut(src.y, dst.y), nearestCut(src.z, dst.z), src.order);
}

MEulerRotation MEulerRotation::closestCut(const MEulerRotation& dst) const
{
    return closestCut(*this, dst);
}

MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& src, const MEulerRotation& dst)
{
    return *this = closestCut(src, dst);
}

MEulerRotation& MEulerRotation::setToClosestCut(const MEulerRotation& dst)
{
    return *this = closestCut(*this, dst);
}

// Of the two solutions, each brought to its closest cut, the nearer to dst.
MEulerRotation MEulerRotation::closestSolution(const MEulerRotation& src, const MEulerRotation& dst)
{
    const MEulerRotation first = closestCut(src, dst);
    const MEulerRotation second = closestCut(alternateSolution(src), dst);
    return distance(second, dst) < distance(first, dst) ? second : first;
}

MEulerRotation MEulerRotation::closestSolution(const MEulerRotation& dst) const
{
    return closestSolution(*this, dst);
}

MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& src, const MEulerRotation& dst)
{
    return *this = closestSolution(src, dst);
}

MEulerRotation& MEulerRotation::setToClosestSolution(const MEulerRotation& dst)
{
    return *this = closestSolution(*this, dst);
}

// Relabelling the axes in application order turns every order into XYZ; an
// odd relabelling is a mirror, which flips the sign of the angles. The
// middle angle comes out within [-pi/2, pi/2], the others within [-pi, pi].
MEulerRotation MEulerRotation::decompose(const MMatrix& matrix, RotationOrder ord)
{
    const OrderAxes axes = axesOf(ord);
    double m[3][3];
    for (int r = 0; r < 3; ++r)
    {
        const MVector row = MVector(matrix[axes.axis[r]][0], matrix[axes.axis[r]][1], matrix[axes.axis[r]][2]);
        const double len = row.length();
        for (int c = 0; c < 3; ++c)
            m[r][c] = (len > 0.0 ? row[static_cast<unsigned int>(axes.axis[c])] / len : 0.0);
    }
    // m = Rx(a) * Ry(b) * Rz(c) in the relabelled axes.
    const double cosB = std::hypot(m[0][0], m[0][1]);
    const double b = std::atan2(-m[0][2], cosB);
    double a, c;
    if (cosB > 1.0e-12)
    {
        a = std::atan2(m[1][2], m[2][2]);
        c = std::atan2(m[0][1], m[0][0]);
    }
    else
    {
        // Gimbal lock: only a - c (or a + c) is defined; put it all in a.
        a = std::atan2(std::copysign(1.0, -m[0][2]) * m[1][0], m[1][1]);
        c = 0.0;
    }
    const double sign = axes.even ? 1.0 : -1.0;
    MEulerRotation result(0.0, 0.0, 0.0, ord);
    result[static_cast<unsigned int>(axes.axis[0])] = sign * a;
    result[static_cast<unsigned int>(axes.axis[1])] = sign * b;
    result[static_cast<unsigned int>(axes.axis[2])] = sign * c;
    return result;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MEulerRotation& rotation)
{
    static const char* const names[] = {"kXYZ", "kYZX", "kZXY", "kXZY", "kYXZ", "kZYX"};
    return os << math::listText({rotation.x, rotation.y, rotation.z}) << " " << names[rotation.order];
}
OPENMAYA_NAMESPACE_CLOSE
