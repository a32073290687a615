#pragma once
#include "KeyBlending/NeighborBlends.h"

class MAnimCurveChange;

// Blends of whole poses through world matrices, so that an object under a
// moving parent travels between its neighbours' world poses.
namespace KeyBlending {

// World Space (4): Tween Machine of the world pose.
class WorldSpace
{
public:
    virtual ~WorldSpace() = default;

    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);
};

// Neighbors World Space (5): toward the left or right neighbour's world pose.
class NeighborsWorldSpace : public WorldSpace
{
public:
    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);
};

// Frame World Space (6): the neighbours are the two frame times.
class FrameWorldSpace : public NeighborsWorldSpace
{
public:
    void prepare(NodeKeysList& nodes, const MTime& start, const MTime& end);
};

// Infinity World Space (7): the world motion carried on from the far side.
class InfinityWorldSpace
{
public:
    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change);
};

} // namespace KeyBlending
