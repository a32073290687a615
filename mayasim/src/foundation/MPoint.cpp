#include <maya/MPoint.h>

#include <maya/MFloatPoint.h>
#include <maya/MFloatVector.h>
#include <maya/MMatrix.h>
#include <maya/MVector.h>

#include "MatrixMath.h"

#include <cmath>
#include <ostream>

using namespace mayasim;

const MPoint MPoint::origin;

MPoint::MPoint() : x(0.0), y(0.0), z(0.0), w(1.0) {}
MPoint::MPoint(const MPoint&) = default;
MPoint::MPoint(const MFloatPoint& p) : x(p.x), y(p.y), z(p.z), w(p.w) {}
MPoint::MPoint(const MVector& v) : x(v.x), y(v.y), z(v.z), w(1.0) {}
MPoint::MPoint(const MFloatVector& v) : x(v.x), y(v.y), z(v.z), w(1.0) {}
MPoint::MPoint(double xx, double yy, double zz, double ww) : x(xx), y(yy), z(zz), w(ww) {}
MPoint::MPoint(const double d[4]) : x(d[0]), y(d[1]), z(d[2]), w(d[3]) {}
MPoint::MPoint(const float f[4]) : x(f[0]), y(f[1]), z(f[2]), w(f[3]) {}
MPoint::~MPoint() = default;
MPoint& MPoint::operator=(const MPoint&) = default;

MStatus MPoint::get(double dest[4]) const
{
    dest[0] = x;
    dest[1] = y;
    dest[2] = z;
    dest[3] = w;
    return MS::kSuccess;
}

MStatus MPoint::get(float dest[4]) const
{
    dest[0] = float(x);
    dest[1] = float(y);
    dest[2] = float(z);
    dest[3] = float(w);
    return MS::kSuccess;
}

double MPoint::operator()(unsigned int i) const
{
    return (*this)[i];
}

double MPoint::operator[](unsigned int i) const
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

double& MPoint::operator()(unsigned int i)
{
    return (*this)[i];
}

double& MPoint::operator[](unsigned int i)
{
    return i == 0 ? x : i == 1 ? y : i == 2 ? z : w;
}

// Differences and offsets work on the cartesian positions.
MVector MPoint::operator-(const MPoint& other) const
{
    const MPoint a = MPoint(*this).cartesianize();
    const MPoint b = MPoint(other).cartesianize();
    return MVector(a.x - b.x, a.y - b.y, a.z - b.z);
}

MPoint MPoint::operator+(const MVector& v) const
{
    const MPoint p = MPoint(*this).cartesianize();
    return MPoint(p.x + v.x, p.y + v.y, p.z + v.z);
}

MPoint MPoint::operator-(const MVector& v) const
{
    return *this + -v;
}

MPoint& MPoint::operator+=(const MVector& v)
{
    return *this = *this + v;
}

MPoint& MPoint::operator-=(const MVector& v)
{
    return *this = *this - v;
}

// Scaling leaves w alone, so a cartesian point scales about the origin.
MPoint& MPoint::operator*=(const double scale)
{
    x *= scale;
    y *= scale;
    z *= scale;
    return *this;
}

MPoint& MPoint::operator*=(const int scale) { return *this *= double(scale); }
MPoint& MPoint::operator*=(const short scale) { return *this *= double(scale); }
MPoint& MPoint::operator*=(const unsigned int scale) { return *this *= double(scale); }
MPoint& MPoint::operator*=(const unsigned short scale) { return *this *= double(scale); }
MPoint& MPoint::operator*=(const float scale) { return *this *= double(scale); }
MPoint MPoint::operator*(const double scale) const { return MPoint(*this) *= scale; }
MPoint MPoint::operator*(const int scale) const { return *this * double(scale); }
MPoint MPoint::operator*(const short scale) const { return *this * double(scale); }
MPoint MPoint::operator*(const unsigned int scale) const { return *this * double(scale); }
MPoint MPoint::operator*(const unsigned short scale) const { return *this * double(scale); }
MPoint MPoint::operator*(const float scale) const { return *this * double(scale); }

MPoint MPoint::operator/(const double scale) const
{
    return *this * (1.0 / scale);
}

MPoint MPoint::operator*(const MMatrix& m) const
{
    const double in[4] = {x, y, z, w};
    double out[4];
    math::transformRow(in, m.matrix, out);
    return MPoint(out);
}

MPoint& MPoint::operator*=(const MMatrix& m)
{
    return *this = *this * m;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
MPoint operator*(const MMatrix& m, const MPoint& p)
{
    return p * m.transpose();
}
OPENMAYA_NAMESPACE_CLOSE

bool MPoint::operator==(const MPoint& other) const
{
    return x == other.x && y == other.y && z == other.z && w == other.w;
}

bool MPoint::operator!=(const MPoint& other) const
{
    return !(*this == other);
}

MPoint& MPoint::cartesianize()
{
    if (w != 0.0 && w != 1.0)
    {
        x /= w;
        y /= w;
        z /= w;
        w = 1.0;
    }
    return *this;
}

MPoint& MPoint::rationalize()
{
    if (w != 0.0 && w != 1.0)
    {
        x /= w;
        y /= w;
        z /= w;
    }
    return *this;
}

MPoint& MPoint::homogenize()
{
    x *= w;
    y *= w;
    z *= w;
    return *this;
}

double MPoint::distanceTo(const MPoint& other) const
{
    return (*this - other).length();
}

bool MPoint::isEquivalent(const MPoint& other, double tolerance) const
{
    return distanceTo(other) <= tolerance;
}

const char* MPoint::className()
{
    return "MPoint";
}

OPENMAYA_MAJOR_NAMESPACE_OPEN
std::ostream& operator<<(std::ostream& os, const MPoint& p)
{
    return os << math::listText({p.x, p.y, p.z, p.w});
}
OPENMAYA_NAMESPACE_CLOSE
