#include "KeyBlending/CurveShaping.h"

#include "KeyBlending/KeyWalk.h"
#include "Utils/Arithmetic.h"
#include "Utils/Nodes/Node.h"

#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MString.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>
#include <random>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::KeyInfo;

namespace {

double uiFrames(const MTime& time) { return time.as(MTime::uiUnit()); }

// The extent of the given values, as |hi - lo|.
template <typename Values>
double spread(const Values& values)
{
    const auto [lo, hi] = std::minmax_element(values.begin(), values.end());
    return std::fabs(*hi - *lo);
}

} // namespace

// --- Infinity ----------------------------------------------------------------

void Infinity::prepare(NodeKeysList& nodes)
{
    fNodes.clear();
    for (CollectAnimation::NodeKeys& node : nodes) {
        NodeEntry& entry = fNodes.emplace_back();
        for (CollectAnimation::PlugKeys& plug : node.plugs)
            for (const CurveKeys& curve : plug.curves)
                entry.push_back(curve.keys.empty() ? CurveEntry{} : linesOf(curve));
    }
}

Infinity::CurveEntry Infinity::linesOf(const CurveKeys& curve)
{
    MFnAnimCurve fn(curve.curve);
    const unsigned int n = fn.numKeys();
    // The line through key `near` and the next key away from the run, or
    // flat at `near` when there is none.
    const auto lineFrom = [&fn](unsigned int near, std::optional<unsigned int> far) {
        Line line;
        line.valid = true;
        line.value = fn.value(near);
        line.time = uiFrames(fn.time(near));
        if (far)
            line.slope = slope(uiFrames(fn.time(*far)), fn.value(*far), line.time, line.value);
        return line;
    };
    CurveEntry entry{&curve, {}, {}};
    const std::vector<KeyInfo>& keys = curve.keys;
    // Runs of consecutive keys [start, k).
    size_t start = 0;
    for (size_t k = 1; k <= keys.size(); ++k) {
        if (k < keys.size() && keys[k].index == keys[k - 1].index + 1)
            continue;
        const unsigned int first = keys[start].index;
        const unsigned int last = keys[k - 1].index;
        Line before; // invalid when the run ends at the last key
        if (last + 2 < n)
            before = lineFrom(last + 1, last + 2);
        else if (last + 1 < n)
            before = lineFrom(last + 1, std::nullopt);
        // A run from key 0 or 1 has no line before it: it holds key 0's value.
        Line after = first >= 2 ? lineFrom(first - 1, first - 2) : lineFrom(0, std::nullopt);
        for (size_t j = start; j < k; ++j) {
            for (Line* line : {&before, &after}) {
                line->indices.push_back(keys[j].index);
                line->values.push_back(keys[j].value);
                line->times.push_back(uiFrames(keys[j].time));
            }
        }
        entry.before.push_back(std::move(before));
        entry.after.push_back(std::move(after));
        start = k;
    }
    return entry;
}

void Infinity::blend(double x, MAnimCurveChange* change) const
{
    const double amount = std::fabs(x);
    for (const NodeEntry& node : fNodes) {
        for (const CurveEntry& entry : node) {
            if (!entry.curve)
                continue;
            MFnAnimCurve fn(entry.curve->curve);
            for (const Line& line : x > 0.0 ? entry.after : entry.before) {
                if (!line.valid)
                    continue;
                for (size_t j = 0; j < line.indices.size(); ++j) {
                    const double onLine = lineThrough(line.times[j], line.time, line.value, line.slope);
                    fn.setValue(line.indices[j], lerp(line.values[j], onLine, amount), change);
                }
            }
        }
    }
}

// --- Noise Wave ----------------------------------------------------------------

void NoiseWave::prepare(const NodeKeysList& nodes)
{
    fCurves.clear();
    // A new seed for each drag; one table of numbers within it, so the drag
    // can go back and forth repeatably.
    std::random_device source;
    std::mt19937 generator(source());
    forEachCurve(nodes, [&](const CurveKeys& curve) {
        if (curve.keys.empty())
            return;
        std::vector<double> values;
        for (const KeyInfo& key : curve.keys)
            values.push_back(key.value);
        double range = spread(values);
        if (range == 0.0) {
            // Keys of one value take the size of the whole curve.
            MFnAnimCurve fn(curve.curve);
            for (unsigned int i = 0; i < fn.numKeys(); ++i)
                values.push_back(fn.value(i));
            range = spread(values);
            if (range == 0.0)
                range = 1.0;
        }
        Curve& record = fCurves.emplace_back(Curve{curve.curve, range, {}});
        std::int32_t sign = -1;
        for (const KeyInfo& key : curve.keys) {
            const double r = std::generate_canonical<double, 53>(generator);
            record.keys.push_back({key.index, key.value, (r * 2.0 - 1.0) * range, sign});
            sign = -sign;
        }
    });
}

void NoiseWave::blend(double x, MAnimCurveChange* change) const
{
    // At rest the keys keep what the last step wrote.
    if (x == 0.0)
        return;
    for (const Curve& curve : fCurves) {
        MFnAnimCurve fn(curve.curve);
        for (const Key& key : curve.keys) {
            const double newValue = x > 0.0 ? key.sign * curve.range * x + key.value
                                            : std::fabs(x) * key.noise + key.value;
            fn.setValue(key.index, newValue, change);
        }
    }
}

// --- Smooth Rough ----------------------------------------------------------------

