#pragma once
#include "AnimationRecovery/Cmd.h"
#include "AnimationRecovery/Manager.h"
#include "Utils/Registration.h"

namespace AnimationRecovery {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

// Recording stops first: no callback, timer or idle handler of it outlives the command.
inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    Manager::instance().disable();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace AnimationRecovery
