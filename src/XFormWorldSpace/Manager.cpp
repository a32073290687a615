#include "XFormWorldSpace/Manager.h"

#include "CollectAnimation/DataBase.h"
#include "SelectOpposite/Manager.h"
#include "Utils/Arithmetic.h"
#include "Utils/Nodes/AnimCurve.h"
#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/Transform.h"
#include "Utils/Report.h"
#include "Utils/TimeControl.h"

#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MDGContext.h>
#include <maya/MDistance.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MPlug.h>
#include <maya/MSelectionList.h>

#include <cmath>

namespace XFormWorldSpace {

namespace {

const char* const ChannelNames[] = {"translateX", "translateY", "translateZ", "rotateX", "rotateY",
                                    "rotateZ",    "scaleX",     "scaleY",     "scaleZ"};

const QString NothingUpdated = QStringLiteral("paste: nothing updated (no matching transforms in selection)");

// One key through Maya's command, so that it lands in Maya's undo queue.
bool setKey(const MObject& target, const MString& attribute, const MTime& t, double value)
{
    MString command("setKeyframe -time ");
    command += t.value();
    command += " -attribute \"";
    command += attribute;
    command += "\" -value ";
    command += value;
    command += " \"";
    command += nodeDisplayName(target);
    command += "\"";
    return MGlobal::executeCommand(command, false, true);
}

} // namespace

ChannelValues parentSpaceChannels(const MMatrix& world, const MMatrix& parentInverse, const MObject& target,
                                  const MTime& time)
{
    TransformReader reader(target);
    ChannelValues values;
    values.keyRotate = KeyBlending::anglesAt(KeyBlending::rotatePlug(target), time);
    KeyBlending::poseOf(world * parentInverse, KeyBlending::readObjectSpace(reader), values);
    return values;
}

bool isFinite(const ChannelValues& values)
{
    for (int channel = 0; channel < 9; ++channel)
        if (!std::isfinite(KeyBlending::channelOf(values, channel)))
            return false;
    return true;
}

double uiChannelValue(int channel, double internalValue)
{
    if (channel < 3)
        return MDistance(internalValue, MDistance::kCentimeters).asUnits(MDistance::uiUnit());
    if (channel < 6)
        return MAngle(internalValue, MAngle::kRadians).asUnits(MAngle::uiUnit());
    return internalValue;
}

void Manager::copy(const MSelectionList& selection)
{
    fCopiedObjects = transformsOf(selection);
    fPoseStore.clear();
    fAnimationStore.clear();
    MTime start, end;
    if (!timeSliderRange(start, end)) {
        for (unsigned int i = 0; i < fCopiedObjects.length(); ++i)
            fPoseStore[fCopiedObjects[i]] = TransformReader(fCopiedObjects[i]).worldMatrix();
        return;
    }
    // Collected from the objects copied: the keys within the range.
    MSelectionList objects;
    for (unsigned int i = 0; i < fCopiedObjects.length(); ++i)
        objects.add(fCopiedObjects[i]);
    CollectAnimation::CtxAnim collection;
    collection.collect(objects);
    for (const CollectAnimation::NodeKeys& node : collection.nodes()) {
        TransformReader reader(node.node);
        StoredAnimation stored;
        for (const CollectAnimation::PlugKeys& plug : node.plugs) {
            PlugEntry entry{plug.plug.partialName(), {}};
            for (const CollectAnimation::CurveKeys& curve : plug.curves) {
                CurveFrames frames{KeyBlending::channelIndex(nodeDisplayName(curve.curve)), {}};
                if (frames.channel < 0)
                    continue;
                for (const CollectAnimation::KeyInfo& key : curve.keys) {
                    const int frame = truncatedInt(key.time.value(), 0);
                    if (frames.frames.count(frame) == 0)
                        frames.frames[frame] =
                            FrameKey{key.index, reader.worldMatrix(MDGContext(MTime(frame, MTime::uiUnit())))};
                }
                if (!frames.frames.empty())
                    entry.curves.push_back(std::move(frames));
            }
            if (!entry.curves.empty())
                stored.push_back(std::move(entry));
        }
        if (!stored.empty())
            fAnimationStore[node.node] = std::move(stored);
    }
}

bool Manager::paste(const MSelectionList& selection)
{
    fHighlighted = CollectAnimation::Ctx::channelBoxSelection(15);
    if (!fAnimationStore.empty())
        return pasteAnimation(selection);
    if (!fPoseStore.empty())
        return pasteCurrentFrame(selection);
    OV_REPORT(QStringLiteral("clipboard is empty (copy first)"), "paste");
    return false;
}

std::vector<PastePair> Manager::matchPairs(const MSelectionList& selection,
                                           const CollectAnimation::ObjectSet& sources) const
{
    std::vector<PastePair> pairs;
    if (fCopiedObjects.length() == 0 || sources.empty())
        return pairs;
    const MObjectArray targets = transformsOf(selection);
    const QJsonObject stored = SelectOpposite::manager().readPairs();
    CollectAnimation::ObjectSet used;
    const auto available = [&](const MObject& source) { return sources.count(source) && !used.count(source); };

    // Each target its own data first.
    std::vector<MObject> waiting;
    for (unsigned int i = 0; i < targets.length(); ++i) {
        if (available(targets[i])) {
            pairs.push_back({targets[i], targets[i]});
            used.insert(targets[i]);
        } else {
            waiting.push_back(targets[i]);
        }
    }
    // Then that of the source whose opposite it is; a source from another
    // scene has no opposite.
    std::vector<MObject> stillWaiting;
    for (const MObject& target : waiting) {
        bool paired = false;
        for (unsigned int i = 0; i < fCopiedObjects.length() && !paired; ++i) {
            const MObject& source = fCopiedObjects[i];
            if (available(source) && isValidObject(source) && SelectOpposite::oppositeOf(stored, source) == target) {
                pairs.push_back({target, source});
                used.insert(source);
                paired = true;
            }
        }
        if (!paired)
            stillWaiting.push_back(target);
    }
    // Then what is left, in copy order.
    for (const MObject& target : stillWaiting) {
        for (unsigned int i = 0; i < fCopiedObjects.length(); ++i) {
            if (available(fCopiedObjects[i])) {
                pairs.push_back({target, fCopiedObjects[i]});
                used.insert(fCopiedObjects[i]);
                break;
            }
        }
    }
    return pairs;
}

bool Manager::pasteAnimation(const MSelectionList& selection)
{
    CollectAnimation::ObjectSet sources;
    for (const auto& [object, stored] : fAnimationStore)
        sources.insert(object);
    bool updated = false;
    for (const PastePair& pair : matchPairs(selection, sources)) {
        const StoredAnimation& stored = fAnimationStore.at(pair.source);
        TransformReader reader(pair.target);
        // Every frame's channels before any key is set, so the rotations
        // keep the winding the target had.
        std::map<int, ChannelValues> channels;
        for (const PlugEntry& entry : stored)
            for (const CurveFrames& curve : entry.curves)
                for (const auto& [frame, key] : curve.frames)
                    if (channels.count(frame) == 0) {
                        const MTime t(frame, MTime::uiUnit());
                        channels[frame] =
                            parentSpaceChannels(key.world, reader.parentInverseMatrix(MDGContext(t)), pair.target, t);
                    }
        for (const PlugEntry& entry : stored) {
            if (!channelAllowed(entry.attribute))
                continue;
            for (const CurveFrames& curve : entry.curves)
                for (const auto& [frame, key] : curve.frames) {
                    if (!isFinite(channels[frame]))
                        continue;
                    const double value = KeyBlending::channelOf(channels[frame], curve.channel);
                    updated |= setKey(pair.target, entry.attribute, MTime(frame, MTime::uiUnit()),
                                      uiChannelValue(curve.channel, value));
                }
        }
    }
    if (!updated)
        OV_REPORT(NothingUpdated, "pasteAnimation");
    return updated;
}

bool Manager::pasteCurrentFrame(const MSelectionList& selection)
{
    const MTime now = MAnimControl::currentTime();
    MTime start, end;
    timeSliderRange(start, end);
    CollectAnimation::ObjectSet sources;
    for (const auto& [object, world] : fPoseStore)
        sources.insert(object);
    const std::vector<PastePair> pairs = matchPairs(selection, sources);
    bool updated = false;
    for (MTime t = start; t <= end; t += MTime(1.0, MTime::uiUnit()))
        for (const PastePair& pair : pairs) {
            // The parent as it stands: a pose goes where it was in the world now.
            const MMatrix parentInverse = TransformReader(pair.target).parentInverseMatrix();
            updated |= keyChannels(pair.target,
                                   parentSpaceChannels(fPoseStore.at(pair.source), parentInverse, pair.target, t), t);
        }
    if (!updated)
        OV_REPORT(NothingUpdated, "pasteCurrentFrame");
    MAnimControl::setCurrentTime(now);
    return updated;
}

bool Manager::keyChannels(const MObject& target, const ChannelValues& values, const MTime& t) const
{
    if (!isFinite(values))
        return false;
    const MFnDependencyNode node(target);
    bool keyed = false;
    for (int channel = 0; channel < 9; ++channel) {
        const MPlug plug = node.findPlug(ChannelNames[channel], false);
        if (plug.isNull() || plug.isLocked() || !channelAllowed(plug.partialName()))
            continue;
        keyed |= setKey(target, plug.partialName(), t,
                        uiChannelValue(channel, KeyBlending::channelOf(values, channel)));
    }
    return keyed;
}

bool Manager::channelAllowed(const MString& name) const
{
    return fHighlighted.isEmpty() || fHighlighted.contains(QString::fromUtf8(name.asChar()));
}

Manager& manager()
{
    static Manager instance;
    return instance;
}

} // namespace XFormWorldSpace
