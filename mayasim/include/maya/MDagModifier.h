#pragma once
#include <maya/MStatus.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MDGModifier.h>
#include <maya/MObject.h>

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

OPENMAYA_PRIVATE:
    MDagModifier(const MDagModifier& other);
    MDagModifier& operator=(const MDagModifier& rhs);
};

OPENMAYA_NAMESPACE_CLOSE
