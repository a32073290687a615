#include "Snapshot/Cmd.h"

#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace Snapshot {

const MString CommandName("OVSnapshot");

namespace {

const CommandFlag Clear{"-c", "-clear", {}};
const CommandFlags Flags = {&Clear};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    // Forgetting every pose needs no objects.
    if (args.isSet(Clear)) {
        fManager.clear();
        return MS::kSuccess;
    }

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;
    fManager.snapshot(objects);
    return status;
}

} // namespace Snapshot
