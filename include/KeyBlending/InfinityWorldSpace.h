#pragma once
#include "KeyBlending/NeighborBlends.h"
#include "KeyBlending/WorldPose.h"

#include <maya/MMatrix.h>
#include <maya/MTime.h>

#include <vector>

class MAnimCurveChange;

namespace KeyBlending {

// The world motion next to a run, on one side of a key: the key beside the
// run and the one beyond it, with their world poses.
struct InfinityFrame : PoseChannels
{
    MTime time;
    MTime nearTime;
    MTime farTime;
    MMatrix worldAtNear;
    MMatrix worldAtFar;

    // Left of the key when the motion runs from a later key toward an
    // earlier one, or when it stands still at or before the key.
    bool isLeft() const;
};

// Infinity World Space (7): the world motion carried on from the far side.
class InfinityWorldSpace
{
public:
    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);

private:
    std::vector<ObjectRecord<InfinityFrame>> fObjects;
};

} // namespace KeyBlending
