#pragma once
#include <maya/MStatus.h>
#include <maya/MTypes.h>
#include <maya/MObject.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct DagPathAccess;
struct DagPathNodes;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! A path from the world down to a DAG node, through its parents.
class OPENMAYA_EXPORT MDagPath
{
public:
    MDagPath();
    MDagPath(const MDagPath& src);
    virtual ~MDagPath();

    static MStatus getAllPathsTo(const MObject& node, MDagPathArray& pathArray);
    static MStatus getAPathTo(const MObject& node, MDagPath& path);

    bool hasFn(MFn::Type type, MStatus* ReturnStatus = NULL) const;
    MFn::Type apiType(MStatus* ReturnStatus = NULL) const;
    bool isValid(MStatus* ReturnStatus = NULL) const;
    MObject node(MStatus* ReturnStatus = NULL) const;
    MObject transform(MStatus* ReturnStatus = NULL) const;
    unsigned int length(MStatus* ReturnStatus = NULL) const;
    MStatus extendToShape();
    MStatus extendToShapeDirectlyBelow(unsigned int);
    MStatus numberOfShapesDirectlyBelow(unsigned int&) const;
    MStatus push(const MObject& child);
    MStatus pop(unsigned int num = 1);
    unsigned int childCount(MStatus* ReturnStatus = NULL) const;
    MObject child(unsigned int i, MStatus* ReturnStatus = NULL) const;
    MMatrix inclusiveMatrix(MStatus* ReturnStatus = NULL) const;
    MMatrix exclusiveMatrix(MStatus* ReturnStatus = NULL) const;
    MMatrix inclusiveMatrixInverse(MStatus* ReturnStatus = NULL) const;
    MMatrix exclusiveMatrixInverse(MStatus* ReturnStatus = NULL) const;
    MDagPath& operator=(const MDagPath& src);
    bool operator==(const MDagPath& src) const;
    MStatus set(const MDagPath& src);
    unsigned int pathCount(MStatus* ReturnStatus = NULL) const;
    MStatus getPath(MDagPath& path, unsigned int i = 0) const;
    MString fullPathName(MStatus* ReturnStatus = NULL) const;
    MString partialPathName(MStatus* ReturnStatus = NULL) const;
    bool isInstanced(MStatus* ReturnStatus = NULL) const;
    unsigned int instanceNumber(MStatus* ReturnStatus = NULL) const;

    static const char* className();

    OPENMAYA_DEPRECATED(2019, "The function signature was inconsistent with the rest of the API. "
                              "Please use the other MDagPath::getAPathTo method instead.")
    static MDagPath getAPathTo(const MObject& node, MStatus* ReturnStatus = NULL);

private:
    // The nodes from the top of the hierarchy down to the path's node.
    mayasim::DagPathNodes* fNodes;

    friend struct mayasim::DagPathAccess;
};

OPENMAYA_NAMESPACE_CLOSE
