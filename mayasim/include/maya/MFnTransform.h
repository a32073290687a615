#pragma once
#include <maya/MDeprecate.h>
#include <maya/MFnDagNode.h>
#include <maya/MTransformationMatrix.h>
#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for transform nodes: the channels of Maya's transform stack.
class OPENMAYA_EXPORT MFnTransform : public MFnDagNode
{
public:
    MFnTransform();
    MFnTransform(MObject& object, MStatus* ReturnStatus = NULL);
    MFnTransform(const MDagPath& object, MStatus* ReturnStatus = NULL);
BEGIN_NO_SCRIPT_SUPPORT:
    MFnTransform(const MObject& object, MStatus* ReturnStatus = NULL);
END_NO_SCRIPT_SUPPORT:
    ~MFnTransform() override;
    MFn::Type type() const override;

    MObject create(MObject parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MTransformationMatrix transformation(MStatus* ReturnStatus = NULL) const;
    MStatus set(const MTransformationMatrix& transform);

    MVector getTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setTranslation(const MVector& vec, MSpace::Space space);
    MStatus translateBy(const MVector& vec, MSpace::Space space);

    MStatus getScale(double scale[3]) const;
    MStatus setScale(const double scale[3]);
    MStatus scaleBy(const double scale[3]);
    MPoint scalePivot(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setScalePivot(const MPoint& point, MSpace::Space space, bool balance);
    MVector scalePivotTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setScalePivotTranslation(const MVector& vec, MSpace::Space space);
    MStatus getShear(double shear[3]) const;
    MStatus setShear(const double shear[3]);

    MStatus getRotation(MQuaternion& quaternion, MSpace::Space space = MSpace::kTransform) const;
    MStatus setRotation(const MQuaternion& quaternion, MSpace::Space space = MSpace::kTransform);
    MStatus getRotation(MEulerRotation& rotation) const;
    MStatus setRotation(const MEulerRotation& rotation);
    MStatus getRotation(double rotation[3], MTransformationMatrix::RotationOrder& order) const;
    MStatus setRotation(const double rotation[3], MTransformationMatrix::RotationOrder order);
    MQuaternion rotateOrientation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setRotateOrientation(const MQuaternion& quat, MSpace::Space space, bool balance);
    MPoint rotatePivot(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setRotatePivot(const MPoint& point, MSpace::Space space, bool balance);
    MVector rotatePivotTranslation(MSpace::Space space, MStatus* ReturnStatus = NULL) const;
    MStatus setRotatePivotTranslation(const MVector& vec, MSpace::Space space);
    MTransformationMatrix::RotationOrder rotationOrder(MStatus* ReturnStatus = NULL) const;
    MStatus setRotationOrder(MTransformationMatrix::RotationOrder order, bool reorder);

    OPENMAYA_DEPRECATED(85, "Use getTranslation(MSpace::Space, MStatus*) instead.")
    MVector translation(MSpace::Space, MStatus* = nullptr) const;

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
