#pragma once
// The animation offset mode: while it is on, the change a user makes to keys
// spreads to the other keys of those curves within a span of time.
#include <maya/MAnimCurveChange.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>
#include <maya/MTime.h>

#include <map>
#include <unordered_map>
#include <utility>

namespace AnimationOffset {

class Manager
{
public:
    // Made on first use; lives until the process ends, off after unload.
    static Manager& instance();

    bool isActive() const { return fActive; }
    // Turns the mode on (with the span of the selected keys, else the
    // highlighted range, else the playback range) or off.
    void toggle();
    // Off, with the band hidden and the callbacks gone: a new scene, unload.
    void stop();
    // Applies the pending offsets to the other keys of their curves in the
    // span; true when a key was changed.
    bool doOffset(MAnimCurveChange& change);

private:
    Manager() = default;

    void installCallbacks();
    void removeCallbacks();
    void keyframeEdited(const MObjectArray& deltas);
    void recordDelta(const MObject& delta);

    static void onKeyframeEdited(MObjectArray& deltas, void* clientData);
    static void onUndoOrRedo(void* clientData);
    static void onNewScene(void* clientData);

    bool fActive = false;
    MTime fSpanStart;
    MTime fSpanEnd;
    MCallbackIdArray fCallbackIds;
    // Per curve (by handle hash): the curve and its edited keys' offsets,
    // in internal units.
    std::unordered_map<unsigned int, std::pair<MObject, std::map<unsigned int, double>>> fPendingOffsets;
    // Set while the callback runs: the key edits it makes itself (the spread,
    // the look at a curve without an added key) come back through it.
    bool fBusy = false;
    // The next key edits are the echo of an undo, a redo or the spread, not
    // a user's edit; cleared by them or at the next idle.
    bool fIgnoreNextEdits = false;
    int fIgnoreTask = 0;
};

} // namespace AnimationOffset
