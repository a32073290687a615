#include <maya/MItDependencyNodes.h>

#include "scene/Api.h"
#include "scene/Scene.h"

using namespace mayasim;

MItDependencyNodes::MItDependencyNodes(MFn::Type filter, MStatus* ReturnStatus)
{
    setStatus(ReturnStatus, reset(filter).statusCode());
}

MItDependencyNodes::~MItDependencyNodes() = default;

MStatus MItDependencyNodes::reset(MFn::Type filter)
{
    fNodes.clear();
    fIndex = 0;
    for (const auto& node : scene::nodes())
        if (filter == MFn::kInvalid || node->hasFn(filter))
            fNodes.push_back(objectOf(node.get()));
    return MS::kSuccess;
}

MObject MItDependencyNodes::thisNode(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, fIndex < fNodes.size() ? MS::kSuccess : MS::kFailure);
    return fIndex < fNodes.size() ? fNodes[fIndex] : MObject();
}

MObject MItDependencyNodes::item(MStatus* ReturnStatus) const
{
    return thisNode(ReturnStatus);
}

MStatus MItDependencyNodes::next()
{
    if (fIndex < fNodes.size())
        ++fIndex;
    return MS::kSuccess;
}

bool MItDependencyNodes::isDone(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fIndex >= fNodes.size();
}

const char* MItDependencyNodes::className()
{
    return "MItDependencyNodes";
}
