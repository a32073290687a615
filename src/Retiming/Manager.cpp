#include "Retiming/Manager.h"

#include "Ui/TimelineOverlay/Requests.h"
#include "Utils/Arithmetic.h"
#include "Utils/MayaCmds/Keyframe.h"
#include "Utils/Nodes/AnimCurve.h"
#include "Utils/Nodes/Node.h"
#include "Utils/TimeControl.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimUtil.h>
#include <maya/MItDependencyNodes.h>
#include <maya/MSelectionList.h>

#include <cmath>

namespace Retiming {

const MString OverlayName("OVRetiming");

const char* const RetimeTypeNames[RetimeTypeCount] = {
    "Move keys",
    "Move keys (all keys on selected objects)",
    "Move keys (all keys in scene)",
    "Insert inbetween",
    "Insert inbetween (all keys on selected objects)",
    "Insert inbetween (all keys in scene)",
    "Fixed Number of Inbetweens",
};

namespace {

// Beyond every key: the end of a plan, and the boundary where no key is.
constexpr double Far = 999999999.0;

MTime frames(double value) { return MTime(value, MTime::uiUnit()); }

MString frameText(const MTime& time)
{
    MString text;
    text += time.as(MTime::uiUnit());
    return text;
}

bool onAllKeys(int retimeType) { return retimeType == 1 || retimeType == 2 || retimeType == 4 || retimeType == 5; }

bool onScene(int retimeType) { return retimeType == 2 || retimeType == 5; }

// The scene's animated DAG nodes, for the types on all keys in the scene.
MSelectionList animatedObjects()
{
    MSelectionList list;
    for (MItDependencyNodes it(MFn::kDagNode); !it.isDone(); it.next()) {
        const MObject node = it.thisNode();
        if (MAnimUtil::isAnimated(node))
            list.add(node);
    }
    return list;
}

// The curves' names, blank separated, for the keyframe queries.
MString joinedNames(const std::vector<MObject>& curves)
{
    MString names;
    for (const MObject& curve : curves) {
        if (names.length())
            names += " ";
        names += nodeDisplayName(curve);
    }
    return names;
}

// The index of the last key at or before t; -1 when all keys lie later.
int keyAtOrBefore(MFnAnimCurve& curve, const MTime& t)
{
    const int i = static_cast<int>(curve.findClosest(t));
    return curve.time(static_cast<unsigned int>(i)) > t ? i - 1 : i;
}

// Whether index is among the picked keys, which are in index order; next
// walks along them as the index rises.
bool picked(const std::vector<CollectAnimation::KeyInfo>& keys, size_t& next, unsigned int index)
{
    while (next < keys.size() && keys[next].index < index)
        ++next;
    return next < keys.size() && keys[next].index == index;
}

// The curves of a collection's tree, each once: a curve that drives two
// plugs is found through both.
template <typename Node>
auto eachCurveOnce(const std::vector<Node>& nodes)
{
    using Curve = typename decltype(nodes.front().plugs.front().curves)::value_type;
    std::vector<const Curve*> curves;
    CollectAnimation::ObjectSet seen;
    for (const Node& node : nodes)
        for (const auto& plug : node.plugs)
            for (const Curve& curve : plug.curves)
                if (seen.insert(curve.curve).second)
                    curves.push_back(&curve);
    return curves;
}

} // namespace

int Manager::retime(const MSelectionList& objects, const MTime& value, int retimeType, bool jumpToNewTime)
{
    if (value.value() == 0.0)
        return 0;
    fRetimeType = retimeType;
    fDirection = value.value() > 0.0 ? 1 : 0;
    fValue = value;
    fJumpToNewTime = jumpToNewTime && retimeType == 0;
    // Where undo and a jump that moves no key leave the time.
    fOldCurrentTime = MAnimControl::currentTime();
    fNewCurrentTime = fOldCurrentTime;
    fHasRange = timeSliderRange(fRangeStart, fRangeEnd);
    fNewRangeStart = fRangeStart;
    fNewRangeEnd = fRangeEnd;

    switch (retimeType) {
    case 0:
        shiftSelection(objects);
        break;
    case 1:
    case 2:
        shiftAll(onScene(retimeType) ? animatedObjects() : objects);
        break;
    case 3:
        moveKeys(objects);
        break;
    case 4:
    case 5:
        rippleCurves(onScene(retimeType) ? animatedObjects() : objects);
        break;
    case 6:
        fixedGaps(objects);
        break;
    default:
        break;
    }

    removeOverlay(OverlayName);
    if (fHasRange) {
        // A shifted range moves its highlight along.
        if (fChangedKeys != 0 && retimeType == 0) {
            fNewRangeStart = fRangeStart + fValue;
            fNewRangeEnd = fRangeEnd + fValue;
        }
        setTimeSliderRange(fNewRangeStart, fNewRangeEnd);
    }
    return fChangedKeys;
}

MStatus Manager::undoIt() { return restore(false); }

MStatus Manager::redoIt() { return restore(true); }

// The time, the keys, then the highlight. Undo of a jump goes back to the
// time of the edit; redo moves the time only where the edit moved it.
MStatus Manager::restore(bool edited)
{
    if (edited ? fTimeMoved : fJumpToNewTime)
        MAnimControl::setCurrentTime(edited ? fNewCurrentTime : fOldCurrentTime);
    const MStatus status = edited ? fChange.redoIt() : fChange.undoIt();
    if (fHasRange)
        setTimeSliderRange(edited ? fNewRangeStart : fRangeStart, edited ? fNewRangeEnd : fRangeEnd);
    return status;
}

void Manager::previewRange(int retimeType)
{
    MTime start, end;
    const bool hasRange = timeSliderRange(start, end);
    if (hasRange && (retimeType == 0 || (retimeType >= 3 && retimeType < RetimeTypeCount)))
        showOverlayRange(OverlayName, start, end);
    else if (onAllKeys(retimeType))
        showOverlayRange(OverlayName, MAnimControl::minTime(), MAnimControl::maxTime());
}

// --- collection --------------------------------------------------------------

std::vector<MObject> Manager::collectCurves(const MSelectionList& objects)
{
    fCurves = fKeys.Ctx::collect(objects);
    std::vector<MObject> curves;
    for (const CollectAnimation::CurveRecord* record : eachCurveOnce(fCurves))
        curves.push_back(record->curve);
    return curves;
}

std::vector<const CollectAnimation::CurveKeys*> Manager::collectPickedKeys(const MSelectionList& objects)
{
    fKeys.collect(objects);
    return eachCurveOnce(fKeys.nodes());
}

// --- writing keys --------------------------------------------------------------

void Manager::setKeyTime(MFnAnimCurve& curve, unsigned int index, const MTime& time)
{
    // Maya refuses a time that would pass a neighbour; such a key stays and
    // isn't counted.
    if (curve.time(index) != time && curve.setTime(index, time, &fChange))
        ++fChangedKeys;
}

void Manager::shift(MFnAnimCurve& curve, const Indices& indices)
{
    if (fDirection == 1) {
        for (auto i = indices.rbegin(); i != indices.rend(); ++i)
            setKeyTime(curve, *i, curve.time(*i) + fValue);
    } else {
        for (const unsigned int i : indices)
            setKeyTime(curve, i, curve.time(i) + fValue);
    }
}

// An entry waits when its new time reaches the old time of the key after
// it: that key must move first. Waiting entries are written last, the
// nearest to the end first. This is the order of a recursion through the
// plan, without a stack as deep as the curve is long.
void Manager::applyPlan(MFnAnimCurve& curve)
{
    if (fPlan.size() < 2)
        return;
    fWaiting.clear();
    const size_t sentinel = fPlan.size() - 1;
    for (size_t i = 0; i < sentinel; ++i) {
        if (fPlan[i].newTime < fPlan[i + 1].oldTime)
            setKeyTime(curve, fPlan[i].index, fPlan[i].newTime);
        else
            fWaiting.push_back(i);
    }
    for (auto i = fWaiting.rbegin(); i != fWaiting.rend(); ++i)
        setKeyTime(curve, fPlan[*i].index, fPlan[*i].newTime);
}

// --- type 0 and types 1, 2: shifting ------------------------------------------------

void Manager::shiftSelection(const MSelectionList& objects)
{
    if (hasAnimCurves(objects)) {
        const auto picked = collectPickedKeys(objects);
        clampToNeighbours(picked);
        Indices indices;
        for (const CollectAnimation::CurveKeys* keys : picked) {
            indices.clear();
            for (const CollectAnimation::KeyInfo& key : keys->keys)
                indices.push_back(key.index);
            MFnAnimCurve curve(keys->curve);
            shift(curve, indices);
        }
        return;
    }
    const std::vector<MObject> curves = collectCurves(objects);
    if (curves.empty())
        return;
    if (!fHasRange) {
        shiftAtCurrentTime(curves);
        return;
    }
    if (!roomToShift(joinedNames(curves)))
        return;
    for (const MObject& object : curves) {
        MFnAnimCurve curve(object);
        shift(curve, keysInRange(object, fRangeStart, fRangeEnd));
    }
}

// The value shrinks until no picked key would reach the key beside it. A
// picked neighbour inside a curve still counts, as it moves by the same
// value only once it is its own turn; one at the end of the curve doesn't.
void Manager::clampToNeighbours(const std::vector<const CollectAnimation::CurveKeys*>& picked)
{
    for (const CollectAnimation::CurveKeys* keys : picked) {
        MFnAnimCurve curve(keys->curve);
        const unsigned int last = curve.numKeys() - 1;
        for (const CollectAnimation::KeyInfo& key : keys->keys) {
            if (fDirection == 1) {
                const unsigned int next = rightNeighborIndex(keys->curve, key.time);
                if (next == last && keys->keys.back().index == last)
                    continue;
                const MTime room = frames((curve.time(next) - key.time).as(MTime::uiUnit()) - 1.0);
                if (room < fValue)
                    fValue = room;
            } else {
                const unsigned int previous = leftNeighborIndex(keys->curve, key.time);
                if (previous == 0 && keys->keys.front().index == 0)
                    continue;
                const int room =
                    truncatedInt((key.time - curve.time(previous)).as(MTime::uiUnit()) - 1.0, 0);
                if (room < std::fabs(fValue.as(MTime::uiUnit())))
                    fValue = frames(-std::abs(room));
            }
        }
    }
}

bool Manager::roomToShift(const MString& names) const
{
    std::set<int> all, inRange;
    queryKeyframe(names, all);
    queryKeyframeAtTimes(names, frameText(fRangeStart), frameText(fRangeEnd), inRange);
    if (inRange.empty())
        return false;
    const double value = fValue.as(MTime::uiUnit());
    if (fDirection == 1) {
        const int a = *inRange.rbegin();
        const auto after = all.upper_bound(a);
        const int b = after == all.end() ? a : *after;
        return !(b - a <= value && a != b);
    }
    const int a = *inRange.begin();
    const auto before = all.lower_bound(a);
    const int b = before == all.begin() ? a : *std::prev(before);
    return !(a - b <= std::fabs(value) && a != b);
}

void Manager::shiftAtCurrentTime(const std::vector<MObject>& curves)
{
    const MTime now = fOldCurrentTime;
    const int frame = truncatedInt(now.as(MTime::uiUnit()), 0);
    std::set<int> all;
    queryKeyframe(joinedNames(curves), all);
    double boundary = fDirection == 1 ? Far : -Far;
    if (fDirection == 1) {
        const auto after = all.upper_bound(frame);
        if (after != all.end())
            boundary = *after;
    } else {
        const auto before = all.lower_bound(frame);
        if (before != all.begin())
            boundary = *std::prev(before);
    }

    bool keyAtNow = false;
    unsigned int index = 0;
    for (const MObject& object : curves)
        keyAtNow = keyAtNow || MFnAnimCurve(object).find(now, index);

    if (keyAtNow) {
        // The key at the current time goes by the value, up to a frame
        // short of the nearest key on its way.
        const MTime limit = frames(fDirection == 1 ? boundary - 1.0 : boundary + 1.0);
        const MTime wanted = now + fValue;
        fNewCurrentTime = fDirection == 1 ? std::min(wanted, limit) : std::max(wanted, limit);
        for (const MObject& object : curves) {
            MFnAnimCurve curve(object);
            if (curve.find(now, index))
                setKeyTime(curve, index, fNewCurrentTime);
        }
    } else {
        // No key here: the nearest key on that side comes to the current time.
        const MTime nearest = frames(boundary);
        for (const MObject& object : curves) {
            MFnAnimCurve curve(object);
            if (curve.find(nearest, index))
                setKeyTime(curve, index, now);
        }
    }
    if (fJumpToNewTime && fChangedKeys != 0 && fNewCurrentTime != now) {
        MAnimControl::setCurrentTime(fNewCurrentTime);
        fTimeMoved = true;
    }
}

void Manager::shiftAll(const MSelectionList& objects)
{
    if (objects.isEmpty())
        return;
    Indices indices;
    for (const MObject& object : collectCurves(objects)) {
        MFnAnimCurve curve(object);
        indices.resize(curve.numKeys());
        for (unsigned int i = 0; i < indices.size(); ++i)
            indices[i] = i;
        shift(curve, indices);
    }
}

// --- types 3 to 6: plans ----------------------------------------------------------

MTime Manager::rippleStart(const MString& names) const
{
    if (!fHasRange)
        return fRangeStart;
    std::set<int> inRange;
    queryKeyframeAtTimes(names, frameText(fRangeStart), frameText(fRangeEnd), inRange);
    return inRange.empty() ? fRangeStart : frames(*inRange.begin());
}

void Manager::moveKeys(const MSelectionList& objects)
{
    if (objects.isEmpty())
        return;
    if (!fHasRange && hasAnimCurves(objects)) {
        for (const CollectAnimation::CurveKeys* keys : collectPickedKeys(objects)) {
            MFnAnimCurve curve(keys->curve);
            rippleSelected(curve, keys->keys);
            applyPlan(curve);
        }
        return;
    }
    rippleCurves(objects);
}

void Manager::rippleCurves(const MSelectionList& objects)
{
    const std::vector<MObject> curves = collectCurves(objects);
    if (curves.empty())
        return;
    const MTime start = rippleStart(joinedNames(curves));
    for (const MObject& object : curves) {
        MFnAnimCurve curve(object);
        rippleFrom(curve, start, fRangeEnd);
        applyPlan(curve);
    }
}

void Manager::fixedGaps(const MSelectionList& objects)
{
    if (objects.isEmpty())
        return;
    // A gap has a size, whichever arrow asked for it: keys set apart by a
    // negative gap would pass each other.
    fValue = frames(std::fabs(fValue.as(MTime::uiUnit())));
    if (!fHasRange && hasAnimCurves(objects)) {
        for (const CollectAnimation::CurveKeys* keys : collectPickedKeys(objects)) {
            MFnAnimCurve curve(keys->curve);
            fixedSelected(curve, keys->keys);
            applyPlan(curve);
        }
        return;
    }
    const std::vector<MObject> curves = collectCurves(objects);
    if (curves.empty())
        return;
    const MTime start = rippleStart(joinedNames(curves));
    for (const MObject& object : curves) {
        MFnAnimCurve curve(object);
        fixedFrom(curve, start, fRangeEnd);
        applyPlan(curve);
    }
}

// The gap behind each key from the one at or before start to the first
// after end changes by the value, never below a frame; later keys follow.
void Manager::rippleFrom(MFnAnimCurve& curve, const MTime& start, const MTime& end)
{
    fPlan.clear();
    const unsigned int count = curve.numKeys();
    if (count == 0)
        return;
    int first = keyAtOrBefore(curve, start);
    if (first < 0) {
        first = 0;
        fPlan.push_back({0, curve.time(0), curve.time(0) + fValue});
    } else {
        const MTime t = curve.time(static_cast<unsigned int>(first));
        fPlan.push_back({static_cast<unsigned int>(first), t, t});
    }
    const long last = keyAtOrBefore(curve, end);
    const MTime oneFrame = frames(1.0);
    MTime previous = fPlan.front().oldTime;
    for (unsigned int k = static_cast<unsigned int>(first) + 1; k < count; ++k) {
        const MTime t = curve.time(k);
        MTime gap = t - previous;
        if (static_cast<long>(k) <= last + 1) {
            gap += fValue;
            if (gap < oneFrame)
                gap = oneFrame;
        }
        fPlan.push_back({k, t, fPlan.back().newTime + gap});
        previous = t;
    }
    fPlan.push_back({count, frames(Far), frames(Far)});
}

// Each picked key gets the value in the gap that follows it.
void Manager::rippleSelected(MFnAnimCurve& curve, const std::vector<CollectAnimation::KeyInfo>& selected)
{
    fPlan.clear();
    const unsigned int count = curve.numKeys();
    if (count < 2)
        return;
    const MTime oneFrame = frames(1.0);
    size_t walk = 0;
    bool pending = picked(selected, walk, 0);
    fPlan.push_back({0, curve.time(0), curve.time(0)});
    for (unsigned int k = 1; k < count; ++k) {
        const MTime t = curve.time(k);
        MTime gap = t - fPlan.back().oldTime;
        if (pending) {
            gap += fValue;
            if (gap < oneFrame)
                gap = oneFrame;
            pending = false;
        }
        pending = picked(selected, walk, k);
        fPlan.push_back({k, t, fPlan.back().newTime + gap});
    }
    fPlan.push_back({count, frames(Far), frames(Far)});
}

// The keys from the one at or before start to the first after end stand the
// value apart.
void Manager::fixedFrom(MFnAnimCurve& curve, const MTime& start, const MTime& end)
{
    fPlan.clear();
    const unsigned int count = curve.numKeys();
    const int first = count == 0 ? -1 : keyAtOrBefore(curve, start);
    if (first < 0)
        return;
    const MTime t = curve.time(static_cast<unsigned int>(first));
    fPlan.push_back({static_cast<unsigned int>(first), t, t});
    const unsigned int last = static_cast<unsigned int>(keyAtOrBefore(curve, end));
    // Up to the first key after the range, where the curve has one.
    for (unsigned int k = static_cast<unsigned int>(first) + 1; k <= last + 1 && k < count; ++k)
        fPlan.push_back({k, curve.time(k), fPlan.back().newTime + fValue});
    fixedTail(curve, last + 2);
}

// Neighbouring picked keys stand the value apart; other gaps keep their size.
void Manager::fixedSelected(MFnAnimCurve& curve, const std::vector<CollectAnimation::KeyInfo>& selected)
{
    fPlan.clear();
    const unsigned int count = curve.numKeys();
    if (count < 2 || selected.empty())
        return;
    const unsigned int first = selected.front().index;
    const unsigned int last = selected.back().index;
    if (last >= count)
        return;
    fPlan.push_back({first, curve.time(first), curve.time(first)});
    size_t walk = 0;
    bool previousPicked = true;
    for (unsigned int k = first + 1; k <= last; ++k) {
        const MTime t = curve.time(k);
        const bool isPicked = picked(selected, walk, k);
        const MTime gap = previousPicked && isPicked ? fValue : t - fPlan.back().oldTime;
        fPlan.push_back({k, t, fPlan.back().newTime + gap});
        previousPicked = isPicked;
    }
    fixedTail(curve, last + 1);
}

void Manager::fixedTail(MFnAnimCurve& curve, unsigned int next)
{
    const unsigned int count = curve.numKeys();
    if (next < count) {
        const MTime limit = fPlan.back().newTime + fValue;
        if (curve.time(next) < limit) {
            fPlan.push_back({next, curve.time(next), limit});
            for (unsigned int k = next + 1; k < count; ++k) {
                const MTime t = curve.time(k);
                fPlan.push_back({k, t, fPlan.back().newTime + (t - fPlan.back().oldTime)});
            }
        }
    }
    fPlan.push_back({fPlan.back().index + 1, frames(Far), frames(Far)});
}

} // namespace Retiming
