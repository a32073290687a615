#include "ResetPose/Cmd.h"

#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace ResetPose {

const MString CommandName("OVResetPose");

namespace {

const CommandFlag Translate{"-t", "-translate", {}};
const CommandFlag Rotate{"-r", "-rotate", {}};
const CommandFlag Scale{"-s", "-scale", {}};
const CommandFlags Flags = {&Translate, &Rotate, &Scale};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;

    fManager.setMode(args.isSet(Translate), args.isSet(Rotate), args.isSet(Scale));
    fManager.reset(objects);
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fManager.undoIt(); }

MStatus Cmd::redoIt() { return fManager.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace ResetPose
