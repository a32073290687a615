#include "KeyBlending/InfinityWorldSpace.h"

#include "Utils/Arithmetic.h"

#include <maya/MDGContext.h>
#include <maya/MFnAnimCurve.h>

#include <cmath>
#include <set>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::KeyInfo;
using CollectAnimation::NodeKeys;
using CollectAnimation::PlugKeys;

namespace {

using InfinityObject = ObjectRecord<InfinityFrame, std::pair<MTime, bool>>;
using KeyIterator = std::vector<KeyInfo>::const_iterator;

// One record per key of the run and side, unless one has the same times.
void addFrames(InfinityObject& object, std::set<TimeTriple>& known, KeyIterator first, KeyIterator end,
               const MTime& nearTime, const MTime& farTime)
{
    for (KeyIterator key = first; key != end; ++key) {
        if (!known.insert({key->time, nearTime, farTime}).second)
            continue;
        InfinityFrame frame;
        frame.time = key->time;
        frame.nearTime = nearTime;
        frame.farTime = farTime;
        frame.worldAtNear = object.reader.worldMatrix(MDGContext(nearTime));
        frame.worldAtFar = object.reader.worldMatrix(MDGContext(farTime));
        object.firstFrame.emplace(std::make_pair(frame.time, frame.isLeft()), object.frames.size());
        object.frames.push_back(frame);
    }
}

// The records of one curve's runs: a run is a stretch of consecutive keys
// with the same neighbours.
void addCurveFrames(InfinityObject& object, std::set<TimeTriple>& known, const CurveKeys& curve)
{
    MFnAnimCurve fn(curve.curve);
    const unsigned int count = fn.numKeys();
    const std::vector<KeyInfo>& keys = curve.keys;
    size_t start = 0;
    while (start < keys.size()) {
        size_t end = start + 1;
        while (end < keys.size() && keys[end].leftTime == keys[start].leftTime
               && keys[end].rightTime == keys[start].rightTime && keys[end].index == keys[end - 1].index + 1)
            ++end;
        const unsigned int first = keys[start].index;
        const unsigned int last = keys[end - 1].index;
        if (last + 1 < count) {
            const MTime nearTime = fn.time(last + 1);
            addFrames(object, known, keys.begin() + start, keys.begin() + end, nearTime,
                      last + 2 < count ? fn.time(last + 2) : nearTime);
        }
        const MTime nearTime = fn.time(first > 0 ? first - 1 : 0);
        addFrames(object, known, keys.begin() + start, keys.begin() + end, nearTime,
                  first >= 2 ? fn.time(first - 2) : nearTime);
        start = end;
    }
}

// Keys of a transform channel that has no pose of its side: the line
// through the neighbour and the key beyond it.
double lineBeyondNeighbor(MFnAnimCurve& fn, const KeyInfo& key, double x, double amount)
{
    const MTime::Unit unit = MTime::uiUnit();
    const double t = key.time.as(unit);
    if (x > 0.0) {
        const unsigned int i = leftNeighborIndex(fn.object(), key.leftTime);
        if (i == 0)
            return lerp(key.value, key.leftValue, amount);
        const double leftTime = key.leftTime.as(unit);
        const double m = slope(fn.time(i - 1).as(unit), fn.value(i - 1), leftTime, key.leftValue);
        return lerp(key.value, lineThrough(t, leftTime, key.leftValue, m), amount);
    }
    const unsigned int i = rightNeighborIndex(fn.object(), key.rightTime);
    if (i >= fn.numKeys())
        return lerp(key.value, key.rightValue, amount);
    const double rightTime = key.rightTime.as(unit);
    const double m = slope(fn.time(i).as(unit), fn.value(i), rightTime, key.rightValue);
    return lerp(key.value, lineThrough(t, rightTime, key.rightValue, m), amount);
}

} // namespace

bool InfinityFrame::isLeft() const { return nearTime > farTime || (nearTime == farTime && !(time < nearTime)); }

void InfinityWorldSpace::prepare(NodeKeysList& nodes)
{
    fObjects.clear();
    for (NodeKeys& node : nodes) {
        InfinityObject object(node);
        std::set<TimeTriple> known;
        for (PlugKeys& plug : node.plugs)
            for (CurveKeys& curve : plug.curves)
                if (isTransformCurve(curve.curve))
                    addCurveFrames(object, known, curve);
        if (!object.frames.empty())
            object.readSpace();
        fObjects.push_back(std::move(object));
    }
}

// x above 0 carries the motion on from the left, x at or below 0 from the
// right; plain channels follow the line through their run's neighbours.
void InfinityWorldSpace::blend(double x, MAnimCurveChange* change)
{
    const double amount = std::fabs(x);
    const bool fromLeft = x > 0.0;
    const MTime::Unit unit = MTime::uiUnit();
    for (InfinityObject& object : fObjects) {
        for (InfinityFrame& frame : object.frames) {
            if (frame.isLeft() != fromLeft)
                continue;
            const MDGContext atTime(frame.time);
            const MMatrix world = object.reader.worldMatrix(atTime);
            const MMatrix parentInverse = object.reader.parentInverseMatrix(atTime);
            // One more step of the motion from far to near.
            const MMatrix extended = frame.nearTime == frame.farTime
                                         ? frame.worldAtNear
                                         : frame.worldAtNear * frame.worldAtFar.inverse() * frame.worldAtNear;
            blendPose(world * parentInverse, extended * parentInverse, amount, object.space, frame);
        }
        setEachKeyOf(*object.source, change,
                     [&](MFnAnimCurve& fn, const KeyInfo& key, bool transform, const MString& name) {
                         if (!transform) {
                             const double t = key.time.as(unit);
                             const double leftTime = key.leftTime.as(unit);
                             const double rightTime = key.rightTime.as(unit);
                             const double m = slope(leftTime, key.leftValue, rightTime, key.rightValue);
                             const double line = fromLeft ? lineThrough(t, leftTime, key.leftValue, m)
                                                          : lineThrough(t, rightTime, key.rightValue, m);
                             return lerp(key.value, line, amount);
                         }
                         if (const InfinityFrame* frame = object.findFrame({key.time, fromLeft}))
                             return channelValue(name, *frame, lerp(key.leftValue, key.rightValue, amount));
                         return lineBeyondNeighbor(fn, key, x, amount);
                     });
    }
}

} // namespace KeyBlending
