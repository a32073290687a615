#include "Retiming/Cmd.h"

#include "Utils/Command.h"

#include <maya/MSelectionList.h>

#include <cmath>

namespace Retiming {

const MString CommandName("OVRetiming");

namespace {

const CommandFlag Value{"-v", "-value", {MSyntax::kDouble}};
const CommandFlag RetimeType{"-rt", "-retimeType", {MSyntax::kUnsigned}};
const CommandFlag JumpToNewTime{"-j", "-JumpToNewTime", {}};
const CommandFlags Flags = {&Value, &RetimeType, &JumpToNewTime};

// Times at or beyond this many frames are past every plan's end.
constexpr double LargestValue = 999999999.0;

QString retimeTypeList()
{
    QString list;
    for (int i = 0; i < RetimeTypeCount; ++i)
        list += QStringLiteral("%1: %2\n").arg(i).arg(QString::fromLatin1(RetimeTypeNames[i]));
    return list;
}

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"), QStringLiteral("selection currepted"));
    if (!status)
        return status;

    if (!args.isSet(RetimeType)) {
        OV_REPORT(QStringLiteral("no -retimeType specified"), "doIt");
        return MS::kFailure;
    }
    if (!args.isSet(Value)) {
        OV_REPORT(QStringLiteral("no -value specified"), "doIt");
        return MS::kFailure;
    }
    unsigned int retimeType = 0;
    args.database().getFlagArgument(RetimeType.shortName, 0, retimeType);
    if (retimeType >= static_cast<unsigned int>(RetimeTypeCount)) {
        OV_REPORT(QStringLiteral("invalid -retimeType, use one of:\n") + retimeTypeList(), "doIt");
        return MS::kFailure;
    }
    const MTime value(args.number(Value), MTime::uiUnit());
    if (value.value() == 0.0 || std::fabs(value.as(MTime::uiUnit())) >= LargestValue) {
        OV_REPORT(QStringLiteral("invalid -value"), "doIt");
        return MS::kFailure;
    }

    const int changedKeys =
        fManager.retime(objects, value, static_cast<int>(retimeType), args.isSet(JumpToNewTime));
    setResult(changedKeys);
    fUndoable = changedKeys > 0;
    return status;
}

MStatus Cmd::undoIt() { return fManager.undoIt(); }

MStatus Cmd::redoIt() { return fManager.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace Retiming
