#include <maya/MVector.h>

#include <maya/MEulerRotation.h>
#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MQuaternion.h>

#include "MatrixMath.h"

#include <algorithm>
#include <cmath>
#include <ostream>

using namespace mayasim;

const MVector MVector::zero(0.0, 0.0, 0.0);
const MVector MVector::one(1.0, 1.0, 1.0);
const MVector MVector::xAxis(1.0, 0.0, 0.0);
const MVector MVector::yAxis(0.0, 1.0, 0.0);
const MVector MVector::zAxis(0.0, 0.0, 1.0);
const MVector MVector::xNegAxis(-1.0, 0.0, 0.0);
const MVector MVector::yNegAxis(0.0, -1.0, 0.0);
const MVector MVector::zNegAxis(0.0, 0.0, -1.0);

MVector::MVector() : x(0.0), y(0.0), z(0.0) {}
MVector::MVector(const MVector&) = default;
MVector::MVector(const MFloatVector& v) : x(v.x), y(v.y), z(v.z) {}
MVector::MVector(const MPoint& p) : x(p.x), y(p.y), z(p.z) {}
MVector::MVector(const MFloatPoint& p) : x(p.x), y(p.y), z(p.z) {}
MVector::MVector(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
MVector::MVector(const double d[3]) : x(d[0]), y(d[1]), z(d[2]) {}
MVector::MVector(const float f[3]) : x(f[0]), y(f[1]), z(f[2]) {}
MVector::~MVector() = default;
MVector& MVector::operator=(const MVector&) = default;

double MVector::operator()(unsigned int i) const
{
    return (*this)[i];
}

double MVector::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : z;
}

double& MVector::operator()(unsigned int i)
{
    return (*this)[i];
}

double& MVector::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : z;
}

MVector MVector::operator^(const MVector& r) const
{
    return MVector(y * r.z - z * r.y, z * r.x - x * r.z, x * r.y - y * r.x);
}

double MVector::operator*(const MVector& r) const
{
    return x * r.x + y * r.y + z * r.z;
}

MVector& MVector::operator/=(double scalar)
{
    x /= scalar;
    y /= scalar;
    z /= scalar;
    return *this;
}

MVector MVector::operator/(double scalar) const
{
    return MVector(*this) /= scalar;
}

MVector& MVector::operator*=(double scalar)
{
    x *= scalar;
    y *= scalar;
    z *= scalar;
    return *this;
}

MVector& MVector::operator*=(int scalar) { return *this *= double(scalar); }
MVector& MVector::operator*=(short scalar) { return *this *= double(scalar); }
MVector& MVector::operator*=(unsigned int scalar) { return *this *= double(scalar); }
MVector& MVector::operator*=(unsigned short scalar) { return *this *= double(scalar); }
MVector& MVector::operator*=(float scalar) { return *this *= double(scalar); }
MVector MVector::operator*(double scalar) const { return MVector(*this) *= scalar; }
MVector MVector::operator*(int scalar) const { return *this * double(scalar); }
MVector MVector::operator*(short scalar) const { return *this * double(scalar); }
MVector MVector::operator*(unsigned int scalar) const { return *this * double(scalar); }
MVector MVector::operator*(unsigned short scalar) const { return *this * double(scalar); }
MVector MVector::operator*(float scalar) const { return *this * double(scalar); }
OPENMAYA_MAJOR_NAMESPACE_OPEN
MVector operator*(int s, const MVector& v) { return v * double(s); }
MVector operator*(short s, const MVector& v) { return v * double(s); }
MVector operator*(unsigned int s, const MVector& v) { return v * double(s); }
MVector operator*(unsigned short s, const MVector& v) { return v * double(s); }
MVector operator*(float s, const MVector& v) { return v * double(s); }
MVector operator*(double s, const MVector& v) { return v * s; }
OPENMAYA_NAMESPACE_CLOSE

MVector MVector::operator+(const MVector& other) const
{
    return MVector(x + other.x, y + other.y, z + other.z);
}

MVector& MVector::operator+=(const MVector& other)
{
    return *this = *this + other;
}

MVector MVector::operator-() const
{
    return MVector(-x, -y, -z);
}

MVector& MVector::operator-=(const MVector& other)
{
    return *this = *this - other;
}

MVector MVector::operator-(const MVector& other) const
{
    return MVector(x - other.x, y - other.y, z - other.z);
}

// Directions ignore the translation row.
MVector MVector::operator*(const MMatrix& m) const
{
    const double in[4] = {x, y, z, 0.0};
    double out[4];
    math::transformRow(in, m.matrix, out);
    return MVector(out);
}

MVector& MVector::operator*=(const MMatrix& m)
{
    return *this = *this * m;
}

// Column-vector product M * v.
OPENMAYA_MAJOR_NAMESPACE_OPEN
MVector operator*(const MMatrix& m, const MVector& v)
{
    return v * m.transpose();
}
OPENMAYA_NAMESPACE_CLOSE

bool MVector::operator!=(const MVector& other) const
{
    return !(*this == other);
}

bool MVector::operator==(const MVector& other) const
{
    return x == other.x && y == other.y && z == other.z;
}

MVector MVector::rotateBy(double qx, double qy, double qz, double qw) const
{
    return rotateBy(MQuaternion(qx, qy, qz, qw));
}

MVector MVector::rotateBy(const double rotXYZ[3], MTransformationMatrix::RotationOrder order) const
{
    const int eulerOrder = std::max(0, static_cast<int>(order) - 1);
    return rotateBy(MEulerRotation(rotXYZ[0], rotXYZ[1], rotXYZ[2], MEulerRotation::RotationOrder(eulerOrder)));
}

MVector MVector::rotateBy(MVector::Axis axis, const double angle) const
{
    const MVector axes[] = {xAxis, yAxis, zAxis};
    return axis > kZaxis ? *this : rotateBy(MQuaternion(angle, axes[axis]));
}

MVector MVector::rotateBy(const MQuaternion& q) const
{
    return *this * q.asMatrix();
}

MVector MVector::rotateBy(const MEulerRotation& e) const
{
    return *this * e.asMatrix();
}

MQuaternion MVector::rotateTo(const MVector& target) const
{
    return MQuaternion(*this, target);
}

MStatus MVector::get(double d[3]) const
{
    d[0] = x;
    d[1] = y;
    d[2] = z;
    return MS::kSuccess;
}

double MVector::length() const
{
    return std::sqrt(*this * *this);
}

MVector MVector::normal() const
{
    MVector result(*this);
    result.normalize();
    return result;
}

MStatus MVector::normalize()
{
    const double len = length();
    if (len > 0.0)
        *this /= len;
    return MS::kSuccess;
}

double MVector::angle(const MVector& other) const
{
    return std::atan2((*this ^ other).length(), *this * other);
}

bool MVector::isEquivalent(const MVector& other, double tolerance) const
{
    return (*this - other).length() <= tolerance;
}

bool MVector::isParallel(const MVector& other, double tolerance) const
{
    return (normal() ^ other.normal()).length() <= tolerance;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MVector& v)
{
    return os << math::listText({v.x, v.y, v.z});
}
OPENMAYA_NAMESPACE_CLOSE
