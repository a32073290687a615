#include "KeyBlending/NeighborBlends.h"

#include "KeyBlending/KeyWalk.h"
#include "Utils/Arithmetic.h"

#include <maya/MAngle.h>
#include <maya/MFnAnimCurve.h>

#include <algorithm>
#include <cmath>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::KeyInfo;

namespace {

// Where the key lies between its run's neighbours, 0 to 1; empty when the
// neighbours share a time.
std::optional<double> spanFraction(const KeyInfo& key, double minSpan)
{
    const double span = (key.rightTime - key.leftTime).value();
    if (!(span > minSpan))
        return std::nullopt;
    return std::clamp((key.time - key.leftTime).value() / span, 0.0, 1.0);
}

// Scales the weight of one tangent side, keeping its angle.
void scaleTangentWeight(MFnAnimCurve& fn, unsigned int index, double scale, bool inTangent,
                        MAnimCurveChange* change)
{
    MAngle angle;
    double weight = 0.0;
    if (fn.getTangent(index, angle, weight, inTangent))
        fn.setTangent(index, angle, weight * scale, inTangent, change, true);
}

// A lone key takes along every key on the far side of it, read from the curve
// as it stands: toward the right neighbour the earlier keys, toward the left
// one the later keys.
void widenLoneKey(CurveKeys& curve, double x)
{
    MFnAnimCurve fn(curve.curve);
    const unsigned int count = fn.numKeys();
    if (curve.keys.size() != 1 || x == 0.0 || count < 2)
        return;
    const unsigned int i = curve.keys.front().index;
    unsigned int first = 0;
    unsigned int last = count - 1;
    unsigned int left = 0;
    unsigned int right = count - 1;
    if (x > 0.0) {
        last = i;
        right = i + 1 < count ? i + 1 : i;
    } else {
        first = i;
        left = i > 0 ? i - 1 : 0;
    }
    curve.keys.clear();
    for (unsigned int k = first; k <= last; ++k)
        curve.keys.push_back({k, fn.value(k), fn.value(left), fn.value(right), fn.time(k), fn.time(left),
                              fn.time(right)});
}

} // namespace

void neighbors(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    setEachKey(nodes, change,
               [x](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> { return neighborsValue(key, x); });
}

double neighborsValue(const KeyInfo& key, double x)
{
    if (x < 0.0)
        return lerp(key.leftValue, key.value, x + 1.0);
    if (x > 0.0)
        return lerp(key.value, key.rightValue, x);
    return key.value;
}

void prepareFrame(NodeKeysList& nodes, const MTime& start, const MTime& end)
{
    forEachCurve(nodes, [&](CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        const double a = fn.evaluate(start);
        const double b = fn.evaluate(end);
        for (KeyInfo& key : curve.keys) {
            key.leftValue = a;
            key.rightValue = b;
        }
    });
}

void ease(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    // Single precision on purpose: the dead zone and the exponent follow the
    // slider's float value.
    const float s = static_cast<float>(x);
    const float a = std::fabs(s);
    const double p = static_cast<double>(a) * 9.0 + 1.0;
    setEachKey(nodes, change, [&](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        if (a < 0.001f)
            return key.value;
        const std::optional<double> u = spanFraction(key, 0.0);
        if (!u)
            return key.value;
        const double e = s > 0.0f ? 1.0 - std::pow(1.0 - *u, p) : std::pow(*u, p);
        return (key.rightValue - key.leftValue) * e + key.leftValue;
    });
}

void blendToEase(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    const double p = std::fabs(x) * 10.0;
    forEachCurve(nodes, [&](CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        for (const KeyInfo& key : curve.keys) {
            const std::optional<double> u = spanFraction(key, 1e-12);
            if (!u)
                continue;
            const double target = x > 0.0 ? key.rightValue : key.leftValue;
            const double r = x > 0.0 ? std::pow(std::fabs(*u - 1.0), p) : std::pow(*u, p);
            const double newValue = r * (key.value - target) + target;
            fn.setValue(key.index, newValue, change);
            // Fixed tangents keep their angles; their handles shrink with the
            // distance left to travel, so the key keeps its shape near the target.
            if (fn.inTangentType(key.index) == MFnAnimCurve::kTangentFixed
                && std::fabs(target - key.value) >= 1e-20) {
                const double scale = ((target - newValue) / (target - key.value)) * (p + 1.0);
                scaleTangentWeight(fn, key.index, scale, true, change);
                scaleTangentWeight(fn, key.index, scale, false, change);
            }
        }
    });
}

void connectToNeighbors(NodeKeysList& nodes, double x, MAnimCurveChange* change, bool& sideChosen)
{
    const bool widen = !sideChosen && x != 0.0;
    if (widen)
        sideChosen = true;
    forEachCurve(nodes, [&](CurveKeys& curve) {
        if (curve.keys.empty())
            return;
        if (widen)
            widenLoneKey(curve, x);
        MFnAnimCurve fn(curve.curve);
        const std::vector<KeyInfo>& keys = curve.keys;
        // Each run moves as a block until its edge meets the neighbour.
        forEachRun(keys, [&](size_t start, size_t end) {
            const KeyInfo& first = keys[start];
            const KeyInfo& last = keys[end - 1];
            const double offset = x > 0.0 ? (last.rightValue - last.value) * x
                                           : (first.leftValue - first.value) * std::fabs(x);
            for (size_t j = start; j < end; ++j)
                fn.setValue(keys[j].index, keys[j].value + offset, change);
        });
    });
}

void preparePullPush(NodeKeysList& nodes)
{
    forEachCurve(nodes, [](CurveKeys& curve) {
        const auto atCurveEnd = std::find_if(curve.keys.begin(), curve.keys.end(), [](const KeyInfo& key) {
            return key.rightTime == key.time && key.index != 0;
        });
        if (atCurveEnd == curve.keys.end())
            return;
        const KeyInfo end = *atCurveEnd;
        MFnAnimCurve fn(curve.curve);
        const MTime::Unit unit = MTime::uiUnit();
        const double gap = (end.time - fn.time(end.index - 1)).as(unit);
        const MTime beyond(end.time.as(unit) + gap, unit);
        for (KeyInfo& key : curve.keys)
            if (key.leftTime == end.leftTime && key.rightTime == end.rightTime)
                key.rightTime = beyond;
    });
}

void pullPush(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    // Toward the line at x = -1; away from it at half that pace above 0.
    const double amount = x >= 0.0 ? -(x * 0.5) : -x;
    setEachKey(nodes, change, [amount](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        const bool atStart = key.leftTime == key.time && key.rightTime != key.time;
        const bool atEnd = key.rightTime == key.time && key.leftTime != key.time;
        double line = (key.leftValue + key.rightValue) * 0.5;
        if (!atStart && !atEnd) {
            if (key.leftValue == key.rightValue && key.value == key.leftValue)
                return std::nullopt;
            const std::optional<double> u = spanFraction(key, 0.0);
            if (!u)
                return std::nullopt;
            line = lerp(key.leftValue, key.rightValue, *u);
        }
        if (line == key.value)
            return std::nullopt;
        return lerp(key.value, line, amount);
    });
}

} // namespace KeyBlending
