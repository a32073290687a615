#include "KeyBlending/SimplifyBakeKeys.h"

#include "CollectAnimation/DataBase.h"
#include "KeyBlending/KeyWalk.h"
#include "Utils/Arithmetic.h"
#include "Utils/Nodes/AnimCurve.h"
#include "Utils/TimeControl.h"

#include <maya/MAnimControl.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

#include <algorithm>
#include <cmath>

namespace KeyBlending {

using CollectAnimation::CurveKeys;
using CollectAnimation::CurveRecord;
using CollectAnimation::KeyInfo;

namespace {

KeyInfo withSides(const CurveRecord& curve, unsigned int index, double value, const MTime& time, unsigned int left,
                  unsigned int right)
{
    const CollectAnimation::KeyRecord& l = curve.keys[left];
    const CollectAnimation::KeyRecord& r = curve.keys[right];
    return KeyInfo{index, value, l.value, r.value, time, l.time, r.time};
}

// A lone key looks forward to the next key, so that its gap can be filled;
// the last key looks back instead.
KeyInfo loneKey(const CurveRecord& curve, unsigned int index, double value, const MTime& time)
{
    const unsigned int last = static_cast<unsigned int>(curve.keys.size()) - 1;
    if (index == last)
        return withSides(curve, index, value, time, index == 0 ? 0 : index - 1, index);
    return withSides(curve, index, value, time, index, index + 1);
}

// The curve at the current time, between the keys around it.
KeyInfo spanAroundNow(const CurveRecord& curve)
{
    MFnAnimCurve fn(curve.curve);
    const MTime now = MAnimControl::currentTime();
    const double value = fn.evaluate(now);
    unsigned int index = 0;
    if (fn.find(now, index))
        return loneKey(curve, index, value, now);
    const unsigned int left = leftNeighborIndex(curve.curve, now);
    return withSides(curve, left, value, now, left, rightNeighborIndex(curve.curve, now));
}

} // namespace

CurveKeys SimplifyBakeKeys::keysToSimplify(const CurveRecord& curve, bool rangeActive, const MTime& start,
                                           const MTime& end)
{
    CurveKeys result{curve.curve, {}};
    if (curve.keys.empty())
        return result;
    if (rangeActive) {
        const std::vector<unsigned int> indices = keysInRange(curve.curve, start, end);
        if (!indices.empty() && indices.back() >= curve.keys.size())
            return result;
        if (indices.size() > 1) {
            CollectAnimation::DataBase::appendRun(curve, indices.front(), indices.back(), result);
            return result;
        }
        if (indices.size() == 1) {
            const CollectAnimation::KeyRecord& key = curve.keys[indices.front()];
            result.keys.push_back(loneKey(curve, key.index, key.value, key.time));
            return result;
        }
    }
    result.keys.push_back(spanAroundNow(curve));
    return result;
}

void SimplifyBakeKeys::prepare(CollectAnimation::DataBase& data)
{
    fRemovals.clear();
    fGaps.clear();
    // What the animator has selected now, as the slider sees it.
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    MTime start, end;
    const bool rangeActive = timeSliderRange(start, end);
    if (hasAnimCurves(selection)) {
        // Keys picked in the graph editor.
        data.collect(selection);
    } else {
        std::vector<CollectAnimation::NodeKeys>& nodes = data.nodes();
        nodes.clear();
        for (const CollectAnimation::NodeRecord& nodeRecord : data.Ctx::collect(selection)) {
            CollectAnimation::NodeKeys nodeKeys{nodeRecord.node, nodeRecord.reserved, {}};
            for (const CollectAnimation::PlugRecord& plugRecord : nodeRecord.plugs) {
                CollectAnimation::PlugKeys plugKeys{plugRecord.plug, {}};
                for (const CurveRecord& curve : plugRecord.curves) {
                    CurveKeys keys = keysToSimplify(curve, rangeActive, start, end);
                    if (!keys.keys.empty())
                        plugKeys.curves.push_back(std::move(keys));
                }
                if (!plugKeys.curves.empty())
                    nodeKeys.plugs.push_back(std::move(plugKeys));
            }
            if (!nodeKeys.plugs.empty())
                nodes.push_back(std::move(nodeKeys));
        }
    }
    forEachCurve(data.nodes(), [this](const CurveKeys& curve) {
        addRemovals(curve);
        addGaps(curve);
    });
}

// Every inner key of a run of neighbouring keys, with how far it lies from
// the line between the keys on either side of it.
void SimplifyBakeKeys::addRemovals(const CurveKeys& curve)
{
    CurveRemovals entry{curve.curve, {}};
    const std::vector<KeyInfo>& keys = curve.keys;
    size_t runStart = 0;
    for (size_t runEnd = 1; runEnd <= keys.size(); ++runEnd) {
        if (runEnd < keys.size() && keys[runEnd].index == keys[runEnd - 1].index + 1)
            continue;
        for (size_t i = runStart + 1; i + 1 < runEnd; ++i) {
            const KeyInfo& before = keys[i - 1];
            const KeyInfo& after = keys[i + 1];
            const double span = (after.time - before.time).value();
            if (!(span > 0.0))
                continue;
            const double u = std::clamp((keys[i].time - before.time).value() / span, 0.0, 1.0);
            entry.removals.push_back({std::fabs(keys[i].value - lerp(before.value, after.value, u)), keys[i].time});
        }
        runStart = runEnd;
    }
    // Stable, so that keys of equal deviation go in time order.
    std::stable_sort(entry.removals.begin(), entry.removals.end(),
                     [](const Removal& a, const Removal& b) { return a.deviation < b.deviation; });
    if (!entry.removals.empty())
        fRemovals.push_back(std::move(entry));
}

// The spans between the curve's keys from the first collected key to the
// last: all keys of the curve count, not only the collected ones.
void SimplifyBakeKeys::addGaps(const CurveKeys& curve)
{
    CurveGaps entry{curve.curve, {}};
    const std::vector<KeyInfo>& keys = curve.keys;
    if (keys.size() == 1) {
        if (keys.front().leftTime < keys.front().rightTime)
            entry.gaps.push_back({keys.front().leftTime, keys.front().rightTime});
    } else {
        MFnAnimCurve fn(curve.curve);
        const unsigned int count = fn.numKeys();
        // Pairs come in time order, so the walk only ever moves forward.
        unsigned int first = 0;
        for (size_t k = 1; k < keys.size(); ++k) {
            const MTime& lo = keys[k - 1].time;
            const MTime& hi = keys[k].time;
            while (first < count && fn.time(first) < lo)
                ++first;
            for (unsigned int j = first; j + 1 < count && fn.time(j + 1) <= hi; ++j)
                entry.gaps.push_back({fn.time(j), fn.time(j + 1)});
        }
    }
    if (!entry.gaps.empty())
        fGaps.push_back(std::move(entry));
}

void SimplifyBakeKeys::blend(double x, MAnimCurveChange* change)
{
    if (x < 0.0)
        removeKeys(x, change);
    else if (x > 0.0)
        insertKeys(x, change);
}

// Two thirds of the removable keys at full drag, and at least one per curve
// from the first step. Removed keys stay removed when the slider comes
// back: the list is only ever run further.
void SimplifyBakeKeys::removeKeys(double x, MAnimCurveChange* change)
{
    for (CurveRemovals& entry : fRemovals) {
        const size_t count = entry.removals.size();
        // Counted in floating point up to count, so a huge x makes no cast out of range.
        const size_t wanted = static_cast<size_t>(
            std::min(static_cast<double>(count), count * std::fabs(x) * 0.6666666666666666));
        const size_t m = std::min(std::max<size_t>(wanted, 1), count);
        MFnAnimCurve fn(entry.curve);
        for (; entry.done < m; ++entry.done) {
            unsigned int index = 0;
            if (fn.find(entry.removals[entry.done].time, index))
                fn.remove(index, change);
        }
    }
}

// Evenly spaced keys on the whole free frames of each gap; they take their
// values from the curve, so its shape stays.
void SimplifyBakeKeys::insertKeys(double x, MAnimCurveChange* change) const
{
    for (const CurveGaps& entry : fGaps) {
        MFnAnimCurve fn(entry.curve);
        for (const Gap& gap : entry.gaps) {
            // A gap wider than any int of frames is left alone.
            const int free = truncatedInt((gap.end - gap.start).value() - 1.0, 0);
            if (free <= 0)
                continue;
            // No more than the free frames, before the cast: x may be huge.
            const int m = static_cast<int>(std::min(free * x, static_cast<double>(free)));
            if (m <= 0)
                continue;
            for (int k = 1; k <= m; ++k) {
                const double offset = std::floor(k * (free + 1.0) / (m + 1.0));
                fn.insertKey(gap.start + MTime(offset, MTime::uiUnit()), false, change);
            }
        }
    }
}

} // namespace KeyBlending
