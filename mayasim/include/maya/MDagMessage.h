#pragma once
#include <maya/MMessage.h>
#include <maya/MString.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Callbacks on DAG changes.
class OPENMAYA_EXPORT MDagMessage : public MMessage
{
public:
    enum DagMessage
    {
        kInvalidMsg = -1,
        kParentAdded,
        kParentRemoved,
        kChildAdded,
        kChildRemoved,
        kChildReordered,
        kInstanceAdded,
        kInstanceRemoved,
        kLast
    };

    enum MatrixModifiedFlags
    {
        kScaleX = 1 << 0,
        kScaleY = 1 << 1,
        kScaleZ = 1 << 2,
        kShearXY = 1 << 3,
        kShearXZ = 1 << 4,
        kShearYZ = 1 << 5,
        kRotateX = 1 << 6,
        kRotateY = 1 << 7,
        kRotateZ = 1 << 8,
        kTranslateX = 1 << 9,
        kTranslateY = 1 << 10,
        kTranslateZ = 1 << 11,
        kScalePivotX = 1 << 12,
        kScalePivotY = 1 << 13,
        kScalePivotZ = 1 << 14,
        kRotatePivotX = 1 << 15,
        kRotatePivotY = 1 << 16,
        kRotatePivotZ = 1 << 17,
        kScaleTransX = 1 << 18,
        kScaleTransY = 1 << 19,
        kScaleTransZ = 1 << 20,
        kRotateTransX = 1 << 21,
        kRotateTransY = 1 << 22,
        kRotateTransZ = 1 << 23,
        kRotateOrientX = 1 << 24,
        kRotateOrientY = 1 << 25,
        kRotateOrientZ = 1 << 26,
        kRotateOrder = 1 << 27,
        kAll = (1 << 28) - 1,
        kScale = kScaleX | kScaleY | kScaleZ,
        kShear = kShearXY | kShearXZ | kShearYZ,
        kRotation = kRotateX | kRotateY | kRotateZ,
        kTranslation = kTranslateX | kTranslateY | kTranslateZ,
        kScalePivot = kScalePivotX | kScalePivotY | kScalePivotZ,
        kRotatePivot = kRotatePivotX | kRotatePivotY | kRotatePivotZ,
        kScalePivotTrans = kScaleTransX | kScaleTransY | kScaleTransZ,
        kRotatePivotTrans = kRotateTransX | kRotateTransY | kRotateTransZ,
        kRotateOrient = kRotateOrientX | kRotateOrientY | kRotateOrientZ
    };

    typedef void (*MWorldMatrixModifiedFunction)(MObject& transformNode, MDagMessage::MatrixModifiedFlags& modified,
                                                 void* clientData);

    static MCallbackId addWorldMatrixModifiedCallback(MDagPath& node, MDagMessage::MWorldMatrixModifiedFunction func,
                                                      void* clientData = NULL, MStatus* ReturnStatus = NULL);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
