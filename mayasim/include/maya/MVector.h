#pragma once
#include <maya/MTypes.h>
#include <maya/MStatus.h>
#include <maya/MTransformationMatrix.h>
#include <iosfwd>

#define MVector_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A vector math class for vectors of doubles (row vectors: v * M).
class OPENMAYA_EXPORT MVector
{
public:
    enum Axis
    {
        kXaxis,
        kYaxis,
        kZaxis,
        kWaxis
    };

    MVector();
    MVector(const MVector&);
    MVector(const MFloatVector&);
    MVector(const MPoint&);
    MVector(const MFloatPoint&);
    MVector(double xx, double yy, double zz = 0.0);
    MVector(const double d[3]);
    MVector(const float f[3]);
    ~MVector();
    MVector& operator=(const MVector& src);
    double operator()(unsigned int i) const;
    double operator[](unsigned int i) const;
    MVector operator^(const MVector& right) const;
    double operator*(const MVector& right) const;
    MVector& operator/=(double scalar);
    MVector operator/(double scalar) const;
    MVector& operator*=(int scalar);
    MVector& operator*=(short scalar);
    MVector& operator*=(unsigned int scalar);
    MVector& operator*=(unsigned short scalar);
    MVector& operator*=(float scalar);
    MVector& operator*=(double scalar);
    MVector operator*(int scalar) const;
    MVector operator*(short scalar) const;
    MVector operator*(unsigned int scalar) const;
    MVector operator*(unsigned short scalar) const;
    MVector operator*(float scalar) const;
    MVector operator*(double scalar) const;
    MVector operator+(const MVector& other) const;
    MVector& operator+=(const MVector& other);
    MVector operator-() const;
    MVector& operator-=(const MVector& other);
    MVector operator-(const MVector& other) const;
    MVector operator*(const MMatrix&) const;
    MVector& operator*=(const MMatrix&);
    bool operator!=(const MVector& other) const;
    bool operator==(const MVector& other) const;
    MVector rotateBy(double x, double y, double z, double w) const;
    MVector rotateBy(const double rotXYZ[3], MTransformationMatrix::RotationOrder order) const;
    MVector rotateBy(MVector::Axis axis, const double angle) const;
    MVector rotateBy(const MQuaternion&) const;
    MVector rotateBy(const MEulerRotation&) const;
    MQuaternion rotateTo(const MVector&) const;
    MStatus get(double[3]) const;
    double length() const;
    MVector normal() const;
    MStatus normalize();
    double angle(const MVector& other) const;
    bool isEquivalent(const MVector& other, double tolerance = MVector_kTol) const;
    bool isParallel(const MVector& other, double tolerance = MVector_kTol) const;

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator()(unsigned int i);
    double& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MVector operator*(int, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(short, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(unsigned int, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(unsigned short, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(float, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(double, const MVector&);
    friend OPENMAYA_EXPORT MVector operator*(const MMatrix&, const MVector&);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MVector& v);
END_NO_SCRIPT_SUPPORT:

    static const MVector zero;
    static const MVector one;
    static const MVector xAxis;
    static const MVector yAxis;
    static const MVector zAxis;
    static const MVector xNegAxis;
    static const MVector yNegAxis;
    static const MVector zNegAxis;

    double x;
    double y;
    double z;
};

OPENMAYA_NAMESPACE_CLOSE
