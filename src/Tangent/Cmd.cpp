#include "Tangent/Cmd.h"

#include "CollectAnimation/DataBase.h"
#include "TangentBlending/Manager.h"
#include "Utils/Command.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MSelectionList.h>

namespace Tangent {

const MString CommandName("OVTangent");

namespace {

const CommandFlag BlendType{"-bt", "-blendType", {MSyntax::kUnsigned}};
const CommandFlag InTangent{"-i", "-inTangent", {}};
const CommandFlag OutTangent{"-o", "-outTangent", {}};
const CommandFlags Flags = {&BlendType, &InTangent, &OutTangent};

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();

    MSelectionList objects;
    const MStatus status = args.getObjects(objects, OV_HERE("doIt"));
    if (!status)
        return status;

    if (!args.isSet(BlendType)) {
        OV_REPORT(BlendType.text() + QStringLiteral(" flag required"), "doIt");
        return MS::kFailure;
    }
    unsigned int index = 0;
    args.database().getFlagArgument(BlendType.shortName, 0, index);
    if (index >= static_cast<unsigned int>(TangentBlending::TangentTypeCount)) {
        OV_REPORT(QStringLiteral("tangent type invalid"), "doIt");
        return MS::kFailure;
    }

    // No side flag means both sides.
    const bool in = args.isSet(InTangent);
    const bool out = args.isSet(OutTangent);
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
