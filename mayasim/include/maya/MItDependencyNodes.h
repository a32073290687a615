#pragma once
#include <maya/MObject.h>
#include <maya/MStatus.h>
#include <maya/MIntArray.h>
#include <maya/MDeprecate.h>

namespace mayasim {
struct DependNodeWalk;
}

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

    OPENMAYA_DEPRECATED(2019, "Use the method MItDependencyNodes::thisNode instead.")
    MObject item(MStatus* ReturnStatus = NULL) const;

    static const char* className();

private:
    MItDependencyNodes(const MItDependencyNodes&) = delete;
    MItDependencyNodes& operator=(const MItDependencyNodes&) = delete;

    mayasim::DependNodeWalk* fWalk; // the nodes that pass the filter, as of the last reset
};

OPENMAYA_NAMESPACE_CLOSE
