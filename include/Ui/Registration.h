#pragma once
#include "Ui/Cmd.h"
#include "Ui/Manager.h"
#include "Ui/SelectionSet/Cmd.h"
#include "Ui/SelectionSet/Manager.h"
#include "Utils/Registration.h"

namespace Ui {

inline MStatus registerCommands(MFnPlugin& plugin)
{
    const MStatus status =
        registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
    if (!status)
        return status;
    // The selection set strip's command takes the panel's flag.
    return registerCommandReported(plugin, SelectionSetUi::CommandName, SelectionSetUi::Cmd::creator,
                                   Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommands(MFnPlugin& plugin)
{
    // No panel outlives the command that made it.
    SelectionSetUi::Manager::destroy();
    const MStatus status = deregisterCommandReported(plugin, SelectionSetUi::CommandName, __FILE__, __LINE__);
    if (!status)
        return status;
    Manager::destroy();
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

} // namespace Ui
