#include "SelectionSet/Cmd.h"

#include "SelectionSet/Operations.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace SelectionSet {

const MString CommandName("OVSelectionSet");

namespace {

const CommandFlag Remove{"-r", "-remove", {}};
const CommandFlag Hide{"-h", "-hide", {MSyntax::kBoolean}};
const CommandFlag Select{"-s", "-select", {MSyntax::kDouble}};
const CommandFlag Modify{"-m", "-modify", {MSyntax::kDouble}};
const CommandFlags Flags = {&Remove, &Hide, &Select, &Modify};

} // namespace

void* Cmd::creator() { return new Cmd; }

// The set's name, then its objects; none is fine where a set may be empty.
MSyntax Cmd::createSyntax()
{
    MSyntax syntax = commandSyntax(Flags, true, 0);
    syntax.addArg(MSyntax::kString);
    return syntax;
}

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    MSelectionList objects;
    MStatus status = args.getObjects(objects, OV_HERE("doIt"), QStringLiteral("selection is currepted"));
    if (!status)
        return status;
    MString name;
    status = args.database().getCommandArgument(0, name);
    if (!status) {
        OV_REPORT(QStringLiteral("need a name for selection set"), "doIt");
        return status;
    }

    // The first flag given decides.
    if (args.isSet(Select)) {
        selectMembers(name, args.number(Select));
    } else if (args.isSet(Modify)) {
        modifyMembers(name, objects, args.number(Modify), fModifier);
    } else if (args.isSet(Remove)) {
        setResult(removeSet(name, fModifier));
    } else if (args.isSet(Hide)) {
        bool hidden = false;
        args.database().getFlagArgument(Hide.shortName, 0, hidden);
        setResult(setHidden(name, hidden, fModifier));
    } else {
        setResult(createSet(name, objects, fModifier));
    }
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fModifier.undoIt(); }

MStatus Cmd::redoIt() { return fModifier.doIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace SelectionSet
