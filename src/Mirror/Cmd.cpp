#include "Mirror/Cmd.h"

#include "Mirror/Manager.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace Mirror {

const MString CommandName("OVMirror");

namespace {

// In the order they are tested; each of the first three ends the command.
const CommandFlag Snapshot{"-s", "-snapshot", {}};
const CommandFlag RemoveSnapshot{"-rs", "-removeSnapshot", {}};
const CommandFlag RemoveSelectedFromSnapshot{"-rss", "-removeSelectedFromSnapshot", {}};
const CommandFlag FixAttribute{"-fa", "-fixAttribute", {}};
const CommandFlags Flags = {&Snapshot, &FixAttribute, &RemoveSnapshot, &RemoveSelectedFromSnapshot};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true, 0); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"), QStringLiteral("correpted selection"));
    if (!status)
        return status;

    Manager& mirrors = manager();
    if (args.isSet(Snapshot)) {
        setResult(mirrors.snapshot(objects));
        return status;
    }
    if (args.isSet(RemoveSnapshot)) {
        setResult(mirrors.removeSnapshot());
        return status;
    }
    if (args.isSet(RemoveSelectedFromSnapshot)) {
        setResult(mirrors.removeSelectedFromSnapshot(objects));
        return status;
    }
    // A failed flip mirrors nothing.
    if (args.isSet(FixAttribute) && !mirrors.fixAttribute(objects))
        return status;
    mirrors.mirror(objects, fModifier);
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fModifier.undoIt(); }

MStatus Cmd::redoIt() { return fModifier.doIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace Mirror
