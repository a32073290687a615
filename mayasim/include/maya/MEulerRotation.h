#pragma once
#include <maya/MTypes.h>
#include <maya/MTransformationMatrix.h>
#include <iosfwd>

#define kEulerRotationEpsilon 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Rotation in radians about x, y and z, applied in the given order
//! (kXYZ: x first, so its matrix is Rx * Ry * Rz with row vectors).
class OPENMAYA_EXPORT MEulerRotation
{
public:
    enum RotationOrder
    {
        kXYZ,
        kYZX,
        kZXY,
        kXZY,
        kYXZ,
        kZYX
    };

    MEulerRotation();
    MEulerRotation(const MEulerRotation& src);
    MEulerRotation(const MVector& v, RotationOrder ord = kXYZ);
    MEulerRotation(double xx, double yy, double zz, RotationOrder ord = kXYZ);
    ~MEulerRotation();
    MEulerRotation& operator=(const MEulerRotation& src);
    MEulerRotation& operator=(const MQuaternion& q);
    MEulerRotation& operator=(const MMatrix& m);
    MEulerRotation& operator=(const MVector& v);
    MEulerRotation& setValue(const MVector& v, RotationOrder ord = kXYZ);
    MEulerRotation& setValue(double xx, double yy, double zz, RotationOrder ord = kXYZ);
    MQuaternion asQuaternion() const;
    MMatrix asMatrix() const;
    MVector asVector() const;
    double operator[](unsigned int i) const;
    MEulerRotation operator+(const MEulerRotation& other) const;
    MEulerRotation& operator+=(const MEulerRotation& other);
    MEulerRotation operator-(const MEulerRotation& other) const;
    MEulerRotation& operator-=(const MEulerRotation& other);
    MEulerRotation operator-() const;
    MEulerRotation operator*(const MEulerRotation& other) const;
    MEulerRotation operator*(const MQuaternion& other) const;
    MEulerRotation operator*(double other) const;
    MEulerRotation& operator*=(const MEulerRotation& other);
    MEulerRotation& operator*=(const MQuaternion& other);
    MEulerRotation& operator*=(double other);
    bool operator==(const MEulerRotation& other) const;
    bool operator!=(const MEulerRotation& other) const;
    bool isEquivalent(const MEulerRotation& other, double tolerance = kEulerRotationEpsilon) const;
    bool isZero(double tolerance = kEulerRotationEpsilon) const;
    MEulerRotation inverse() const;
    MEulerRotation& invertIt();
    MEulerRotation reorder(RotationOrder ord) const;
    MEulerRotation& reorderIt(RotationOrder ord);
    MEulerRotation bound() const;
    MEulerRotation& boundIt(const MEulerRotation& src);
    MEulerRotation& boundIt();
    MEulerRotation alternateSolution() const;
    MEulerRotation& setToAlternateSolution(const MEulerRotation& src);
    MEulerRotation& setToAlternateSolution();
    MEulerRotation closestSolution(const MEulerRotation& dst) const;
    MEulerRotation& setToClosestSolution(const MEulerRotation& src, const MEulerRotation& dst);
    MEulerRotation& setToClosestSolution(const MEulerRotation& dst);
    MEulerRotation closestCut(const MEulerRotation& dst) const;
    MEulerRotation& setToClosestCut(const MEulerRotation& src, const MEulerRotation& dst);
    MEulerRotation& setToClosestCut(const MEulerRotation& dst);
    static MEulerRotation decompose(const MMatrix& matrix, RotationOrder ord);

BEGIN_NO_SCRIPT_SUPPORT:
    double& operator[](unsigned int i);
    static MEulerRotation bound(const MEulerRotation& src);
    static MEulerRotation alternateSolution(const MEulerRotation& src);
    static MEulerRotation closestSolution(const MEulerRotation& src, const MEulerRotation& dst);
    static MEulerRotation closestCut(const MEulerRotation& src, const MEulerRotation& dst);
    friend OPENMAYA_EXPORT MEulerRotation operator*(double scale, const MEulerRotation& other);
    friend OPENMAYA_EXPORT std::ostream& operator<<(std::ostream& os, const MEulerRotation& rotation);
END_NO_SCRIPT_SUPPORT:

    static const MEulerRotation identity;

    double x;
    double y;
    double z;
    RotationOrder order;
};

OPENMAYA_NAMESPACE_CLOSE
