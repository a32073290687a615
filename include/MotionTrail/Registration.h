#pragma once
#include "MotionTrail/Cmd.h"
#include "MotionTrail/Manager.h"
#include "MotionTrail/Node.h"
#include "Utils/Registration.h"

namespace MotionTrail {

inline MStatus registerAll(MFnPlugin& plugin)
{
    MStatus status = registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
    if (!status)
        return status;
    status = registerNodeReported(plugin, NodeName, NodeTypeId, Node::creator, Node::initialize,
                                  MPxNode::kLocatorNode, &DrawClassification, "Failed to register ", __FILE__,
                                  __LINE__);
    if (!status)
        return status;
    return registerDrawOverrideReported(DrawClassification, DrawRegistrant, Override::creator, OverrideName, __FILE__,
                                        __LINE__);
}

// The manager goes with the module once everything is deregistered: its
// trails, camera caches and callbacks with it.
inline MStatus deregisterAll(MFnPlugin& plugin)
{
    MStatus status = deregisterDrawOverrideReported(DrawClassification, DrawRegistrant, OverrideName, __FILE__,
                                                    __LINE__);
    if (!status)
        return status;
    status = deregisterNodeReported(plugin, NodeName, NodeTypeId, __FILE__, __LINE__);
    if (!status)
        return status;
    status = deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
    if (status)
        Manager::destroy();
    return status;
}

} // namespace MotionTrail
