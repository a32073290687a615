#include "XFormWorldSpace/Cmd.h"

#include "Utils/Command.h"
#include "XFormWorldSpace/Manager.h"

#include <maya/MSelectionList.h>

namespace XFormWorldSpace {

const MString CommandName("OVXFormWorldSpace");

namespace {

const CommandFlag Paste{"-p", "-paste", {}};
const CommandFlags Flags = {&Paste};

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

    if (!args.isSet(Paste)) {
        manager().copy(objects);
        setResult(true);
        return status;
    }
    fUndoable = manager().paste(objects);
    setResult(fUndoable);
    return status;
}

MStatus Cmd::undoIt() { return fChange.undoIt(); }

MStatus Cmd::redoIt() { return fChange.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace XFormWorldSpace
