#pragma once
#include "MotionTrail/Frames.h"
#include "MotionTrail/Style.h"
#include "Utils/Nodes/Transform.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MDagMessage.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MMatrix.h>
#include <maya/MNodeMessage.h>
#include <maya/MObjectArray.h>
#include <maya/MObjectHandle.h>
#include <maya/MPoint.h>
#include <maya/MTime.h>

namespace MotionTrail {

// One cached frame of a trail.
struct TrailFrame
{
    // The rotate pivot as a translation, times the parent matrix.
    MMatrix matrix;
    // The translate channel times matrix: the point drawn.
    MPoint point;
};

// What a visit does to a dirty frame of a trail; the last event wins for the
// whole trail.
enum class RecomputeMode : uint32_t
{
    // The parents did not change: re-read translate under the stored matrix
    // of a frame held, leave a frame not held missing.
    Refresh = 0,
    // Recompute the matrix and the point.
    Full = 1,
    // As Full, for frames not held only.
    MissingOnly = 2
};

// The frames of one object over the playback range, brought up to date one
// frame per idle tick, outward from the current time, after scene events
// have marked them dirty. Its callbacks take it as client data, so it never
// moves in memory.
class Cache
{
public:
    Cache(const Cache&) = delete;
    Cache& operator=(const Cache&) = delete;
    virtual ~Cache();

    // Every frame of the playback range.
    void markAllFrames();
    // The frames from the key before each edited key to the key after it.
    void markEditedFrames(const MObjectArray& editedKeys);
    // The next time of the walk: the centre, then one after, one before, two
    // after..., one side alone once the other end is reached.
    MTime nextFrame();
    // Visits the next time; true when no frame is dirty any more.
    bool processOneFrame();

    unsigned int id() const { return fId; }
    // Whether the object is in the scene: a deleted node that the undo
    // queue keeps alive counts as gone.
    bool exists() const { return fHandle.isValid(); }
    const MTime& rangeStart() const { return fRangeStart; }
    const MTime& rangeEnd() const { return fRangeEnd; }
    const FrameFlags& dirtyFrames() const { return fDirty; }

protected:
    explicit Cache(const MObject& object);

    // The playback range read again; the dirty frames cleared.
    void readRange();
    // The walk starts again from the current time (the range start when
    // the current time lies outside the range).
    void restartWalk();
    // Kept to be removed with the cache.
    void registerCallback(MCallbackId id) { fCallbacks.append(id); }
    MObject& object() { return fObject; }
    TransformReader& reader() { return fReader; }

private:
    virtual void computeFrame(const MTime& time, Frame frame) = 0;

    MObject fObject;
    MObjectHandle fHandle;
    unsigned int fId;
    TransformReader fReader;
    MCallbackIdArray fCallbacks;
    // The curve of the last delta marked and its key count, held from
    // message to message: the key slider's edits come one key at a time,
    // many in a row on one curve, and only a key added or removed changes
    // the count.
    MObject fEditedCurve;
    MFnAnimCurve fEditedCurveFn;
    unsigned int fEditedCurveKeys = 0;
    uint32_t fReachedEnds = 0;
    uint32_t fDirection = 2;
    MTime fRangeStart;
    MTime fCenter;
    MTime fRangeEnd;
    MTime fStep;
    FrameFlags fDirty;
};

// The trail of one object: where its pivot is at each frame.
class Trail : public Cache
{
public:
    // Registers the callbacks, marks every frame and queues the trail.
    explicit Trail(const MObject& object);

    void resetWalk(RecomputeMode mode);
    const TrailFrame* frame(Frame number) const { return fFrames.find(number); }
    RecomputeMode mode() const { return fMode; }

    TrailStyle style;

private:
    void computeFrame(const MTime& time, Frame frame) override;
    void enqueue();

    static void attributeChanged(MNodeMessage::AttributeMessage, MPlug&, MPlug&, void* data);
    static void worldMatrixModified(MObject&, MDagMessage::MatrixModifiedFlags&, void* data);
    static void playbackRangeChanged(void* data);
    static void keysEdited(MObjectArray& editedKeys, void* data);

    RecomputeMode fMode = RecomputeMode::Full;
    FrameMap<TrailFrame> fFrames;
};

// A perspective camera's world inverse matrix at each frame, for trails
// drawn as seen from a moving camera.
class CameraCache : public Cache
{
public:
    explicit CameraCache(const MObject& camera);

    void resetWalk() { restartWalk(); }
    // The identity for a frame not computed yet.
    MMatrix matrix(Frame number) const;

private:
    void computeFrame(const MTime& time, Frame frame) override;
    void enqueue();

    static void worldMatrixModified(MObject&, MDagMessage::MatrixModifiedFlags&, void* data);
    static void playbackRangeChanged(void* data);
    static void keysEdited(MObjectArray& editedKeys, void* data);

    FrameMap<MMatrix> fMatrices;
};

} // namespace MotionTrail
