#pragma once
#include "Ui/TimelineOverlay/Cmd.h"
#include "Ui/TimelineOverlay/Operations.h"
#include "Utils/Registration.h"

namespace TimelineOverlay {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace TimelineOverlay
