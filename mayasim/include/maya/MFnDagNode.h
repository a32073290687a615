#pragma once
#include <maya/MFnDependencyNode.h>
#include <maya/MObject.h>
#include <maya/MDeprecate.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for nodes in the DAG: parents, children and paths.
class OPENMAYA_EXPORT MFnDagNode : public MFnDependencyNode
{
public:
    MFnDagNode();
    MFnDagNode(MObject& object, MStatus* ReturnStatus = NULL);
    MFnDagNode(const MDagPath& object, MStatus* ReturnStatus = NULL);
BEGIN_NO_SCRIPT_SUPPORT:
    MFnDagNode(const MObject& object, MStatus* ReturnStatus = NULL);
END_NO_SCRIPT_SUPPORT:
    ~MFnDagNode() override;
    MFn::Type type() const override;

    enum
    {
        kNextPos = 0xff // addChild's index for the end of the list
    };

    MObject create(const MTypeId& typeId, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MTypeId& typeId, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, MObject& parent = MObject::kNullObj, MStatus* ReturnStatus = NULL);
    MObject create(const MString& type, const MString& name, MObject& parent = MObject::kNullObj,
                   MStatus* ReturnStatus = NULL);

    unsigned int parentCount(MStatus* ReturnStatus = NULL) const;
    MObject parent(unsigned int i, MStatus* ReturnStatus = NULL) const;
    MStatus addChild(MObject& child, unsigned int index = kNextPos, bool keepExistingParents = false);
    MStatus removeChild(MObject& child);
    unsigned int childCount(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = NULL) const;
    bool hasParent(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool hasChild(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isChildOf(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isParentOf(const MObject& node, MStatus* ReturnStatus = NULL) const;
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = NULL) const;
    MStatus getPath(MDagPath& path) const;
    MStatus getAllPaths(MDagPathArray& paths) const;
    MString fullPathName(MStatus* ReturnStatus = NULL) const;
    MString partialPathName(MStatus* ReturnStatus = NULL) const;
    MMatrix transformationMatrix(MStatus* ReturnStatus = NULL) const;
    MDagPath dagPath(MStatus* ReturnStatus = NULL) const;

    virtual MStatus setObject(const MDagPath& path);
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;

    static const char* className();

protected:
    // The path the set was attached through, or the node's first one; held
    // apart so that this header needs no MDagPath.h.
    MDagPath& fPath;
};

OPENMAYA_NAMESPACE_CLOSE
