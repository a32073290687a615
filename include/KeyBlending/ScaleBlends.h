#pragma once
#include "KeyBlending/NeighborBlends.h"

class MAnimCurveChange;

// Blends that scale key values about a pivot: x = 0 keeps a key, -1 puts it
// on the pivot, 1 doubles its distance from the pivot.
namespace KeyBlending {

// Scale From Average (12): the pivot is the middle of each curve's extremes.
class ScaleFromAverage
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;
};

// Scale From Frame (13): the curve's values at the two frame times.
class ScaleFromFrame
{
public:
    void prepare(const NodeKeysList& nodes, const MTime& start, const MTime& end);
    void blend(double x, MAnimCurveChange* change) const;
};

void scaleFromNeighborLeft(NodeKeysList& nodes, double x, MAnimCurveChange* change);
void scaleFromNeighborRight(NodeKeysList& nodes, double x, MAnimCurveChange* change);

} // namespace KeyBlending
