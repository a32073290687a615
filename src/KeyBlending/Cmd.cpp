#include "KeyBlending/Cmd.h"

#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace KeyBlending {

const MString CommandName("OVKeyBlending");

namespace {

const CommandFlag BlendType{"-bt", "-blendType", {MSyntax::kDouble}};
const CommandFlag BlendValue{"-bv", "-blendValue", {MSyntax::kDouble}};
const CommandFlag FrameTimes{"-ft", "-frameTimes", {MSyntax::kDouble, MSyntax::kDouble}};
const CommandFlag Internal{"-i", "-internal", {}};
const CommandFlags Flags = {&BlendType, &BlendValue, &FrameTimes, &Internal};

} // namespace

Cmd::~Cmd()
{
    if (activeData == &fData)
        activeData = nullptr;
}

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    // The slider's drag: this command only carries the Data and its undo record.
    if (args.isSet(Internal)) {
        activeData = &fData;
        fUndoable = true;
        return MS::kSuccess;
    }

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;

    const double x = args.numberOr(BlendValue, 0.0, missingBlendValueText(BlendValue), OV_HERE("doIt"));
    // Without a type, the first of the table.
    fData.setBlendType(args.numberOr(BlendType, 0.0,
                                     missingBlendTypeText(BlendType, Data::blendTypeName(0), Data::blendTypeList()),
                                     OV_HERE("doIt")));
    if (args.isSet(FrameTimes))
        fData.setFrameTimes(args.number(FrameTimes, 0), args.number(FrameTimes, 1));

    fData.collect(objects);
    fData.blend(x);
    fData.finish();
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fData.animCurveChange().undoIt(); }

MStatus Cmd::redoIt() { return fData.animCurveChange().redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace KeyBlending
