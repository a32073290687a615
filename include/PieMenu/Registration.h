#pragma once
#include "PieMenu/Cmd.h"
#include "PieMenu/Manager.h"
#include "Utils/Registration.h"

namespace PieMenu {

inline MStatus registerCommand(MFnPlugin& plugin)
{
    return registerCommandReported(plugin, CommandName, Cmd::creator, Cmd::createSyntax, __FILE__, __LINE__);
}

inline MStatus deregisterCommand(MFnPlugin& plugin)
{
    return deregisterCommandReported(plugin, CommandName, __FILE__, __LINE__);
}

// Once the command is there: the store is read and its hotkeys bound.
inline void bindHotkeys() { Manager::instance().bindHotkeys(); }

// Before the command goes: no key stays bound to it, and the store and its
// windows go with the module.
inline void unbindHotkeys()
{
    Manager::instance().unbindHotkeys();
    Manager::release();
}

} // namespace PieMenu
