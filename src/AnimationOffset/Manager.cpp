#include "AnimationOffset/Manager.h"

#include "AnimationOffset/Cmd.h"
#include "Ui/TimelineOverlay/Requests.h"
#include "Utils/Arithmetic.h"
#include "Utils/Report.h"
#include "Utils/Tasks.h"
#include "Utils/TimeControl.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimMessage.h>
#include <maya/MDoubleArray.h>
#include <maya/MEventMessage.h>
#include <maya/MFn.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnKeyframeDeltaAddRemove.h>
#include <maya/MFnKeyframeDeltaMove.h>
#include <maya/MGlobal.h>
#include <maya/MMessage.h>
#include <maya/MObjectHandle.h>

#include <algorithm>

namespace AnimationOffset {

namespace {

const MString OverlayName("OVAnimationOffset_Timeline_Overlay");

void hideOverlay()
{
    int exists = 0;
    MGlobal::executeCommand("OVTimelineOverlay -exists " + OverlayName, exists);
    if (exists)
        MGlobal::executeCommand("OVTimelineOverlay -show false " + OverlayName);
}

// What the curve reads at the time without its key at index: the key is
// taken away and put back within one local change.
double valueWithoutKey(MFnAnimCurve& curve, unsigned int index, const MTime& time)
{
    MAnimCurveChange change;
    curve.remove(index, &change);
    const double value = curve.evaluate(time);
    change.undoIt();
    return value;
}

} // namespace

Manager& Manager::instance()
{
    static Manager manager;
    return manager;
}

void Manager::toggle()
{
    if (fActive) {
        stop();
        return;
    }
    fActive = true;
    fSpanStart = MAnimControl::minTime();
    fSpanEnd = MAnimControl::maxTime();
    MDoubleArray selectedTimes;
    MGlobal::executeCommand("keyframe -query -selected -timeChange", selectedTimes);
    if (selectedTimes.length()) {
        double first = selectedTimes[0], last = selectedTimes[0];
        for (unsigned int i = 1; i < selectedTimes.length(); ++i) {
            first = std::min(first, selectedTimes[i]);
            last = std::max(last, selectedTimes[i]);
        }
        fSpanStart = MTime(first, MTime::uiUnit());
        fSpanEnd = MTime(last, MTime::uiUnit());
    } else {
        MTime start, end;
        if (timeSliderRange(start, end)) {
            fSpanStart = start;
            fSpanEnd = end;
        }
    }
    if (!showOverlayRange(OverlayName, fSpanStart, fSpanEnd))
        OV_REPORT(QStringLiteral("failed to create timeline overlay"), "toggle");
    installCallbacks();
}

void Manager::stop()
{
    if (fActive)
        hideOverlay();
    fActive = false;
    removeCallbacks();
    fIgnoreNextEdits = false;
    cancelTask(fIgnoreTask);
}

void Manager::installCallbacks()
{
    removeCallbacks();
    fCallbackIds.append(MAnimMessage::addAnimKeyframeEditedCallback(onKeyframeEdited, this));
    fCallbackIds.append(MEventMessage::addEventCallback("Undo", onUndoOrRedo, this));
    fCallbackIds.append(MEventMessage::addEventCallback("Redo", onUndoOrRedo, this));
    fCallbackIds.append(MEventMessage::addEventCallback("PreFileNewOrOpened", onNewScene, this));
}

void Manager::removeCallbacks()
{
    if (fCallbackIds.length())
        MMessage::removeCallbacks(fCallbackIds);
    fCallbackIds.clear();
}

void Manager::onKeyframeEdited(MObjectArray& deltas, void* clientData)
{
    static_cast<Manager*>(clientData)->keyframeEdited(deltas);
}

void Manager::onUndoOrRedo(void* clientData)
{
    // The keys an undo or redo puts back are no user's edit: the spread of
    // the original edit is on the undo queue of its own.
    Manager& manager = *static_cast<Manager*>(clientData);
    manager.installCallbacks();
    manager.fIgnoreNextEdits = true;
    // An undo that changes no key delivers nothing; the user's next edit
    // comes after an idle.
    manager.fIgnoreTask = deferTaskReplacing(manager.fIgnoreTask, [&manager] { manager.fIgnoreNextEdits = false; });
}

void Manager::onNewScene(void* clientData) { static_cast<Manager*>(clientData)->stop(); }

void Manager::keyframeEdited(const MObjectArray& deltas)
{
    if (fBusy || fIgnoreNextEdits) {
        // The spread's own edits, or the echo of an undo or redo.
        fIgnoreNextEdits = false;
        return;
    }
    fBusy = true;
    for (unsigned int i = 0; i < deltas.length(); ++i)
        recordDelta(deltas[i]);
    if (!fPendingOffsets.empty()) {
        MGlobal::executeCommand(CommandName + " -doOffset", false, true);
        fPendingOffsets.clear();
    }
    fBusy = false;
}

// Offsets are kept in internal units: a distance or an angle scales the
// same way in every unit, so the spread looks the same in any scene unit.
void Manager::recordDelta(const MObject& delta)
{
    double before = 0.0, now = 0.0;
    unsigned int index = 0;
    MObject curveObject;
    if (delta.hasFn(MFn::kKeyframeDeltaAddRemove)) {
        MFnKeyframeDeltaAddRemove addRemove(delta);
        curveObject = addRemove.paramCurve();
        index = addRemove.keyIndex();
        now = addRemove.value();
        if (addRemove.deltaType() == MFnKeyframeDeltaAddRemove::kReplaced)
            before = addRemove.replacedValue();
        else if (addRemove.deltaType() == MFnKeyframeDeltaAddRemove::kAdded) {
            MFnAnimCurve curve(curveObject);
            before = valueWithoutKey(curve, index, addRemove.time());
        } else
            return;
    } else if (delta.hasFn(MFn::kKeyframeDeltaMove)) {
        MFnKeyframeDeltaMove move(delta);
        curveObject = move.paramCurve();
        index = move.keyIndex();
        before = move.previousValue();
        now = move.currentValue();
    } else
        return;
    // A key of the edit whose value stayed anchors the spread with 0.
    auto& entry = fPendingOffsets[MObjectHandle(curveObject).hashCode()];
    entry.first = curveObject;
    entry.second[index] = now - before;
}

bool Manager::doOffset(MAnimCurveChange& change)
{
    bool changed = false;
    for (const auto& [hash, entry] : fPendingOffsets) {
        const auto& [curveObject, offsets] = entry;
        if (!MObjectHandle(curveObject).isAlive())
            continue;
        MFnAnimCurve curve(curveObject);
        const unsigned int keys = curve.numKeys();
        for (unsigned int i = 0; i < keys; ++i) {
            if (offsets.count(i))
                continue;
            const MTime t = curve.time(i);
            if (!timeInRange(t, fSpanStart, fSpanEnd))
                continue;
            const auto after = offsets.upper_bound(i);
            double d = 0.0;
            if (after == offsets.begin())
                d = after->second;
            else if (after == offsets.end())
                d = std::prev(after)->second;
            else {
                const auto before = std::prev(after);
                const double t0 = curve.time(before->first).value();
                const double t1 = curve.time(after->first).value();
                d = lerp(before->second, after->second, (t.value() - t0) / (t1 - t0));
            }
            curve.setValue(i, curve.value(i) + d, &change);
            changed = true;
        }
    }
    fPendingOffsets.clear();
    // The echo of these edits is no user's edit.
    if (changed)
        fIgnoreNextEdits = true;
    return changed;
}

} // namespace AnimationOffset
