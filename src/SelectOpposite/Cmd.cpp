#include "SelectOpposite/Cmd.h"

#include "SelectOpposite/Manager.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace SelectOpposite {

const MString CommandName("OVSelectOpposite");

namespace {

// In the order they are tested; the first one set is the only one obeyed.
const CommandFlag Snapshot{"-s", "-snapshot", {}};
const CommandFlag FixPairs{"-fp", "-fixPairs", {}};
const CommandFlag AddOpposite{"-ao", "-addOpposite", {}};
const CommandFlag DeselectRight{"-dr", "-deselectRight", {}};
const CommandFlag DeselectLeft{"-dl", "-deselectLeft", {}};
const CommandFlag DeselectCenter{"-dc", "-deselectCenter", {}};
const CommandFlag ActivateAutoSelect{"-aas", "-activateAutoSelect", {}};
const CommandFlag DeactivateAutoSelect{"-das", "-deactivateAutoSelect", {}};
const CommandFlags Flags = {&Snapshot,       &FixPairs,           &AddOpposite,         &DeselectRight,
                            &DeselectLeft,   &DeselectCenter,     &ActivateAutoSelect, &DeactivateAutoSelect};

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

    Manager& opposites = manager();
    if (args.isSet(Snapshot))
        setResult(opposites.snapshot(objects));
    else if (args.isSet(FixPairs))
        setResult(opposites.fixPairs(objects));
    else if (args.isSet(AddOpposite))
        opposites.selectOpposites(objects, 1);
    else if (args.isSet(DeselectRight))
        opposites.deselect(objects, RightSide);
    else if (args.isSet(DeselectLeft))
        opposites.deselect(objects, LeftSide);
    else if (args.isSet(DeselectCenter))
        opposites.deselect(objects, CentreSide);
    else if (args.isSet(ActivateAutoSelect))
        opposites.activateAutoSelect();
    else if (args.isSet(DeactivateAutoSelect))
        opposites.deactivateAutoSelect();
    else
        opposites.selectOpposites(objects, 0);
    return status;
}

} // namespace SelectOpposite
