#include "KeyBlending/WorldSpace.h"

#include "KeyBlending/KeyWalk.h"
#include "Utils/Arithmetic.h"

#include <maya/MDGContext.h>
#include <maya/MFnAnimCurve.h>

#include <cmath>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::KeyInfo;
using CollectAnimation::NodeKeys;
using CollectAnimation::PlugKeys;

const WorldFrame* WorldSpace::findFrame(const WorldObject& object, const KeyInfo& key) const
{
    return object.findFrame({key.time, key.leftTime, key.rightTime});
}

// One frame record per distinct triple of key times on the transform curves;
// the world matrices are read here, once, and never per key or per step.
void WorldSpace::prepare(NodeKeysList& nodes)
{
    fObjects.clear();
    for (NodeKeys& node : nodes) {
        WorldObject object(node);
        for (PlugKeys& plug : node.plugs)
            for (CurveKeys& curve : plug.curves) {
                if (!isTransformCurve(curve.curve))
                    continue;
                for (const KeyInfo& key : curve.keys) {
                    if (!object.firstFrame.emplace(TimeTriple{key.time, key.leftTime, key.rightTime},
                                                   object.frames.size())
                             .second)
                        continue;
                    WorldFrame frame;
                    frame.time = key.time;
                    frame.leftTime = key.leftTime;
                    frame.rightTime = key.rightTime;
                    frame.worldAtTime = object.reader.worldMatrix(MDGContext(key.time));
                    frame.worldAtLeft = object.reader.worldMatrix(MDGContext(key.leftTime));
                    frame.worldAtRight = object.reader.worldMatrix(MDGContext(key.rightTime));
                    object.frames.push_back(frame);
                }
            }
        if (!object.frames.empty())
            object.readSpace();
        fObjects.push_back(std::move(object));
    }
}

template <typename Fallback>
void WorldSpace::setKeys(WorldObject& object, MAnimCurveChange* change, Fallback&& fallback) const
{
    setEachKeyOf(*object.source, change,
                 [&](MFnAnimCurve&, const KeyInfo& key, bool transform, const MString& name) {
                     const double plain = fallback(key);
                     const WorldFrame* frame = transform ? findFrame(object, key) : nullptr;
                     return frame ? channelValue(name, *frame, plain) : plain;
                 });
}

// The pose is blended in the parent's space at the key's own time, so a
// moving parent is cancelled: the world path runs between the neighbours'
// world poses whatever the parent does in between.
void WorldSpace::blend(double x, MAnimCurveChange* change)
{
    const double t = remap(x, -1.0, 1.0, 0.0, 1.0);
    for (WorldObject& object : fObjects) {
        for (WorldFrame& frame : object.frames) {
            const MMatrix parentInverse = object.reader.parentInverseMatrix(MDGContext(frame.time));
            blendPose(frame.worldAtLeft * parentInverse, frame.worldAtRight * parentInverse, t, object.space, frame);
        }
        setKeys(object, change, [t](const KeyInfo& key) { return lerp(key.leftValue, key.rightValue, t); });
    }
}

// The neighbours' values come from the curves, at the neighbours' times.
void NeighborsWorldSpace::prepare(NodeKeysList& nodes)
{
    WorldSpace::prepare(nodes);
    forEachCurve(nodes, [](CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        for (KeyInfo& key : curve.keys) {
            key.leftValue = fn.evaluate(key.leftTime);
            key.rightValue = fn.evaluate(key.rightTime);
        }
    });
}

// The key's pose is read from the scene at each step, as the drag left it.
void NeighborsWorldSpace::blendFrame(WorldObject& object, WorldFrame& frame, double amount, bool toLeft)
{
    const MDGContext atTime(frame.time);
    const MMatrix world = object.reader.worldMatrix(atTime);
    const MMatrix& neighbor = toLeft ? frame.worldAtLeft : frame.worldAtRight;
    const MMatrix parentInverse = object.reader.parentInverseMatrix(atTime);
    blendPose(world * parentInverse, neighbor * parentInverse, amount, object.space, frame);
}

void NeighborsWorldSpace::blend(double x, MAnimCurveChange* change)
{
    for (WorldObject& object : fObjects) {
        for (WorldFrame& frame : object.frames)
            blendFrame(object, frame, std::fabs(x), x < 0.0);
        setKeys(object, change, [x](const KeyInfo& key) { return neighborsValue(key, x); });
    }
}

const WorldFrame* FrameWorldSpace::findFrame(const WorldObject& object, const KeyInfo& key) const
{
    return object.findFrame({key.time, fStartTime, fEndTime});
}

void FrameWorldSpace::prepare(NodeKeysList& nodes, const MTime& start, const MTime& end)
{
    prepareFrame(nodes, start, end);
    WorldSpace::prepare(nodes);
    fStartTime = start;
    fEndTime = end;
    for (WorldObject& object : fObjects) {
        // With the frame times as every record's neighbours, a key's record is
        // the first one of its own time.
        object.firstFrame.clear();
        if (object.frames.empty())
            continue;
        const MMatrix worldAtStart = object.reader.worldMatrix(MDGContext(start));
        const MMatrix worldAtEnd = object.reader.worldMatrix(MDGContext(end));
        for (size_t i = 0; i < object.frames.size(); ++i) {
            WorldFrame& frame = object.frames[i];
            frame.leftTime = start;
            frame.rightTime = end;
            frame.worldAtLeft = worldAtStart;
            frame.worldAtRight = worldAtEnd;
            object.firstFrame.emplace(TimeTriple{frame.time, start, end}, i);
        }
    }
}

} // namespace KeyBlending
