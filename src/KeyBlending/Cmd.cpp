#include "KeyBlending/Cmd.h"

#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MSelectionList.h>

namespace KeyBlending {

const MString CommandName("OVKeyBlending");

namespace {

const char* const BlendTypeShort = "-bt";
const char* const BlendTypeLong = "-blendType";
const char* const BlendValueShort = "-bv";
const char* const BlendValueLong = "-blendValue";
const char* const FrameTimesShort = "-ft";
const char* const FrameTimesLong = "-frameTimes";
const char* const InternalShort = "-i";
const char* const InternalLong = "-internal";

} // namespace

Cmd::~Cmd()
{
    if (activeData == &fData)
        activeData = nullptr;
}

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax;
    syntax.addFlag(BlendTypeShort, BlendTypeLong, MSyntax::kDouble);
    syntax.addFlag(BlendValueShort, BlendValueLong, MSyntax::kDouble);
    syntax.addFlag(FrameTimesShort, FrameTimesLong, MSyntax::kDouble, MSyntax::kDouble);
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

    // The slider's drag: this command only carries the Data and its undo record.
    if (argData.isFlagSet(InternalShort)) {
        activeData = &fData;
        fUndoable = true;
        return status;
    }

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        OV_REPORT(QStringLiteral("no object/s specified"), "doIt");
        return status;
    }

    double x = 0.0;
    if (argData.isFlagSet(BlendValueShort))
        x = argData.flagArgumentDouble(BlendValueShort, 0);
    else
        OV_REPORT(QStringLiteral("no blend value specified so, the value 0 will be used\nto specify blend value use flag ")
                      + flagText(BlendValueShort, BlendValueLong) + QStringLiteral("\n"),
                  "doIt");

    if (argData.isFlagSet(BlendTypeShort)) {
        fData.setBlendType(argData.flagArgumentDouble(BlendTypeShort, 0));
    } else {
        OV_REPORT(QStringLiteral("no blend type specified\nso, the default blend type [") + Data::blendTypeName(0)
                      + QStringLiteral("] will be used\n\nuse flag ") + flagText(BlendTypeShort, BlendTypeLong)
                      + QStringLiteral(" with any of these types:\n") + Data::blendTypeList(),
                  "doIt");
    }

    if (argData.isFlagSet(FrameTimesShort)) {
        fData.setFrameTimes(argData.flagArgumentDouble(FrameTimesShort, 0),
                            argData.flagArgumentDouble(FrameTimesShort, 1));
    }

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
