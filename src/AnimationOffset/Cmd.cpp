#include "AnimationOffset/Cmd.h"

#include "AnimationOffset/Manager.h"
#include "Utils/Command.h"

namespace AnimationOffset {

const MString CommandName("OVAnimationOffset");

namespace {

const CommandFlag DoOffset{"-do", "-doOffset", {}};
const CommandFlags Flags = {&DoOffset};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, false); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    if (args.isSet(DoOffset))
        fUndoable = Manager::instance().doOffset(fChange);
    else
        Manager::instance().toggle();
    return MS::kSuccess;
}

MStatus Cmd::undoIt() { return fChange.undoIt(); }

MStatus Cmd::redoIt() { return fChange.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace AnimationOffset
