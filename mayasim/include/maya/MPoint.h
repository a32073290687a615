#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <iosfwd>

#define MPoint_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A homogeneous point of doubles (x, y, z, w); transformed as a row: p * M.
class OPENMAYA_EXPORT MPoint
{
public:
    MPoint();
    MPoint(const MPoint& srcpt);
    MPoint(const MFloatPoint& srcpt);
    MPoint(const MVector& src);
    MPoint(const MFloatVector& src);
    MPoint(double xx, double yy, double zz = 0.0, double ww = 1.0);
    MPoint(const double d[4]);
    MPoint(const float f[4]);
    ~MPoint();
    MStatus get(double dest[4]) const;
    MStatus get(float dest[4]) const;
    MPoint& operator=(const MPoint& src);
    double operator()(unsigned int i) const;
    double operator[](unsigned int i) const;
    MVector operator-(const MPoint& other) const;
    MPoint operator+(const MVector& other) const;
    MPoint operator-(const MVector& other) const;
    MPoint& operator+=(const MVector& vector);
    MPoint& operator-=(const MVector& vector);
    MPoint operator*(const int scale) const;
    MPoint operator*(const short scale) const;
    MPoint operator*(const unsigned int scale) const;
    MPoint operator*(const unsigned short scale) const;
    MPoint operator*(const float scale) const;
    MPoint operator*(const double scale) const;
    MPoint& operator*=(const int scale);
    MPoint& operator*=(const short scale);
    MPoint& operator*=(const unsigned int scale);
    MPoint& operator*=(const unsigned short scale);
    MPoint& operator*=(const float scale);
    MPoint& operator*=(const double scale);
    MPoint operator/(const double scale) const;
    MPoint operator*(const MMatrix&) const;
    MPoint& operator*=(const MMatrix&);
    bool operator==(const MPoint& other) const;
    bool operator!=(const MPoint& other) const;
    MPoint& cartesianize();
    MPoint& rationalize();
    MPoint& homogenize();
    double distanceTo(const MPoint& other) const;
    bool isEquivalent(const MPoint& other, double tolerance = MPoint_kTol) const;

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator()(unsigned int i);
    double& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MPoint operator*(const MMatrix&, const MPoint&);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MPoint& p);
END_NO_SCRIPT_SUPPORT:

    static const MPoint origin;
    static const char* className();

    double x;
    double y;
    double z;
    double w;
};

OPENMAYA_NAMESPACE_CLOSE
