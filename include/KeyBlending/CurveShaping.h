#pragma once
#include "KeyBlending/NeighborBlends.h"

#include <maya/MObject.h>

#include <cstdint>
#include <vector>
#include <maya/MApiNamespace.h>

// Blends that change the character of a stretch of curve rather than a
// key's place.
namespace KeyBlending {

// Infinity (3): each run carries on the straight motion of the other side.
class Infinity
{
public:
    void prepare(NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;

private:
    // The straight line a run is drawn toward, and the run's keys as
    // collected (times in the UI unit).
    struct Line
    {
        bool valid = false;
        double value = 0.0;
        double time = 0.0;
        double slope = 0.0;
        std::vector<std::uint32_t> indices;
        std::vector<double> values;
        std::vector<double> times;
    };
    struct CurveEntry
    {
        const CollectAnimation::CurveKeys* curve = nullptr; // null: no keys
        std::vector<Line> before; // lines from after each run, for x <= 0
        std::vector<Line> after;  // lines from before each run, for x > 0
    };
    using NodeEntry = std::vector<CurveEntry>;

    static CurveEntry linesOf(const CollectAnimation::CurveKeys& curve);

    std::vector<NodeEntry> fNodes;
};

// Noise Wave (17): alternating waves above 0, fixed noise below.
class NoiseWave
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Key
    {
        std::uint32_t index = 0;
        double value = 0.0;
        double noise = 0.0;
        std::int32_t sign = 0;
    };
    struct Curve
    {
        MObject curve;
        double range = 0.0;
        std::vector<Key> keys;
    };

    std::vector<Curve> fCurves;
};

// Smooth Rough (18): toward or away from the line through each key's
// neighbours on the curve.
class SmoothRough
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Key
    {
        std::uint32_t index = 0;
        double value = 0.0;
        double line = 0.0;
    };
    struct Curve
    {
        MObject curve;
        std::vector<Key> keys;
    };

    std::vector<Curve> fCurves;
};

// Gap Smoother (19): spreads a run's dominating jump over the run.
class GapSmoother
{
public:
    void prepare(const NodeKeysList& nodes);
    void blend(double x, MAnimCurveChange* change) const;

private:
    struct Key
    {
        std::uint32_t index = 0;
        double value = 0.0;
        double u = 0.0;        // place in the run's span, 0 to 1
        bool afterGap = false; // behind the dominating gap
    };
    struct Gap
    {
        double base = 0.0;  // the run's left neighbour value
        double delta = 0.0; // change from left to right neighbour
        double ratio = 0.0; // the gap's share of delta
        std::vector<Key> keys;
    };
    struct Curve
    {
        MObject curve;
        std::vector<Gap> gaps;
    };

    std::vector<Curve> fCurves;
};

// Buffer (21): toward the buffer curve, or as far the other way.
void prepareBuffer(NodeKeysList& nodes);
void buffer(NodeKeysList& nodes, double x, MAnimCurveChange* change);

} // namespace KeyBlending
