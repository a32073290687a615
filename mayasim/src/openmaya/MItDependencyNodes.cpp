#include <maya/MItDependencyNodes.h>

#include "scene/Api.h"
#include "scene/Scene.h"

#include <vector>

using namespace mayasim;

namespace mayasim {

struct DependNodeWalk
{
    std::vector<MObject> nodes;
    size_t index = 0;
};

} // namespace mayasim

MItDependencyNodes::MItDependencyNodes(MFn::Type filter, MStatus* ReturnStatus) : fWalk(new DependNodeWalk)
{
    setStatus(ReturnStatus, reset(filter).statusCode());
}

MItDependencyNodes::~MItDependencyNodes()
{
    delete fWalk;
}

MStatus MItDependencyNodes::reset(MFn::Type filter)
{
    fWalk->nodes.clear();
    fWalk->index = 0;
    for (const auto& node : scene::nodes())
        if (filter == MFn::kInvalid || node->hasFn(filter))
            fWalk->nodes.push_back(objectOf(node.get()));
    return MS::kSuccess;
}

MObject MItDependencyNodes::thisNode(MStatus* ReturnStatus) const
{
    const bool valid = fWalk->index < fWalk->nodes.size();
    setStatus(ReturnStatus, valid ? MS::kSuccess : MS::kFailure);
    return valid ? fWalk->nodes[fWalk->index] : MObject();
}

MObject MItDependencyNodes::item(MStatus* ReturnStatus) const
{
    return thisNode(ReturnStatus);
}

MStatus MItDependencyNodes::next()
{
    if (fWalk->index < fWalk->nodes.size())
        ++fWalk->index;
    return MS::kSuccess;
}

bool MItDependencyNodes::isDone(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fWalk->index >= fWalk->nodes.size();
}

const char* MItDependencyNodes::className()
{
    return "MItDependencyNodes";
}
