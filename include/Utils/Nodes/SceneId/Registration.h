#pragma once
#include "Utils/Nodes/SceneId/Node.h"
#include "Utils/Registration.h"

namespace SceneId {

inline MStatus registerNode(MFnPlugin& plugin)
{
    return registerNodeReported(plugin, NodeName, NodeTypeId, Node::creator, Node::initialize, MPxNode::kDependNode,
                                nullptr, "Failed to register : ", __FILE__, __LINE__);
}

inline MStatus deregisterNode(MFnPlugin& plugin)
{
    return deregisterNodeReported(plugin, NodeName, NodeTypeId, __FILE__, __LINE__);
}

} // namespace SceneId
