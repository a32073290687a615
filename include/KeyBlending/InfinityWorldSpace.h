#pragma once
#include "KeyBlending/NeighborBlends.h"
#include "KeyBlending/WorldPose.h"

#include <maya/MMatrix.h>
#include <maya/MTime.h>

#include <utility>
#include <vector>
#include <maya/MApiNamespace.h>

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
    // A key finds its record by its time and the side of the step.
    std::vector<ObjectRecord<InfinityFrame, std::pair<MTime, bool>>> fObjects;
};

} // namespace KeyBlending
