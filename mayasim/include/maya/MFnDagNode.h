#pragma once
#include <maya/MFnDependencyNode.h>
#include <maya/MDagPath.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Function set for nodes in the DAG: parents, children and paths.
class OPENMAYA_EXPORT MFnDagNode : public MFnDependencyNode
{
public:
    MFnDagNode();
    MFnDagNode(MObject& object, MStatus* ReturnStatus = NULL);
    MFnDagNode(const MObject& object, MStatus* ReturnStatus = NULL);
    MFnDagNode(const MDagPath& object, MStatus* ReturnStatus = NULL);
    ~MFnDagNode() override;
    MFn::Type type() const override;

    static const unsigned int kNextPos = 0xff;

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

    MStatus setObject(const MDagPath& path);
    MStatus setObject(MObject& object) override;
    MStatus setObject(const MObject& object) override;

    static const char* className();

protected:
    MDagPath fPath; // the path the set was attached through, or the first one
};

OPENMAYA_NAMESPACE_CLOSE
