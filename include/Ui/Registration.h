#pragma once
#include "Ui/Cmd.h"
#include "Ui/Manager.h"
#include "Utils/Registration.h"

namespace Ui {

inline MStatus registerCommands(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommands(MFnPlugin& plugin)
{
    // No panel outlives the command that made it.
    Manager::destroy();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace Ui
