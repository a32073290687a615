#include <maya/MFloatPoint.h>

#include <maya/MFloatMatrix.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MVector.h>

#include "MatrixMath.h"

#include <ostream>

using namespace mayasim;

// The float point follows MPoint's rules; it computes through MPoint.

const MFloatPoint MFloatPoint::origin;

MFloatPoint::MFloatPoint() : x(0.0F), y(0.0F), z(0.0F), w(1.0F) {}
MFloatPoint::MFloatPoint(const MFloatPoint&) = default;
MFloatPoint::MFloatPoint(const MPoint& p) : x(float(p.x)), y(float(p.y)), z(float(p.z)), w(float(p.w)) {}
MFloatPoint::MFloatPoint(const MFloatVector& v) : x(v.x), y(v.y), z(v.z), w(1.0F) {}
MFloatPoint::MFloatPoint(const MVector& v) : x(float(v.x)), y(float(v.y)), z(float(v.z)), w(1.0F) {}
MFloatPoint::MFloatPoint(float xx, float yy, float zz, float ww) : x(xx), y(yy), z(zz), w(ww) {}
MFloatPoint::MFloatPoint(const float f[4]) : x(f[0]), y(f[1]), z(f[2]), w(f[3]) {}
MFloatPoint::MFloatPoint(const double d[4]) : x(float(d[0])), y(float(d[1])), z(float(d[2])), w(float(d[3])) {}
MFloatPoint::~MFloatPoint() = default;
MFloatPoint& MFloatPoint::operator=(const MFloatPoint&) = default;

MStatus MFloatPoint::get(double dest[4]) const
{
    return MPoint(*this).get(dest);
}

MStatus MFloatPoint::get(float dest[4]) const
{
    return MPoint(*this).get(dest);
}

float MFloatPoint::operator()(unsigned int i) const
{
    return (*this)[i];
}

float MFloatPoint::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

float& MFloatPoint::operator()(unsigned int i)
{
    return (*this)[i];
}

float& MFloatPoint::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

MFloatVector MFloatPoint::operator-(const MFloatPoint& other) const
{
    return MFloatVector(MPoint(*this) - MPoint(other));
}

MFloatPoint MFloatPoint::operator+(const MFloatVector& v) const
{
    return MFloatPoint(MPoint(*this) + MVector(v));
}

MFloatPoint MFloatPoint::operator-(const MFloatVector& v) const
{
    return MFloatPoint(MPoint(*this) - MVector(v));
}

MFloatPoint& MFloatPoint::operator+=(const MFloatVector& v)
{
    return *this = *this + v;
}

MFloatPoint& MFloatPoint::operator-=(const MFloatVector& v)
{
    return *this = *this - v;
}

MFloatPoint MFloatPoint::operator*(const double scale) const { return MFloatPoint(MPoint(*this) * scale); }
MFloatPoint MFloatPoint::operator*(const int scale) const { return *this * double(scale); }
MFloatPoint MFloatPoint::operator*(const short scale) const { return *this * double(scale); }
MFloatPoint MFloatPoint::operator*(const unsigned int scale) const { return *this * double(scale); }
MFloatPoint MFloatPoint::operator*(const unsigned short scale) const { return *this * double(scale); }
MFloatPoint MFloatPoint::operator*(const float scale) const { return *this * double(scale); }

MFloatPoint MFloatPoint::operator/(const float scale) const
{
    return MFloatPoint(MPoint(*this) / scale);
}

MFloatPoint MFloatPoint::operator*(const MFloatMatrix& m) const
{
    const float in[4] = {x, y, z, w};
    float out[4];
    math::transformRow(in, m.matrix, out);
    return MFloatPoint(out);
}

MFloatPoint& MFloatPoint::operator*=(const MFloatMatrix& m)
{
    return *this = *this * m;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MFloatPoint operator*(const MFloatMatrix& m, const MFloatPoint& p)
{
    return p * m.transpose();
}
OPENMAYA_NAMESPACE_CLOSE

bool MFloatPoint::operator==(const MFloatPoint& other) const
{
    return x == other.x && y == other.y && z == other.z && w == other.w;
}

bool MFloatPoint::operator!=(const MFloatPoint& other) const
{
    return !(*this == other);
}

MFloatPoint& MFloatPoint::cartesianize()
{
    return *this = MFloatPoint(MPoint(*this).cartesianize());
}

MFloatPoint& MFloatPoint::rationalize()
{
    return *this = MFloatPoint(MPoint(*this).rationalize());
}

MFloatPoint& MFloatPoint::homogenize()
{
    return *this = MFloatPoint(MPoint(*this).homogenize());
}

float MFloatPoint::distanceTo(const MFloatPoint& other) const
{
    return float(MPoint(*this).distanceTo(MPoint(other)));
}

bool MFloatPoint::isEquivalent(const MFloatPoint& other, float tolerance) const
{
    return distanceTo(other) <= tolerance;
}

const char* MFloatPoint::className()
{
    return "MFloatPoint";
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MFloatPoint& p)
{
    return os << MPoint(p);
}
OPENMAYA_NAMESPACE_CLOSE