void SmoothRough::prepare(const NodeKeysList& nodes)
{
    fCurves.clear();
    forEachCurve(nodes, [&](const CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        const unsigned int n = fn.numKeys();
        Curve record{curve.curve, {}};
        for (const KeyInfo& key : curve.keys) {
            const unsigned int i = key.index;
            double line = 0.0;
            if (i > 0 && i + 1 < n) {
                // The line through the curve's own neighbours of the key.
                const double tA = uiFrames(fn.time(i - 1));
                const double tB = uiFrames(fn.time(i + 1));
                if (tB - tA == 0.0)
                    continue;
                line = (fn.value(i + 1) - fn.value(i - 1)) / (tB - tA) * (uiFrames(key.time) - tA) + fn.value(i - 1);
            } else if (n < 2) {
                continue;
            } else {
                // An end key: the middle of it and its only neighbour.
                const unsigned int other = i == 0 ? 1 : n - 2;
                line = (fn.value(i) + fn.value(other)) * 0.5;
            }
            record.keys.push_back({i, key.value, line});
        }
        if (!record.keys.empty())
            fCurves.push_back(std::move(record));
    });
}

void SmoothRough::blend(double x, MAnimCurveChange* change) const
{
    // -1 halves each key's distance from its line, 1 doubles it.
    const double f = x <= 0.0 ? 1.0 - std::fabs(x) * 0.5 : x + 1.0;
    for (const Curve& curve : fCurves) {
        MFnAnimCurve fn(curve.curve);
        for (const Key& key : curve.keys)
            fn.setValue(key.index, (key.value - key.line) * f + key.line, change);
    }
}

// --- Gap Smoother ----------------------------------------------------------------

void GapSmoother::prepare(const NodeKeysList& nodes)
{
    // A gap dominates when the next largest is at most this share of it.
    constexpr double dominance = 0.8;
    fCurves.clear();
    forEachCurve(nodes, [&](const CurveKeys& curve) {
        const std::vector<KeyInfo>& keys = curve.keys;
        if (keys.size() < 2)
            return;
        Curve record{curve.curve, {}};
        forEachRun(keys, [&](size_t s, size_t e) {
            if (e - s < 2)
                return;
            const KeyInfo& first = keys[s];
            const KeyInfo& last = keys[e - 1];
            const double base = first.leftValue;
            const double delta = last.rightValue - base;
            const double span = (last.rightTime - first.leftTime).value();
            if (!(std::fabs(delta) > 0.0) || !(span > 0.0))
                return;
            // The steps along the run, from the left neighbour through each key
            // to the right neighbour.
            std::vector<double> steps{std::fabs(first.value - base)};
            for (size_t i = s + 1; i < e; ++i)
                steps.push_back(std::fabs(keys[i].value - keys[i - 1].value));
            steps.push_back(std::fabs(last.rightValue - last.value));
            std::vector<double> sorted = steps;
            std::sort(sorted.begin(), sorted.end(), std::greater<double>());
            if (sorted[1] > dominance * sorted[0])
                return;
            const size_t g = static_cast<size_t>(std::max_element(steps.begin(), steps.end()) - steps.begin());
            Gap gap{base, delta, sorted[0] / std::fabs(delta), {}};
            for (size_t p = 0; p < e - s; ++p) {
                const KeyInfo& key = keys[s + p];
                const double u = std::clamp((key.time - first.leftTime).value() / span, 0.0, 1.0);
                gap.keys.push_back({key.index, key.value, u, p >= g});
            }
            record.gaps.push_back(std::move(gap));
        });
        if (!record.gaps.empty())
            fCurves.push_back(std::move(record));
    });
}

void GapSmoother::blend(double x, MAnimCurveChange* change) const
{
    const double a = std::fabs(x);
    const double p = 2.0 * a + 1.0;
    for (const Curve& curve : fCurves) {
        MFnAnimCurve fn(curve.curve);
        for (const Gap& gap : curve.gaps) {
            for (const Key& key : gap.keys) {
                // A smooth step from 0 to 2 over the run.
                const double s = key.u <= 0.5 ? std::pow(2.0 * key.u, p) : 2.0 - std::pow(std::fabs(2.0 * key.u - 2.0), p);
                const double eased = gap.delta * 0.5 * s * a;
                const double target = key.afterGap ? eased + (1.0 - a) * gap.delta + gap.base : eased + gap.base;
                const double from = key.afterGap ? gap.base + gap.delta : gap.base;
                fn.setValue(key.index, (target - from) * gap.ratio + key.value, change);
            }
        }
    }
}

// --- Buffer ----------------------------------------------------------------------

void prepareBuffer(NodeKeysList& nodes)
{
    MString swap("bufferCurve -swap");
    std::vector<MString> names;
    forEachCurve(nodes, [&](const CurveKeys& curve) {
        const MString name = nodeDisplayName(curve.curve);
        if (std::find(names.begin(), names.end(), name) != names.end())
            return;
        names.push_back(name);
        swap += MString(" \"") + name + "\"";
    });
    if (names.empty())
        return;
    // The buffer curves are read in place: swapped in, evaluated, swapped back.
    const bool swapped = MGlobal::executeCommand(swap, false, false);
    forEachCurve(nodes, [](CurveKeys& curve) {
        MFnAnimCurve fn(curve.curve);
        for (KeyInfo& key : curve.keys)
            key.leftValue = fn.evaluate(key.time);
    });
    if (swapped)
        MGlobal::executeCommand(swap, false, false);
}

void buffer(NodeKeysList& nodes, double x, MAnimCurveChange* change)
{
    const double amount = std::fabs(x);
    setEachKey(nodes, change, [&](MFnAnimCurve&, const KeyInfo& key) -> std::optional<double> {
        const double target = x > 0.0 ? key.leftValue : 2.0 * key.value - key.leftValue;
        return lerp(key.value, target, amount);
    });
}

} // namespace KeyBlending
