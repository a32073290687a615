#include "TempPivot/Cmd.h"

#include "TempPivot/Manager.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace TempPivot {

const MString CommandName("OVTempPivot");

namespace {

const CommandFlag LastObject{"-lo", "-lastObject", {}};
const CommandFlag IsEnabled{"-ie", "-isEnabled", {}};
const CommandFlag ToggleEdit{"-te", "-toggleEdit", {}};
const CommandFlag Center{"-c", "-center", {}};
const CommandFlag Reset{"-r", "-reset", {}};
const CommandFlag WorldSpace{"-ws", "-worldSpace", {}};
const CommandFlag Enable{"-e", "-enable", {MSyntax::kBoolean}};
const CommandFlags Flags = {&LastObject, &IsEnabled, &ToggleEdit, &Center, &Reset, &WorldSpace, &Enable};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    Manager& manager = Manager::instance();
    if (args.isSet(ToggleEdit)) {
        setResult(manager.toggleEdit());
        return MS::kSuccess;
    }
    if (args.isSet(Reset)) {
        setResult(manager.reset());
        return MS::kSuccess;
    }
    if (args.isSet(IsEnabled)) {
        setResult(manager.isEnabled());
        return MS::kSuccess;
    }
    if (!args.isSet(Enable)) {
        OV_REPORT(QStringLiteral("need flag -enable"), "doIt");
        return MS::kFailure;
    }
    bool on = false;
    args.database().getFlagArgument(Enable.shortName, 0, on);
    if (!on) {
        setResult(manager.disable());
        return MS::kSuccess;
    }
    if (manager.isEnabled()) {
        setResult(false);
        OV_REPORT(QStringLiteral("its already enabled"), "doIt");
        return MS::kFailure;
    }
    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;
    const bool center = args.isSet(Center);
    const bool lastObject = args.isSet(LastObject);
    const bool worldSpace = args.isSet(WorldSpace);
    if (int(center) + int(lastObject) + int(worldSpace) > 1) {
        OV_REPORT(QStringLiteral("cant use -center -worldSpace -lastObject at the same time"), "doIt");
        return MS::kFailure;
    }
    manager.setModes(center, lastObject, worldSpace);
    setResult(manager.enable(objects));
    return MS::kSuccess;
}

} // namespace TempPivot
