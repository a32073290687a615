#pragma once
#include "KeyBlending/NeighborBlends.h"

class MAnimCurveChange;

// Blends that change the character of a stretch of curve rather than a
// key's place.
namespace KeyBlending {

// Infinity (3): each run carries on the straight motion of the other side.
class Infinity
{
public:
    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;
};

// Noise Wave (17): alternating waves above 0, fixed noise below.
class NoiseWave
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;
};

// Smooth Rough (18): toward or away from the line through each key's
// neighbours on the curve.
class SmoothRough
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;
};

// Gap Smoother (19): spreads a run's dominating jump over the run.
class GapSmoother
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;
};

// Buffer (21): toward the buffer curve, or as far the other way.
void prepareBuffer(NodeKeysList& nodes);
void buffer(NodeKeysList& nodes, double x, MAnimCurveChange* change);

} // namespace KeyBlending
