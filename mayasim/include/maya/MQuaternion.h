#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MTransformationMatrix.h>
#include <iosfwd>

#define kQuaternionEpsilon 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Quaternion (x, y, z imaginary; w real). Products compose like Maya's
//! row-vector matrices: (a * b).asMatrix() == a.asMatrix() * b.asMatrix().
class OPENMAYA_EXPORT MQuaternion
{
public:
    MQuaternion();
    MQuaternion(const MQuaternion& src);
    MQuaternion(double xx, double yy, double zz, double ww);
    MQuaternion(const double q[4]);
    MQuaternion(const MVector& a, const MVector& b);
    MQuaternion(const MVector& a, const MVector& b, double angleFactor);
    MQuaternion(double angle, const MVector& axisb);
    ~MQuaternion();
    MQuaternion& operator=(const MQuaternion& src);
    MQuaternion& operator=(const MMatrix& matrix);
    MQuaternion& operator=(const MEulerRotation& matrix);
    MMatrix asMatrix() const;
    MEulerRotation asEulerRotation() const;
    MQuaternion& setAxisAngle(const MVector& axis, double theta);
    bool getAxisAngle(MVector& axis, double& theta) const;
    MQuaternion& setToXAxis(double theta);
    MQuaternion& setToYAxis(double theta);
    MQuaternion& setToZAxis(double theta);
    MStatus get(double dest[4]) const;
    double operator[](unsigned int i) const;
    MQuaternion operator+(const MQuaternion& other) const;
    MQuaternion operator*(const MQuaternion& other) const;
    MQuaternion& operator*=(const MQuaternion& rhs);
    MQuaternion operator-(const MQuaternion& other) const;
    MQuaternion operator-() const;
    MQuaternion& negateIt();
    bool operator==(const MQuaternion& other) const;
    bool operator!=(const MQuaternion& other) const;
    bool isEquivalent(const MQuaternion& other, double tolerance = kQuaternionEpsilon) const;
    MQuaternion& scaleIt(double scale);
    MQuaternion normal() const;
    MQuaternion& normalizeIt();
    MQuaternion conjugate() const;
    MQuaternion& conjugateIt();
    MQuaternion inverse() const;
    MQuaternion& invertIt();
    MQuaternion log() const;
    MQuaternion exp() const;

    static const MQuaternion identity;

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator[](unsigned int i);
    friend OPENMAYA_EXPORT MQuaternion operator*(double scale, const MQuaternion& other);
    friend OPENMAYA_EXPORT MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t);
    friend OPENMAYA_EXPORT MQuaternion slerp(const MQuaternion& p, const MQuaternion& q, double t, short spin);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MQuaternion& q);
    operator MMatrix() const;
END_NO_SCRIPT_SUPPORT:

    double x;
    double y;
    double z;
    double w;
};

OPENMAYA_NAMESPACE_CLOSE
