#include "Tangent/Cmd.h"

#include "CollectAnimation/DataBase.h"
#include "TangentBlending/Manager.h"
#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MSelectionList.h>

namespace Tangent {

const MString CommandName("OVTangent");

namespace {

const char* const BlendTypeShort = "-bt";
const char* const BlendTypeLong = "-blendType";
const char* const InTangentShort = "-i";
const char* const InTangentLong = "-inTangent";
const char* const OutTangentShort = "-o";
const char* const OutTangentLong = "-outTangent";

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax;
    syntax.addFlag(BlendTypeShort, BlendTypeLong, MSyntax::kUnsigned);
    syntax.addFlag(InTangentShort, InTangentLong, MSyntax::kNoArg);
    syntax.addFlag(OutTangentShort, OutTangentLong, MSyntax::kNoArg);
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

    if (!argData.isFlagSet(BlendTypeShort)) {
        OV_REPORT(flagText(BlendTypeShort, BlendTypeLong) + QStringLiteral(" flag required"), "doIt");
        return MS::kFailure;
    }
    unsigned int index = 0;
    argData.getFlagArgument(BlendTypeShort, 0, index);
    if (index >= static_cast<unsigned int>(TangentBlending::TangentTypeCount)) {
        OV_REPORT(QStringLiteral("tangent type invalid"), "doIt");
        return MS::kFailure;
    }

    // No side flag means both sides.
    const bool in = argData.isFlagSet(InTangentShort);
    const bool out = argData.isFlagSet(OutTangentShort);
    fInTangent = in || !out;
    fOutTangent = out || !in;

    const MFnAnimCurve::TangentType type = TangentBlending::tangentType(static_cast<int>(index));
    // A frame without a key leaves its curve out: this tool creates no key.
    CollectAnimation::CtxAnim collection;
    collection.collect(objects);
    for (const CollectAnimation::NodeKeys& node : collection.nodes()) {
        for (const CollectAnimation::PlugKeys& plug : node.plugs) {
            for (const CollectAnimation::CurveKeys& curve : plug.curves) {
                MFnAnimCurve fn(curve.curve);
                for (const CollectAnimation::KeyInfo& key : curve.keys) {
                    if (fInTangent)
                        fn.setInTangentType(key.index, type, &fChange);
                    if (fOutTangent)
                        fn.setOutTangentType(key.index, type, &fChange);
                }
            }
        }
    }
    fUndoable = true;
    return status;
}

MStatus Cmd::undoIt() { return fChange.undoIt(); }

MStatus Cmd::redoIt() { return fChange.redoIt(); }

bool Cmd::isUndoable() const { return fUndoable; }

} // namespace Tangent
