#pragma once
#include "TempPivot/Cmd.h"
#include "TempPivot/Manager.h"
#include "Utils/Registration.h"

namespace TempPivot {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

// The pivot is turned off, with every callback, task and the time slider's
// attachment gone, before the command goes.
inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    if (Manager::instance().isEnabled())
        Manager::instance().disable();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace TempPivot
