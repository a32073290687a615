#pragma once
#include "SelectOpposite/Cmd.h"
#include "SelectOpposite/Manager.h"
#include "Utils/Registration.h"

namespace SelectOpposite {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

// Auto-select goes first: its callback must not outlive the command.
inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    manager().deactivateAutoSelect();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace SelectOpposite
