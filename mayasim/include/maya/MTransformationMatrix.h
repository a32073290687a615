#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>

#define MTransformationMatrix_kTol 1.0e-10

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A transformation split into Maya's components. asMatrix composes
//! [-Sp] * S * Sh * [Sp] * [St] * [-Rp] * Ro * R * [Rp] * [Rt] * T (row vectors).
class OPENMAYA_EXPORT MTransformationMatrix
{
public:
    //! One above MEulerRotation::RotationOrder of the same order.
    enum RotationOrder
    {
        kInvalid,
        kXYZ,
        kYZX,
        kZXY,
        kXZY,
        kYXZ,
        kZYX,
        kLast
    };
    ~MTransformationMatrix();
    MTransformationMatrix();
    MTransformationMatrix(const MTransformationMatrix& src);
    MTransformationMatrix(const MMatrix& src);
    MTransformationMatrix& operator=(const MTransformationMatrix& src);
    MTransformationMatrix& operator=(const MMatrix& src);
    MMatrix asMatrix() const;
    MMatrix asMatrixInverse() const;
    MMatrix asScaleMatrix() const;
    MMatrix asRotateMatrix() const;
    MStatus getScale(double scale[3], MSpace::Space space) const;
    MStatus setScale(const double scale[3], MSpace::Space space);
    MQuaternion rotation() const;
    MTransformationMatrix& rotateTo(const MQuaternion& q);
    MEulerRotation eulerRotation() const;
    MTransformationMatrix& rotateTo(const MEulerRotation& e);
    MStatus getRotationQuaternion(double& x, double& y, double& z, double& w) const;
    MStatus setRotationQuaternion(double x, double y, double z, double w);
    MStatus getRotation(double[3], RotationOrder& order) const;
    MStatus setRotation(const double rotation[3], RotationOrder order);
    RotationOrder rotationOrder(MStatus* ReturnStatus = NULL) const;
    MStatus reorderRotation(const RotationOrder& order);
    MQuaternion rotationOrientation() const;
    MTransformationMatrix& setRotationOrientation(const MQuaternion& q);
    MVector getTranslation(MSpace::Space, MStatus* ReturnStatus = NULL) const;
    MStatus setTranslation(const MVector& vector, MSpace::Space);
    MStatus addTranslation(const MVector& vector, MSpace::Space);
    MStatus setShear(const double shear[3], MSpace::Space space);
    MStatus getShear(double shear[3], MSpace::Space space) const;
    MPoint scalePivot(MSpace::Space, MStatus* ReturnStatus = NULL) const;
    MStatus setScalePivot(const MPoint&, MSpace::Space, bool balance);
    MVector scalePivotTranslation(MSpace::Space, MStatus* ReturnStatus = NULL) const;
    MStatus setScalePivotTranslation(const MVector& vector, MSpace::Space);
    MPoint rotatePivot(MSpace::Space, MStatus* ReturnStatus = NULL) const;
    MStatus setRotatePivot(const MPoint& point, MSpace::Space, bool balance);
    MVector rotatePivotTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setRotatePivotTranslation(const MVector& vector, MSpace::Space space);
    bool isEquivalent(const MTransformationMatrix& other, double tolerance = MTransformationMatrix_kTol) const;
    bool operator==(const MTransformationMatrix& other) const;
    bool operator!=(const MTransformationMatrix& other) const;

    static const char* className();

    static const MTransformationMatrix identity;

private:
    double fScale[3] = {1.0, 1.0, 1.0};
    double fShear[3] = {0.0, 0.0, 0.0};
    double fScalePivot[3] = {0.0, 0.0, 0.0};
    double fScalePivotTranslate[3] = {0.0, 0.0, 0.0};
    double fRotatePivot[3] = {0.0, 0.0, 0.0};
    double fRotatePivotTranslate[3] = {0.0, 0.0, 0.0};
    double fRotateAxis[4] = {0.0, 0.0, 0.0, 1.0}; // quaternion x, y, z, w
    double fRotate[3] = {0.0, 0.0, 0.0};
    RotationOrder fRotateOrder = kXYZ;
    double fTranslate[3] = {0.0, 0.0, 0.0};
};

OPENMAYA_NAMESPACE_CLOSE
