#pragma once
#include "KeyBlending/InfinityWorldSpace.h"
#include "KeyBlending/NeighborBlends.h"
#include "KeyBlending/WorldPose.h"

#include <maya/MMatrix.h>
#include <maya/MTime.h>

#include <vector>
#include <maya/MApiNamespace.h>

// Blends of whole poses through world matrices, so that an object under a
// moving parent travels between its neighbours' world poses.
namespace KeyBlending {

// The world poses around the keys that share one triple of times, read once
// at the press, and the pose of the last blend step.
struct WorldFrame : PoseChannels
{
    MTime time;
    MTime leftTime;
    MTime rightTime;
    MMatrix worldAtTime;
    MMatrix worldAtLeft;
    MMatrix worldAtRight;
};

using WorldObject = ObjectRecord<WorldFrame, TimeTriple>;

// World Space (4): Tween Machine of the world pose.
class WorldSpace
{
public:
    virtual ~WorldSpace() = default;

    // The frame record that holds the pose of key, or null.
    virtual const WorldFrame* findFrame(const WorldObject& object, const CollectAnimation::KeyInfo& key) const;

    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);

protected:
    // Writes each key of object: its channel of the frame's pose on transform
    // curves, fallback(key) elsewhere.
    template <typename Fallback>
    void setKeys(WorldObject& object, MAnimCurveChange* change, Fallback&& fallback) const;

    std::vector<WorldObject> fObjects;
};

// Neighbors World Space (5): toward the left or right neighbour's world pose.
class NeighborsWorldSpace : public WorldSpace
{
public:
    // From the pose at the key's time toward a neighbour's pose, by amount.
    virtual void blendFrame(WorldObject& object, WorldFrame& frame, double amount, bool toLeft);

    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);
};

// Frame World Space (6): the neighbours are the two frame times.
class FrameWorldSpace : public NeighborsWorldSpace
{
public:
    // By the key's time alone: every record has the frame times as neighbours.
    const WorldFrame* findFrame(const WorldObject& object, const CollectAnimation::KeyInfo& key) const override;

    void prepare(NodeKeysList& nodes, const MTime& start, const MTime& end);

private:
    MTime fStartTime;
    MTime fEndTime;
};

} // namespace KeyBlending
