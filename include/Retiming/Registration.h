#pragma once
#include "Retiming/Cmd.h"
#include "Utils/Registration.h"

namespace Retiming {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace Retiming
