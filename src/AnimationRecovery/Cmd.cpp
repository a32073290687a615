#include "AnimationRecovery/Cmd.h"

#include "AnimationRecovery/Manager.h"
#include "Utils/Command.h"

namespace AnimationRecovery {

const MString CommandName("OVAnimationRecovery");

namespace {

const CommandFlag Enable{"-e", "-enable", {MSyntax::kBoolean}};
const CommandFlag Restore{"-r", "-restore", {}};
const CommandFlags Flags = {&Enable, &Restore};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, false); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    Manager& manager = Manager::instance();
    if (args.isSet(Restore)) {
        const bool restored = manager.restore(fChange, fModifier);
        fUndoable = true;
        return restored ? MS::kSuccess : MS::kFailure;
    }
    if (args.isSet(Enable)) {
        bool on = false;
        args.database().getFlagArgument(Enable.shortName, 0, on);
        const bool result = on ? manager.enable() : manager.disable();
        setResult(result);
        return result ? MS::kSuccess : MS::kFailure;
    }
    return MS::kSuccess;
}

MStatus Cmd::undoIt()
{
    fChange.undoIt();
    return fModifier.undoIt();
}

MStatus Cmd::redoIt()
{
    fModifier.doIt();
    return fChange.redoIt();
}

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace AnimationRecovery
