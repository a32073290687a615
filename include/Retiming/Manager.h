#pragma once
// Retiming: changes the time between keys by a value in frames, on the keys
// picked in a graph, on those of the highlighted range, or around the
// current time. Keys never pass a neighbour: wherever keys ripple, a gap
// stays at least one frame.
#include "CollectAnimation/DataBase.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObject.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <set>
#include <vector>

namespace Retiming {

// The overlay that previews what a retime type acts on.
extern const MString OverlayName;

constexpr int RetimeTypeCount = 7;
// The types by index, with the names the panel shows:
// 0 shifts what is selected; 1 and 2 shift all keys of the selected objects
// or of the scene; 3 opens or closes the gaps behind the selected keys (or
// the range, or the current frame) and ripples the rest; 4 and 5 do that on
// all keys of the selected objects or of the scene; 6 sets the gaps to the
// value.
extern const char* const RetimeTypeNames[RetimeTypeCount];

// One line of a curve's plan: a key and where it goes.
struct RetimeEntry
{
    unsigned int index;
    MTime oldTime;
    MTime newTime;
};

class Manager
{
public:
    // Retimes what the objects mean by value (frames in the UI unit) the way
    // the type says; the number of keys whose time changed.
    int retime(const MSelectionList& objects, const MTime& value, int retimeType, bool jumpToNewTime);
    MStatus undoIt();
    MStatus redoIt();

    // Marks on the time slider what the type would act on: the highlighted
    // range, or the playback range for the types on all keys.
    static void previewRange(int retimeType);

private:
    using Indices = std::vector<unsigned int>;

    // Puts back the state before the edit, or the one after it.
    MStatus restore(bool edited);

    void shiftSelection(const MSelectionList& objects);
    void shiftAtCurrentTime(const std::vector<MObject>& curves);
    void shiftAll(const MSelectionList& objects);
    void moveKeys(const MSelectionList& objects);
    void rippleCurves(const MSelectionList& objects);
    void fixedGaps(const MSelectionList& objects);

    // The curves of the objects (each once), as fCurves holds them.
    std::vector<MObject> collectCurves(const MSelectionList& objects);
    // The curves with keys picked in a graph, as fKeys holds them.
    std::vector<const CollectAnimation::CurveKeys*> collectPickedKeys(const MSelectionList& objects);
    void clampToNeighbours(const std::vector<const CollectAnimation::CurveKeys*>& picked);
    bool roomToShift(const MString& names) const;
    // Where the ripple starts: the first key frame in the highlighted range
    // over all curves, else the range's start.
    MTime rippleStart(const MString& names) const;

    void setKeyTime(MFnAnimCurve& curve, unsigned int index, const MTime& time);
    // Moves the keys by the value, in the order in which none passes a key
    // that hasn't moved yet (indices ascending).
    void shift(MFnAnimCurve& curve, const Indices& indices);

    // The plans, built into fPlan, ending with a sentinel entry.
    void rippleFrom(MFnAnimCurve& curve, const MTime& start, const MTime& end);
    void rippleSelected(MFnAnimCurve& curve, const std::vector<CollectAnimation::KeyInfo>& selected);
    void fixedFrom(MFnAnimCurve& curve, const MTime& start, const MTime& end);
    void fixedSelected(MFnAnimCurve& curve, const std::vector<CollectAnimation::KeyInfo>& selected);
    // After the entries of the fixed gaps: pushes the keys behind when the
    // first of them is nearer than the value, else leaves them.
    void fixedTail(MFnAnimCurve& curve, unsigned int next);
    void applyPlan(MFnAnimCurve& curve);

    int fChangedKeys = 0;
    bool fJumpToNewTime = false;
    // The edit moved the current time, so redo moves it too.
    bool fTimeMoved = false;
    bool fHasRange = false;
    int fRetimeType = 0;
    int fDirection = 1;
    MTime fOldCurrentTime;
    MTime fValue;
    MTime fNewCurrentTime;
    MTime fRangeStart, fRangeEnd;
    MTime fNewRangeStart, fNewRangeEnd;
    MAnimCurveChange fChange;
    std::vector<CollectAnimation::NodeRecord> fCurves;
    CollectAnimation::CtxAnim fKeys;
    // Reused from curve to curve: the plan and the entries that wait for the
    // keys behind them to move.
    std::vector<RetimeEntry> fPlan;
    std::vector<size_t> fWaiting;
};

} // namespace Retiming
