#pragma once
#include "AnimationOffset/Cmd.h"
#include "AnimationOffset/Manager.h"
#include "Utils/Registration.h"

namespace AnimationOffset {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

// The mode ends and its callbacks go before the command does.
inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    Manager::instance().stop();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace AnimationOffset
