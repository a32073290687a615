#include "Relationship/Cmd.h"

#include "Relationship/Manager.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace Relationship {

const MString CommandName("OVRelationship");

namespace {

const CommandFlag Paste{"-p", "-paste", {}};
const CommandFlags Flags = {&Paste};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true, 2); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    // A paste works on the objects of the copy, whatever is selected.
    if (args.isSet(Paste)) {
        bool written = false;
        const bool pasted = manager().paste(fModifier, written);
        if (written)
            fModifier.doIt();
        fUndoable = written;
        setResult(pasted);
        return MS::kSuccess;
    }
    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;
    setResult(manager().copy(objects));
    return status;
}

MStatus Cmd::undoIt() { return fModifier.undoIt(); }

MStatus Cmd::redoIt() { return fModifier.doIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace Relationship
