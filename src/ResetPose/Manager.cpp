#include "ResetPose/Manager.h"

#include "Utils/Nodes/AnimCurve.h"
#include "Utils/Nodes/Node.h"
#include "Utils/TimeControl.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MSelectionList.h>

namespace ResetPose {

namespace {

QString toQString(const MString& text) { return QString::fromUtf8(text.asChar()); }

} // namespace

void Manager::setMode(bool translate, bool rotate, bool scale)
{
    fMode = FlagGivenBit;
    if (translate)
        fMode += TranslateBit;
    if (rotate)
        fMode += RotateBit;
    if (scale)
        fMode += ScaleBit;
    if (fMode == FlagGivenBit)
        fMode = AllChannelsBit;
}

// The whole name is searched, node name included.
bool Manager::channelMatches(const QString& name) const
{
    if (fMode & AllChannelsBit)
        return true;
    return ((fMode & TranslateBit) && name.indexOf(QLatin1String("translate")) != -1)
           || ((fMode & RotateBit) && name.indexOf(QLatin1String("rotate")) != -1)
           || ((fMode & ScaleBit) && name.indexOf(QLatin1String("scale")) != -1);
}

void Manager::reset(const MSelectionList& objects)
{
    // Picked curves or a highlighted range mean keys; otherwise the pose as it stands.
    MTime start;
    MTime end;
    if (hasAnimCurves(objects) || timeSliderRange(start, end))
        resetKeys(objects);
    else
        resetValues(objects);
    fModifier.doIt();
}

void Manager::resetValues(const MSelectionList& objects)
{
    fSnapshot.readFile();
    fSnapshot.collectPlugValues(objects);
    const QSet<QString> highlighted = CollectAnimation::Ctx::channelBoxSelection(15);
    for (const Snapshot::PlugValue& entry : fSnapshot.plugValues()) {
        if (!channelMatches(toQString(entry.plug.name())))
            continue;
        if (!highlighted.isEmpty() && !highlighted.contains(toQString(entry.plug.partialName())))
            continue;
        fModifier.newPlugValueDouble(entry.plug, entry.value);
    }
}

void Manager::resetKeys(const MSelectionList& objects)
{
    fCollection.collect(objects);
    fSnapshot.readFile();
    for (const CollectAnimation::NodeKeys& node : fCollection.nodes()) {
        for (const CollectAnimation::PlugKeys& plug : node.plugs) {
            for (const CollectAnimation::CurveKeys& curve : plug.curves) {
                // Maya's default curve names carry the channel's name.
                if (!channelMatches(toQString(nodeDisplayName(curve.curve))))
                    continue;
                const std::optional<double> value = fSnapshot.defaultValue(plug.plug);
                if (!value)
                    continue;
                MFnAnimCurve fn(curve.curve);
                for (const CollectAnimation::KeyInfo& key : curve.keys) {
                    fn.setValue(key.index, *value, &fChange);
                    // Fixed tangents would keep the old slope; auto ones follow the new value.
                    if (fn.outTangentType(key.index) == MFnAnimCurve::kTangentFixed) {
                        fn.setInTangentType(key.index, MFnAnimCurve::kTangentAuto, &fChange);
                        fn.setOutTangentType(key.index, MFnAnimCurve::kTangentAuto, &fChange);
                    }
                }
            }
        }
    }
}

MStatus Manager::undoIt()
{
    fChange.undoIt();
    return fModifier.undoIt();
}

MStatus Manager::redoIt()
{
    fChange.redoIt();
    return fModifier.doIt();
}

} // namespace ResetPose
