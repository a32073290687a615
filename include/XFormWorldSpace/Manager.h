#pragma once
#include "CollectAnimation/Ctx.h"
#include "KeyBlending/WorldPose.h"

#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <QSet>
#include <QString>

#include <map>
#include <unordered_map>
#include <utility>
#include <vector>
#include <maya/MApiNamespace.h>

namespace XFormWorldSpace {

// Local channel values: translate, rotate (radians, in the target's rotate
// order), scale.
using ChannelValues = KeyBlending::PoseChannels;

// The channels that put target where world is, under the parent whose
// inverse matrix is given: through the target's rotate axis, joint orient,
// rotate pivot and rotate order. Of the angles that give the rotation, those
// nearest the target's rotate channels at time are taken, so that a channel
// keeps its winding across keys.
ChannelValues parentSpaceChannels(const MMatrix& world, const MMatrix& parentInverse, const MObject& target,
                                  const MTime& time);

// Whether all nine channels are numbers: a pose out of the double range
// (a huge translation under a scaled parent) is written nowhere.
bool isFinite(const ChannelValues& values);

// Channel 0 to 8 of the nine transform channels in the scene's interface
// unit, as setKeyframe's -value reads it.
double uiChannelValue(int channel, double internalValue);

// One keyed frame of a range copy: the key it came from and the object's
// world matrix there.
struct FrameKey
{
    unsigned int index = 0;
    MMatrix world;
};

// The frames of one copied transform channel curve. The channel and the
// plug's name are kept as text, so that a paste needs nothing of the source
// itself: the clipboard outlives the scene it was copied from.
struct CurveFrames
{
    int channel = -1; // 0 to 8, translateX to scaleZ
    std::map<int, FrameKey> frames;
};

struct PlugEntry
{
    MString attribute; // the plug's short name
    std::vector<CurveFrames> curves;
};

using StoredAnimation = std::vector<PlugEntry>;

// A target and the object whose copy it receives.
struct PastePair
{
    MObject target;
    MObject source;
};

template <typename Value>
using ObjectMap = std::unordered_map<MObject, Value, CollectAnimation::ObjectHash>;

// The world-space clipboard: one global object, so a copy lives until the
// plug-in is unloaded, across new scenes. Only one of the stores is filled.
class Manager
{
public:
    // Without a highlighted range one pose, else the world matrix of every
    // keyed frame in the range.
    void copy(const MSelectionList& selection);
    // Writes the copy onto the selection as keys: whether anything was keyed.
    bool paste(const MSelectionList& selection);

    // Who gets whose data: each target its own first, then that of the
    // source whose opposite it is, then what is left in copy order.
    std::vector<PastePair> matchPairs(const MSelectionList& selection, const CollectAnimation::ObjectSet& sources) const;

private:
    bool pasteAnimation(const MSelectionList& selection);
    bool pasteCurrentFrame(const MSelectionList& selection);
    // Keys the nine channels of values on target at t: whether any key was set.
    bool keyChannels(const MObject& target, const ChannelValues& values, const MTime& t) const;
    bool channelAllowed(const MString& name) const;

    MObjectArray fCopiedObjects;
    ObjectMap<MMatrix> fPoseStore;
    ObjectMap<StoredAnimation> fAnimationStore;
    // The channels highlighted in the channel box at the paste.
    QSet<QString> fHighlighted;
};

Manager& manager();

} // namespace XFormWorldSpace
