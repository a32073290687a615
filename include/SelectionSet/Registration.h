#pragma once
#include "SelectionSet/Cmd.h"
#include "SelectionSet/Node.h"
#include "Utils/Registration.h"

namespace SelectionSet {

inline MStatus registerAll(MFnPlugin& plugin)
{
    MStatus status = registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
    if (!status)
        return status;
    return registerNodeReported(plugin, NodeName, NodeTypeId, Node::creator, Node::initialize, MPxNode::kDependNode,
                                nullptr, "Failed to register ", __FILE__, __LINE__);
}

inline MStatus deregisterAll(MFnPlugin& plugin)
{
    MStatus status = deregisterNodeReported(plugin, NodeName, NodeTypeId, __FILE__, __LINE__);
    if (!status)
        return status;
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace SelectionSet
