#include "TangentBlending/Cmd.h"

#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MSelectionList.h>

namespace TangentBlending {

const MString CommandName("OVTangentBlending");

namespace {

const char* const BlendTypeShort = "-bt";
const char* const BlendTypeLong = "-blendType";
const char* const BlendValueShort = "-bv";
const char* const BlendValueLong = "-blendValue";
const char* const InTangentShort = "-i";
const char* const InTangentLong = "-inTangent";
const char* const OutTangentShort = "-o";
const char* const OutTangentLong = "-outTangent";
const char* const InternalShort = "-il";
const char* const InternalLong = "-internal";

} // namespace

Cmd::~Cmd()
{
    if (activeData == &fManager)
        activeData = nullptr;
}

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax;
    syntax.addFlag(BlendTypeShort, BlendTypeLong, MSyntax::kDouble);
    syntax.addFlag(BlendValueShort, BlendValueLong, MSyntax::kDouble);
    syntax.addFlag(InTangentShort, InTangentLong, MSyntax::kNoArg);
    syntax.addFlag(OutTangentShort, OutTangentLong, MSyntax::kNoArg);
    syntax.addFlag(InternalShort, InternalLong, MSyntax::kNoArg);
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

    // The slider's drag: this command only carries the Manager and its undo
    // record; the slider chooses the sides itself.
    if (argData.isFlagSet(InternalShort)) {
        activeData = &fManager;
        fUndoable = true;
        return status;
    }

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        OV_REPORT(QStringLiteral("no object/s specified"), "doIt");
        return status;
    }

    double blend = 0.0;
    if (argData.isFlagSet(BlendValueShort))
        blend = argData.flagArgumentDouble(BlendValueShort, 0);
    else
        OV_REPORT(QStringLiteral("no blend value specified so, the value 0 will be used\nto specify blend value use flag ")
                      + flagText(BlendValueShort, BlendValueLong) + QStringLiteral("\n"),
                  "doIt");

    if (argData.isFlagSet(BlendTypeShort)) {
        fManager.setBlendType(static_cast<int>(argData.flagArgumentDouble(BlendTypeShort, 0)));
    } else {
        OV_REPORT(QStringLiteral("no blend type specified\nso, the default blend type [")
                      + tangentTypeName(DefaultTangentType) + QStringLiteral("] will be used\n\nuse flag ")
                      + flagText(BlendTypeShort, BlendTypeLong) + QStringLiteral(" with any of these types:\n")
                      + tangentTypeList(),
                  "doIt");
    }

    // No side flag means both sides.
    const bool in = argData.isFlagSet(InTangentShort);
    const bool out = argData.isFlagSet(OutTangentShort);
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
