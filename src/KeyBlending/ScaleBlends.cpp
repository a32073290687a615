#include "KeyBlending/ScaleBlends.h"

#include "KeyBlending/KeyWalk.h"
#include "Snapshot/Manager.h"
#include "Utils/Arithmetic.h"

#include <maya/MFnAnimCurve.h>

#include <algorithm>
#include <limits>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::KeyInfo;

namespace {

std::vector<ScaledKey> scaledKeys(const CurveKeys& curve)
{
    std::vector<ScaledKey> keys;
    keys.reserve(curve.keys.size());
    for (const KeyInfo& key : curve.keys)
        keys.push_back({key.index, key.value});
    return keys;
}

// The pivot records are made once per curve that has keys.
template <typename Visit>
void forEachCurveWithKeys(const NodeKeysList& nodes, Visit&& visit)
{
    forEachCurve(nodes, [&visit](const CurveKeys& curve) {
        if (!curve.keys.empty())
            visit(curve);
    });
}

// Keys whose leftValue holds no default stay where they are.
bool hasDefault(const KeyInfo& key) { return key.leftValue == key.leftValue; }

} // namespace

void ScaleFromAverage::prepare(const NodeKeysList& nodes)
{
    fCurves.clear();
    forEachCurveWithKeys(nodes, [this](const CurveKeys& curve) {
        const auto [lowest, highest] = std::minmax_element(
            curve.keys.begin(), curve.keys.end(), [](const KeyInfo& a, const KeyInfo& b) { return a.value < b.value; });
        double lo = lowest->value;
        double hi = highest->value;
        // A lone key scales about the middle of its whole curve.
        if (curve.keys.size() < 2) {
            MFnAnimCurve fn(curve.curve);
            const unsigned int count = fn.numKeys();
            for (unsigned int i = 0; i < count; ++i) {
                lo = std::min(lo, fn.value(i));
                hi = std::max(hi, fn.value(i));
            }
        }
        fCurves.push_back({curve.curve, (lo + hi) * 0.5, scaledKeys(curve)});
    });
}

void ScaleFromAverage::blend(double x, MAnimCurveChange* change) const
{
    for (const Curve& curve : fCurves) {
        MFnAnimCurve fn(curve.curve);
        for (const ScaledKey& key : curve.keys)
            fn.setValue(key.index, lerp(curve.pivot, key.value, x + 1.0), change);
    }
}

void ScaleFromFrame::prepare(const NodeKeysList& nodes, const MTime& start, const MTime& end)
{
    fCurves.clear();
    forEachCurveWithKeys(nodes, [&](const CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        fCurves.push_back({curve.curve, fn.evaluate(start), fn.evaluate(end), scaledKeys(curve)});
    });
}

// The pivot changes sides at x = 0, where both give the key's own value.
void ScaleFromFrame::blend(double x, MAnimCurveChange* change) const
{
    for (const Curve& curve : fCurves) {
        const double pivot = x <= 0.0 ? curve.startValue : curve.endValue;
        MFnAnimCurve fn(curve.curve);
        for (const ScaledKey& key : curve.keys)
            fn.setValue(key.index, (key.value - pivot) * (x + 1.0) + pivot, change);
    }
}

void scaleFromNeighborLeft(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    setEachKey(nodes, change, [x](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        return (key.value - key.leftValue) * (x + 1.0) + key.leftValue;
    });
}

void scaleFromNeighborRight(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    setEachKey(nodes, change, [x](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        return (key.value - key.rightValue) * (x + 1.0) + key.rightValue;
    });
}

void prepareDefaults(NodeKeysList& nodes, Snapshot::Manager& defaults)
{
    defaults.readFile();
    for (CollectAnimation::NodeKeys& node : nodes)
        for (CollectAnimation::PlugKeys& plug : node.plugs) {
            const double value =
                defaults.defaultValue(plug.plug).value_or(std::numeric_limits<double>::quiet_NaN());
            for (CurveKeys& curve : plug.curves)
                for (KeyInfo& key : curve.keys)
                    key.leftValue = value;
        }
}

void blendToDefault(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    setEachKey(nodes, change, [x](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        if (!hasDefault(key))
            return std::nullopt;
        return (key.value - key.leftValue) * (1.0 - x) + key.leftValue;
    });
}

void scaleFromDefault(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    setEachKey(nodes, change, [x](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        if (!hasDefault(key))
            return std::nullopt;
        return (key.value - key.leftValue) * (x + 1.0) + key.leftValue;
    });
}

} // namespace KeyBlending
