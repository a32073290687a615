#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <iosfwd>

#define MFloatPoint_kTol 1.0e-5F

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A homogeneous point of floats (x, y, z, w).
class OPENMAYA_EXPORT MFloatPoint
{
public:
    MFloatPoint();
    MFloatPoint(const MFloatPoint& srcpt);
    MFloatPoint(const MPoint& srcpt);
    MFloatPoint(const MFloatVector& src);
    MFloatPoint(const MVector& src);
    MFloatPoint(float xx, float yy, float zz = 0.0, float ww = 1.0);
    MFloatPoint(const float f[4]);
    MFloatPoint(const double d[4]);
    ~MFloatPoint();
    MStatus get(double dest[4]) const;
    MStatus get(float dest[4]) const;
    MFloatPoint& operator=(const MFloatPoint& src);
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    MFloatVector operator-(const MFloatPoint& other) const;
    MFloatPoint operator+(const MFloatVector& other) const;
    MFloatPoint operator-(const MFloatVector& other) const;
    MFloatPoint& operator+=(const MFloatVector& vector);
    MFloatPoint& operator-=(const MFloatVector& vector);
    MFloatPoint operator*(const int scale) const;
    MFloatPoint operator*(const short scale) const;
    MFloatPoint operator*(const unsigned int scale) const;
    MFloatPoint operator*(const unsigned short scale) const;
    MFloatPoint operator*(const float scale) const;
    MFloatPoint operator*(const double scale) const;
    MFloatPoint operator/(const float scale) const;
    MFloatPoint operator*(const MFloatMatrix&) const;
    MFloatPoint& operator*=(const MFloatMatrix&);
    bool operator==(const MFloatPoint& other) const;
    bool operator!=(const MFloatPoint& other) const;
    MFloatPoint& cartesianize();
    MFloatPoint& rationalize();
    MFloatPoint& homogenize();
    float distanceTo(const MFloatPoint& other) const;
    bool isEquivalent(const MFloatPoint& other, float tolerance = MFloatPoint_kTol) const;

BEGIN_NO_SCRIPT_SUPPORT:
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MFloatPoint operator*(const MFloatMatrix&, const MFloatPoint&);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatPoint& p);
END_NO_SCRIPT_SUPPORT:

    static const MFloatPoint origin;
    static const char* className();

    float x;
    float y;
    float z;
    float w;
};

OPENMAYA_NAMESPACE_CLOSE
