#pragma once
#include <maya/MDGModifier.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! MDGModifier with DAG operations: create under a parent, reparent.
class OPENMAYA_EXPORT MDagModifier : public MDGModifier
{
public:
    MDagModifier();
    ~MDagModifier() override;

    MObject createNode(const MTypeId& typeId, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = NULL);
    MObject createNode(const MString& type, const MObject& parent = MObject::kNullObj,
                       MStatus* ReturnStatus = NULL);
    MStatus reparentNode(const MObject& node, const MObject& newParent = MObject::kNullObj);

    static const char* className();
};

OPENMAYA_NAMESPACE_CLOSE
