#include <maya/MFloatVector.h>

#include <maya/MFloatMatrix.h>
#include <maya/MFloatPoint.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include <ostream>

// The float vector follows MVector's rules; it computes through MVector.

const MFloatVector MFloatVector::zero(0.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::one(1.0F, 1.0F, 1.0F);
const MFloatVector MFloatVector::xAxis(1.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::yAxis(0.0F, 1.0F, 0.0F);
const MFloatVector MFloatVector::zAxis(0.0F, 0.0F, 1.0F);
const MFloatVector MFloatVector::xNegAxis(-1.0F, 0.0F, 0.0F);
const MFloatVector MFloatVector::yNegAxis(0.0F, -1.0F, 0.0F);
const MFloatVector MFloatVector::zNegAxis(0.0F, 0.0F, -1.0F);

MFloatVector::MFloatVector() : x(0.0F), y(0.0F), z(0.0F) {}
MFloatVector::MFloatVector(const MFloatVector&) = default;
MFloatVector::MFloatVector(const MVector& v) : x(float(v.x)), y(float(v.y)), z(float(v.z)) {}
MFloatVector::MFloatVector(const MFloatPoint& p) : x(p.x), y(p.y), z(p.z) {}
MFloatVector::MFloatVector(const MPoint& p) : x(float(p.x)), y(float(p.y)), z(float(p.z)) {}
MFloatVector::MFloatVector(float xx, float yy, float zz) : x(xx), y(yy), z(zz) {}
MFloatVector::MFloatVector(const float f[3]) : x(f[0]), y(f[1]), z(f[2]) {}
MFloatVector::MFloatVector(const double d[3]) : x(float(d[0])), y(float(d[1])), z(float(d[2])) {}
MFloatVector::~MFloatVector() = default;
MFloatVector& MFloatVector::operator=(const MFloatVector&) = default;

float MFloatVector::operator()(unsigned int i) const
{
    return (*this)[i];
}

float MFloatVector::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : z;
}

float& MFloatVector::operator()(unsigned int i)
{
    return (*this)[i];
}

float& MFloatVector::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : z;
}

MFloatVector MFloatVector::operator^(const MFloatVector& r) const { return MFloatVector(MVector(*this) ^ MVector(r)); }
float MFloatVector::operator*(const MFloatVector& r) const { return float(MVector(*this) * MVector(r)); }
MFloatVector& MFloatVector::operator/=(float scalar) { return *this = *this / scalar; }
MFloatVector MFloatVector::operator/(float scalar) const { return MFloatVector(MVector(*this) / double(scalar)); }
MFloatVector& MFloatVector::operator*=(double scalar) { return *this = *this * scalar; }
MFloatVector& MFloatVector::operator*=(int scalar) { return *this *= double(scalar); }
MFloatVector& MFloatVector::operator*=(short scalar) { return *this *= double(scalar); }
MFloatVector& MFloatVector::operator*=(unsigned int scalar) { return *this *= double(scalar); }
MFloatVector& MFloatVector::operator*=(unsigned short scalar) { return *this *= double(scalar); }
MFloatVector& MFloatVector::operator*=(float scalar) { return *this *= double(scalar); }
MFloatVector MFloatVector::operator*(double scalar) const { return MFloatVector(MVector(*this) * scalar); }
MFloatVector MFloatVector::operator*(int scalar) const { return *this * double(scalar); }
MFloatVector MFloatVector::operator*(short scalar) const { return *this * double(scalar); }
MFloatVector MFloatVector::operator*(unsigned int scalar) const { return *this * double(scalar); }
MFloatVector MFloatVector::operator*(unsigned short scalar) const { return *this * double(scalar); }
MFloatVector MFloatVector::operator*(float scalar) const { return *this * double(scalar); }
OPENMAYA_MAJOR_NAMESPACE_OPEN
MFloatVector operator*(int s, const MFloatVector& v) { return v * double(s); }
MFloatVector operator*(short s, const MFloatVector& v) { return v * double(s); }
MFloatVector operator*(unsigned int s, const MFloatVector& v) { return v * double(s); }
MFloatVector operator*(unsigned short s, const MFloatVector& v) { return v * double(s); }
MFloatVector operator*(float s, const MFloatVector& v) { return v * double(s); }
MFloatVector operator*(double s, const MFloatVector& v) { return v * s; }
OPENMAYA_NAMESPACE_CLOSE
MFloatVector MFloatVector::operator+(const MFloatVector& o) const { return MFloatVector(MVector(*this) + MVector(o)); }
MFloatVector& MFloatVector::operator+=(const MFloatVector& other) { return *this = *this + other; }
MFloatVector MFloatVector::operator-() const { return MFloatVector(-x, -y, -z); }
MFloatVector& MFloatVector::operator-=(const MFloatVector& other) { return *this = *this - other; }
MFloatVector MFloatVector::operator-(const MFloatVector& o) const { return MFloatVector(MVector(*this) - MVector(o)); }
MFloatVector MFloatVector::operator*(const MFloatMatrix& m) const { return MFloatVector(MVector(*this) * MMatrix(m.matrix)); }
MFloatVector& MFloatVector::operator*=(const MFloatMatrix& m) { return *this = *this * m; }
OPENMAYA_MAJOR_NAMESPACE_OPEN
MFloatVector operator*(const MFloatMatrix& m, const MFloatVector& v) { return MFloatVector(MMatrix(m.matrix) * MVector(v)); }
OPENMAYA_NAMESPACE_CLOSE
bool MFloatVector::operator!=(const MFloatVector& other) const { return !(*this == other); }
bool MFloatVector::operator==(const MFloatVector& o) const { return x == o.x && y == o.y && z == o.z; }

MStatus MFloatVector::get(float f[3]) const
{
    f[0] = x;
    f[1] = y;
    f[2] = z;
    return MS::kSuccess;
}

float MFloatVector::length() const { return float(MVector(*this).length()); }
MFloatVector MFloatVector::normal() const { return MFloatVector(MVector(*this).normal()); }
MStatus MFloatVector::normalize() { *this = normal(); return MS::kSuccess; }
float MFloatVector::angle(const MFloatVector& other) const { return float(MVector(*this).angle(MVector(other))); }

bool MFloatVector::isEquivalent(const MFloatVector& other, float tolerance) const
{
    return MVector(*this).isEquivalent(MVector(other), tolerance);
}

bool MFloatVector::isParallel(const MFloatVector& other, float tolerance) const
{
    return MVector(*this).isParallel(MVector(other), tolerance);
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MFloatVector& v)
{
    return os << MVector(v);
}
OPENMAYA_NAMESPACE_CLOSE
