#pragma once
#include "Relationship/Cmd.h"
#include "Utils/Registration.h"

namespace Relationship {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace Relationship
