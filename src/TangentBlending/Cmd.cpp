#include "TangentBlending/Cmd.h"

#include "Utils/Arithmetic.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace TangentBlending {

const MString CommandName("OVTangentBlending");

namespace {

const CommandFlag BlendType{"-bt", "-blendType", {MSyntax::kDouble}};
const CommandFlag BlendValue{"-bv", "-blendValue", {MSyntax::kDouble}};
const CommandFlag InTangent{"-i", "-inTangent", {}};
const CommandFlag OutTangent{"-o", "-outTangent", {}};
const CommandFlag Internal{"-il", "-internal", {}};
const CommandFlags Flags = {&BlendType, &BlendValue, &InTangent, &OutTangent, &Internal};

} // namespace

Cmd::~Cmd()
{
    if (activeData == &fManager)
        activeData = nullptr;
}

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    // The slider's drag: this command only carries the Manager and its undo
    // record; the slider chooses the sides itself.
    if (args.isSet(Internal)) {
        activeData = &fManager;
        fUndoable = true;
        return MS::kSuccess;
    }

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;

    const double blend = args.numberOr(BlendValue, 0.0, missingBlendValueText(BlendValue), OV_HERE("doIt"));
    // Truncated toward zero; a number beyond any int is no type of the table.
    const double type = args.numberOr(
        BlendType, DefaultTangentType,
        missingBlendTypeText(BlendType, tangentTypeName(DefaultTangentType), tangentTypeList()), OV_HERE("doIt"));
    fManager.setBlendType(truncatedInt(type, -1));

    // No side flag means both sides.
    const bool in = args.isSet(InTangent);
    const bool out = args.isSet(OutTangent);
    fManager.setInTangent(in || !out);
    fManager.setOutTangent(out || !in);

    fManager.collect(objects);
    fManager.apply(blend);
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fManager.animCurveChange().undoIt(); }

MStatus Cmd::redoIt() { return fManager.animCurveChange().redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace TangentBlending
