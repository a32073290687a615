#pragma once
#include <maya/MTypes.h>
#include <maya/MFn.h>
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <vector>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Walks every dependency node in the scene, optionally of one MFn type.
class OPENMAYA_EXPORT MItDependencyNodes
{
public:
    MItDependencyNodes(MFn::Type filter = MFn::kInvalid, MStatus* ReturnStatus = NULL);
    virtual ~MItDependencyNodes();
    MStatus reset(MFn::Type filter = MFn::kInvalid);
    MObject thisNode(MStatus* ReturnStatus = NULL) const;
    MStatus next();
    bool isDone(MStatus* ReturnStatus = NULL) const;
    MObject item(MStatus* ReturnStatus = NULL) const;

    static const char* className();

private:
    std::vector<MObject> fNodes; // the nodes that pass the filter, as of the last reset
    size_t fIndex = 0;
};

OPENMAYA_NAMESPACE_CLOSE
