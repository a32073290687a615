#include "Relationship/Manager.h"

#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/Transform.h"
#include "Utils/Report.h"
#include "Utils/TimeControl.h"
#include "XFormWorldSpace/Manager.h"

#include <maya/MAnimControl.h>
#include <maya/MDGContext.h>
#include <maya/MDagPath.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectArray.h>
#include <maya/MPlug.h>

namespace Relationship {

namespace {

MMatrix worldMatrixAt(const MObject& object, const MTime& t)
{
    return TransformReader(object).worldMatrix(MDGContext(t));
}

} // namespace

bool Manager::copy(const MSelectionList& objects)
{
    const MObjectArray transforms = transformsOf(objects);
    if (transforms.length() != 2) {
        OV_REPORT(QStringLiteral("select exactly 2 transforms"), "copy");
        return false;
    }
    fTarget = transforms[0];
    fSource = transforms[1];
    fCopyTime = MAnimControl::currentTime();
    fTargetWorld = worldMatrixAt(fTarget, fCopyTime);
    fSourceWorld = worldMatrixAt(fSource, fCopyTime);
    fRelation = fTargetWorld * fSourceWorld.inverse();
    return true;
}

bool Manager::objectsLive() const
{
    if (isValidObject(fTarget) && isValidObject(fSource))
        return true;
    OV_REPORT(QStringLiteral("clipboard is empty (copy first)"), "paste");
    // After a copy, which of the two is gone.
    if (!fTarget.isNull() && !isValidObject(fTarget))
        OV_REPORT(QStringLiteral("target object no longer exists"), "paste");
    if (!fSource.isNull() && !isValidObject(fSource))
        OV_REPORT(QStringLiteral("source object no longer exists"), "paste");
    return false;
}

bool Manager::paste(MDGModifier& modifier, bool& written)
{
    written = false;
    if (!objectsLive())
        return false;
    MTime start, end;
    if (!timeSliderRange(start, end)) {
        written = pasteAtTime(MAnimControl::currentTime(), modifier, false);
        if (!written)
            OV_REPORT(QStringLiteral("paste: nothing updated"), "paste");
        return written;
    }
    const MTime now = MAnimControl::currentTime();
    bool updated = false;
    for (MTime t = start; t <= end; t += MTime(1.0, MTime::uiUnit()))
        updated |= pasteAtTime(t, modifier, true);
    MAnimControl::setCurrentTime(now);
    if (!updated)
        OV_REPORT(QStringLiteral("paste: nothing updated"), "paste");
    // The keys are in Maya's undo queue; the values of the channels left
    // unkeyed (scale) are in the modifier, which undo takes back with them.
    written = updated;
    return updated;
}

bool Manager::pasteAtTime(const MTime& t, MDGModifier& modifier, bool withKey)
{
    const MMatrix world = fRelation * worldMatrixAt(fSource, t);
    if (!withKey)
        return writeChannels(world, t, modifier);
    MAnimControl::setCurrentTime(t);
    if (!writeChannels(world, t, modifier))
        return false;
    modifier.doIt();
    MDagPath path;
    MDagPath::getAPathTo(fTarget, path);
    MGlobal::executeCommand("setKeyframe -attribute translate -attribute rotate \"" + path.fullPathName() + "\"",
                            false, true);
    return true;
}

bool Manager::writeChannels(const MMatrix& world, const MTime& t, MDGModifier& modifier) const
{
    static const char* const channels[] = {"translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                           "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};
    const XFormWorldSpace::ChannelValues values = XFormWorldSpace::parentSpaceChannels(
        world, TransformReader(fTarget).parentInverseMatrix(), fTarget, t);
    if (!XFormWorldSpace::isFinite(values))
        return false;
    const MFnDependencyNode node(fTarget);
    bool written = false;
    for (int channel = 0; channel < 9; ++channel) {
        const MPlug plug = node.findPlug(channels[channel], false);
        if (plug.isNull() || plug.isLocked())
            continue;
        // Internal units: radians and centimetres, as the plug holds them.
        modifier.newPlugValueDouble(plug, KeyBlending::channelOf(values, channel));
        written = true;
    }
    return written;
}

Manager& manager()
{
    static Manager instance;
    return instance;
}

} // namespace Relationship
