#include "ResetPose/Cmd.h"

#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MSelectionList.h>

namespace ResetPose {

const MString CommandName("OVResetPose");

namespace {

const char* const TranslateShort = "-t";
const char* const TranslateLong = "-translate";
const char* const RotateShort = "-r";
const char* const RotateLong = "-rotate";
const char* const ScaleShort = "-s";
const char* const ScaleLong = "-scale";

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax;
    syntax.addFlag(TranslateShort, TranslateLong, MSyntax::kNoArg);
    syntax.addFlag(RotateShort, RotateLong, MSyntax::kNoArg);
    syntax.addFlag(ScaleShort, ScaleLong, MSyntax::kNoArg);
    syntax.setObjectType(MSyntax::kSelectionList, 1);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus Cmd::doIt(const MArgList& args)
{
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) {
        OV_REPORT(QStringLiteral("failed to parse args\n"), "doIt");
        return status;
    }

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        OV_REPORT(QStringLiteral("no object/s specified"), "doIt");
        return status;
    }

    fManager.setMode(argData.isFlagSet(TranslateShort), argData.isFlagSet(RotateShort),
                     argData.isFlagSet(ScaleShort));
    fManager.reset(objects);
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fManager.undoIt(); }

MStatus Cmd::redoIt() { return fManager.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace ResetPose
