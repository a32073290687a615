#include "KeyBlending/ValueOffset.h"

#include "KeyBlending/Data.h"
#include "KeyBlending/KeyWalk.h"
#include "Utils/MayaCmds/Duplicate.h"
#include "Utils/Nodes/Node.h"

#include <maya/MAngle.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>

#include <cmath>

namespace KeyBlending {

using CollectAnimation::CurveKeys;

namespace {

// The keys around a time: lo is the last key not after it (key 0 if none),
// hi the first key not before it (the last key if none), and loShare how
// much of lo a point at that time takes, 1 on a key.
struct Bracket
{
    unsigned int lo = 0;
    unsigned int hi = 0;
    double loShare = 1.0;
};

Bracket bracketOf(const MFnAnimCurve& fn, const MTime& t)
{
    const unsigned int count = fn.numKeys();
    Bracket bracket;
    if (count == 0)
        return bracket;
    // Binary searches over the key times, which are in increasing order.
    auto firstKeyWhere = [&](auto&& test) {
        unsigned int lo = 0;
        unsigned int hi = count;
        while (lo < hi) {
            const unsigned int mid = lo + (hi - lo) / 2;
            if (test(fn.time(mid)))
                hi = mid;
            else
                lo = mid + 1;
        }
        return lo;
    };
    const unsigned int firstAfter = firstKeyWhere([&](const MTime& k) { return k > t; });
    const unsigned int firstNotBefore = firstKeyWhere([&](const MTime& k) { return k >= t; });
    bracket.lo = firstAfter > 0 ? firstAfter - 1 : 0;
    bracket.hi = firstNotBefore < count ? firstNotBefore : count - 1;
    if (bracket.lo != bracket.hi) {
        const double tLo = fn.time(bracket.lo).as(MTime::kSeconds);
        const double tHi = fn.time(bracket.hi).as(MTime::kSeconds);
        bracket.loShare = 1.0 - (t.as(MTime::kSeconds) - tLo) / (tHi - tLo);
    }
    return bracket;
}

struct KeyTangents
{
    double inAngle = 0.0;
    double inWeight = 0.0;
    double outAngle = 0.0;
    double outWeight = 0.0;
};

bool readTangents(const MFnAnimCurve& fn, unsigned int index, KeyTangents& tangents)
{
    MAngle angle;
    double weight = 0.0;
    if (!fn.getTangent(index, angle, weight, true))
        return false;
    tangents.inAngle = angle.asRadians();
    tangents.inWeight = weight;
    if (!fn.getTangent(index, angle, weight, false))
        return false;
    tangents.outAngle = angle.asRadians();
    tangents.outWeight = weight;
    return true;
}

// A time (frames) brought by whole cycles to within one cycle past the
// curve's end on its side; shift tells how many cycles were added. The
// cycling copy gives at t what it gives there, less shift times its rise per
// cycle. So an offset of any size costs one step and makes no time beyond
// reach, and an offset within a cycle is left as it is.
double withinACycle(double t, double first, double last, double& shift)
{
    const double period = last - first;
    shift = 0.0;
    if (period > 0.0) {
        if (t < first)
            shift = std::ceil((first - t) / period) - 1.0;
        else if (t > last)
            shift = 1.0 - std::ceil((t - last) / period);
    }
    return t + shift * period;
}

// The end keys of the cycling copy stand for each other across the seam.
unsigned int acrossSeam(unsigned int index, unsigned int count)
{
    if (index == 0)
        return count - 1;
    if (index == count - 1)
        return 0;
    return index;
}

// Gives the key the tangents the copy has at t, within one cycle of the real curve.
void copyTangents(MFnAnimCurve& curve, const MFnAnimCurve& copy, unsigned int index, MTime t,
                  MAnimCurveChange* change)
{
    const MTime first = curve.time(0);
    const MTime period = curve.time(curve.numKeys() - 1) - first;
    if (period > MTime(0.0, MTime::uiUnit())) {
        const MTime last = first + period;
        while (t < first)
            t += period;
        while (t > last)
            t -= period;
    }

    const Bracket inCopy = bracketOf(copy, t);
    const unsigned int copyCount = copy.numKeys();
    KeyTangents lo;
    KeyTangents hi;
    if (!readTangents(copy, acrossSeam(inCopy.lo, copyCount), lo)
        || !readTangents(copy, acrossSeam(inCopy.hi, copyCount), hi))
        return;
    const double a = inCopy.loShare;
    const double b = bracketOf(curve, t).loShare;

    // The copy has a key between each two, so its handles are half as long.
    const double inAngle = hi.inAngle * (1.0 - a) + lo.inAngle * a;
    const double outAngle = hi.outAngle * (1.0 - a) + lo.outAngle * a;
    const double inWeight = (1.0 - b) * 2.0 * hi.inWeight + b * 2.0 * lo.inWeight;
    const double outWeight = (1.0 - b) * 2.0 * hi.outWeight + b * 2.0 * lo.outWeight;
    curve.setAngle(index, MAngle(inAngle, MAngle::kRadians), true, change);
    curve.setAngle(index, MAngle(outAngle, MAngle::kRadians), false, change);
    curve.setWeight(index, inWeight, true, change);
    curve.setWeight(index, outWeight, false, change);
}

// A copy of the curve with a key between each two, cycling with an offset
// on both sides, so it reads the old animation at any time.
MObject restingCopy(const MObject& curve)
{
    MObject copy = duplicateNode(nodeDisplayName(curve), false);
    if (copy.isNull())
        return copy;
    const MFnAnimCurve fn(curve);
    MFnAnimCurve copyFn(copy);
    const unsigned int count = fn.numKeys();
    for (unsigned int k = 0; k + 1 < count; ++k)
        copyFn.insertKey((fn.time(k) + fn.time(k + 1)) / 2.0, false, nullptr, nullptr);
    copyFn.setPreInfinityType(MFnAnimCurve::kCycleRelative);
    copyFn.setPostInfinityType(MFnAnimCurve::kCycleRelative);
    return copy;
}

} // namespace

void ValueOffset::prepare(Data& data)
{
    fRecords.clear();
    // duplicate selects its copies; the animator's selection stays as it was.
    MSelectionList selection;
    MGlobal::getActiveSelectionList(selection);
    forEachCurve(data.nodes(), [&](const CurveKeys& curve) {
        fRecords.push_back({curve.curve, restingCopy(curve.curve), curve.keys});
    });
    MGlobal::setActiveSelectionList(selection);
}

void ValueOffset::release()
{
    for (Record& record : fRecords)
        if (!record.copy.isNull())
            MGlobal::deleteNode(record.copy);
    fRecords.clear();
}

double ValueOffset::offsetFor(size_t, double x) const { return x; }

void ValueOffset::blend(double x, MAnimCurveChange* change) const
{
    for (size_t i = 0; i < fRecords.size(); ++i) {
        const Record& record = fRecords[i];
        if (record.copy.isNull())
            continue;
        const double d = offsetFor(i, x);
        MFnAnimCurve curve(record.curve);
        const MFnAnimCurve copy(record.copy);
        if (copy.numKeys() == 0)
            continue;
        const MTime::Unit unit = MTime::uiUnit();
        const unsigned int last = copy.numKeys() - 1;
        const double rise = copy.value(last) - copy.value(0);
        for (const CollectAnimation::KeyInfo& key : record.keys) {
            double shift = 0.0;
            const MTime t(withinACycle(key.time.value() - d, copy.time(0).as(unit), copy.time(last).as(unit), shift),
                          unit);
            curve.setValue(key.index, copy.evaluate(t) - shift * rise, change);
            if (curve.outTangentType(key.index) != MFnAnimCurve::kTangentStep)
                copyTangents(curve, copy, key.index, t, change);
        }
    }
}

} // namespace KeyBlending
