#pragma once
#include "KeyBlending/NeighborBlends.h"

#include <maya/MObject.h>

#include <vector>
#include <maya/MApiNamespace.h>

namespace Snapshot {
class Manager;
}

// Blends that scale key values about a pivot: x = 0 keeps a key, -1 puts it
// on the pivot, 1 doubles its distance from the pivot.
namespace KeyBlending {

// A key's index and its value at collection.
struct ScaledKey
{
    unsigned int index = 0;
    double value = 0.0;
};

// Scale From Average (12): the pivot is the middle of each curve's extremes.
class ScaleFromAverage
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Curve
    {
        MObject curve;
        double pivot = 0.0;
        std::vector<ScaledKey> keys;
    };
    std::vector<Curve> fCurves;
};

// Scale From Frame (13): the curve's values at the two frame times.
class ScaleFromFrame
{
public:
    void prepare(const NodeKeysList& nodes, const MTime& start, const MTime& end);
    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Curve
    {
        MObject curve;
        double startValue = 0.0;
        double endValue = 0.0;
        std::vector<ScaledKey> keys;
    };
    std::vector<Curve> fCurves;
};

void scaleFromNeighborLeft(NodeKeysList& nodes, double x, MAnimCurveChange* change);
void scaleFromNeighborRight(NodeKeysList& nodes, double x, MAnimCurveChange* change);

// Default (9) and Scale From Default (11): each key's leftValue becomes the
// default of its plug, or a quiet NaN where the plug has none.
void prepareDefaults(NodeKeysList& nodes, Snapshot::Manager& defaults);
// Reaches the default at x = 1.
void blendToDefault(NodeKeysList& nodes, double x, MAnimCurveChange* change);
// Reaches the default at x = -1.
void scaleFromDefault(NodeKeysList& nodes, double x, MAnimCurveChange* change);

} // namespace KeyBlending
