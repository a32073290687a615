#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <iosfwd>

#define MFloatVector_kTol 1.0e-5F

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A vector math class for vectors of floats.
class OPENMAYA_EXPORT MFloatVector
{
public:
    MFloatVector();
    MFloatVector(const MFloatVector&);
    MFloatVector(const MVector&);
    MFloatVector(const MFloatPoint&);
    MFloatVector(const MPoint&);
    MFloatVector(float xx, float yy, float zz = 0.0);
    MFloatVector(const float f[3]);
    MFloatVector(const double d[3]);
    ~MFloatVector();
    MFloatVector& operator=(const MFloatVector& src);
    float operator()(unsigned int i) const;
    float operator[](unsigned int i) const;
    MFloatVector operator^(const MFloatVector& right) const;
    float operator*(const MFloatVector& right) const;
    MFloatVector& operator/=(float scalar);
    MFloatVector operator/(float scalar) const;
    MFloatVector& operator*=(int scalar);
    MFloatVector& operator*=(short scalar);
    MFloatVector& operator*=(unsigned int scalar);
    MFloatVector& operator*=(unsigned short scalar);
    MFloatVector& operator*=(float scalar);
    MFloatVector& operator*=(double scalar);
    MFloatVector operator*(int scalar) const;
    MFloatVector operator*(short scalar) const;
    MFloatVector operator*(unsigned int scalar) const;
    MFloatVector operator*(unsigned short scalar) const;
    MFloatVector operator*(float scalar) const;
    MFloatVector operator*(double scalar) const;
    MFloatVector operator+(const MFloatVector& other) const;
    MFloatVector& operator+=(const MFloatVector& other);
    MFloatVector operator-() const;
    MFloatVector& operator-=(const MFloatVector& other);
    MFloatVector operator-(const MFloatVector& other) const;
    MFloatVector operator*(const MFloatMatrix&) const;
    MFloatVector& operator*=(const MFloatMatrix&);
    bool operator!=(const MFloatVector& other) const;
    bool operator==(const MFloatVector& other) const;
    MStatus get(float[3]) const;
    float length() const;
    MFloatVector normal() const;
    MStatus normalize();
    float angle(const MFloatVector& other) const;
    bool isEquivalent(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;
    bool isParallel(const MFloatVector& other, float tolerance = MFloatVector_kTol) const;

BEGIN_NO_SCRIPT_SUPPORT:
    float& operator()(unsigned int i);
    float& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MFloatVector operator*(int, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(short, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(unsigned int, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(unsigned short, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(float, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(double, const MFloatVector&);
    friend OPENMAYA_EXPORT MFloatVector operator*(const MFloatMatrix&, const MFloatVector&);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MFloatVector& v);
END_NO_SCRIPT_SUPPORT:

    static const MFloatVector zero;
    static const MFloatVector one;
    static const MFloatVector xAxis;
    static const MFloatVector yAxis;
    static const MFloatVector zAxis;
    static const MFloatVector xNegAxis;
    static const MFloatVector yNegAxis;
    static const MFloatVector zNegAxis;

    float x;
    float y;
    float z;
};

OPENMAYA_NAMESPACE_CLOSE
