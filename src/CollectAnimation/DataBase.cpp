#include "CollectAnimation/DataBase.h"

#include "Utils/Nodes/AnimCurve.h"
#include "Utils/TimeControl.h"

#include <maya/MAnimControl.h>
#include <maya/MSelectionList.h>

#include <algorithm>

namespace CollectAnimation {

void DataBase::appendRun(const CurveRecord& curve, unsigned int first, unsigned int last, CurveKeys& result)
{
    const unsigned int lastKey = static_cast<unsigned int>(curve.keys.size()) - 1;
    const KeyRecord& left = curve.keys[first == 0 ? 0 : first - 1];
    const KeyRecord& right = curve.keys[last == lastKey ? last : last + 1];
    for (unsigned int i = first; i <= last; ++i) {
        const KeyRecord& key = curve.keys[i];
        result.keys.push_back(KeyInfo{i, key.value, left.value, right.value, key.time, left.time, right.time});
    }
}

CurveKeys DataBase::selectedKeys(const CurveRecord& curve) const
{
    CurveKeys result{curve.curve, {}};
    const MIntArray picked = selectedKeyIndices(curve.curve);
    std::vector<unsigned int> indices;
    for (int index : picked) {
        if (index >= 0 && static_cast<size_t>(index) < curve.keys.size())
            indices.push_back(static_cast<unsigned int>(index));
    }
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    size_t runStart = 0;
    for (size_t i = 1; i <= indices.size(); ++i) {
        if (i == indices.size() || indices[i] > indices[i - 1] + 1) {
            if (i > runStart)
                appendRun(curve, indices[runStart], indices[i - 1], result);
            runStart = i;
        }
    }
    return result;
}

CurveKeys DataBase::keysInRange(const CurveRecord& curve, const MTime& start, const MTime& end) const
{
    CurveKeys result{curve.curve, {}};
    const std::vector<unsigned int> indices = ::keysInRange(curve.curve, start, end);
    if (!indices.empty() && indices.back() < curve.keys.size())
        appendRun(curve, indices.front(), indices.back(), result);
    return result;
}

void DataBase::collect(const MSelectionList& selection)
{
    fNodes.clear();
    const std::vector<NodeRecord> records = Ctx::collect(selection);
    MTime start, end;
    const bool rangeActive = timeSliderRange(start, end);
    const bool curvesSelected = hasAnimCurves(selection);

    for (const NodeRecord& nodeRecord : records) {
        NodeKeys nodeKeys{nodeRecord.node, nodeRecord.reserved, {}};
        for (const PlugRecord& plugRecord : nodeRecord.plugs) {
            PlugKeys plugKeys{plugRecord.plug, {}};
            for (const CurveRecord& curve : plugRecord.curves) {
                CurveKeys keys = curvesSelected ? selectedKeys(curve)
                                 : rangeActive  ? keysInRange(curve, start, end)
                                                : collectAtCurrentTime(curve);
                if (!keys.keys.empty())
                    plugKeys.curves.push_back(std::move(keys));
            }
            if (!plugKeys.curves.empty())
                nodeKeys.plugs.push_back(std::move(plugKeys));
        }
        if (!nodeKeys.plugs.empty())
            fNodes.push_back(std::move(nodeKeys));
    }
}

CurveKeys DataBase::collectAtCurrentTime(const CurveRecord& curve)
{
    CurveKeys result{curve.curve, {}};
    MFnAnimCurve fn(curve.curve);
    const MTime now = MAnimControl::currentTime();
    unsigned int index = 0;
    if (!fn.find(now, index)) {
        index = fn.insertKey(now, false, fChange);
        fn.setInTangentType(index, MFnAnimCurve::kTangentAuto, fChange);
        fn.setOutTangentType(index, MFnAnimCurve::kTangentAuto, fChange);
    }
    const double value = fn.value(index);
    // Neighbours come from the curve itself: the snapshot lacks the new key.
    const unsigned int right = rightNeighborIndex(curve.curve, now);
    const unsigned int left = leftNeighborIndex(curve.curve, now);
    result.keys.push_back(KeyInfo{index, value, fn.value(left), fn.value(right), now, fn.time(left), fn.time(right)});
    return result;
}

CurveKeys CtxAnim::collectAtCurrentTime(const CurveRecord& curve)
{
    unsigned int index = 0;
    if (!MFnAnimCurve(curve.curve).find(MAnimControl::currentTime(), index))
        return CurveKeys{curve.curve, {}};
    return DataBase::collectAtCurrentTime(curve);
}

} // namespace CollectAnimation
