#include "MotionTrail/Trail.h"

#include "MotionTrail/Manager.h"

#include <maya/MAnimControl.h>
#include <maya/MAnimMessage.h>
#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDagPath.h>
#include <maya/MEventMessage.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MFnKeyframeDelta.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace MotionTrail {

namespace {

// Bits of the walk's reachedEnds, and its directions.
constexpr uint32_t ReachedStart = 1;
constexpr uint32_t ReachedEnd = 2;
constexpr uint32_t Backward = 1;
constexpr uint32_t Forward = 2;

MDagPath pathTo(const MObject& object)
{
    MDagPath path;
    MDagPath::getAPathTo(object, path);
    return path;
}

} // namespace

Cache::Cache(const MObject& object)
    : fObject(object), fHandle(object), fId(fHandle.hashCode()), fReader(object), fStep(0.0, MTime::uiUnit())
{
    readRange();
}

Cache::~Cache()
{
    MMessage::removeCallbacks(fCallbacks);
    fCallbacks.clear();
}

void Cache::readRange()
{
    fRangeStart = MAnimControl::minTime();
    fRangeEnd = MAnimControl::maxTime();
    fDirty.setSpan(frameOf(fRangeStart), frameOf(fRangeEnd));
}

void Cache::restartWalk()
{
    fReachedEnds = 0;
    fDirection = Forward;
    fStep = MTime(0.0, MTime::uiUnit());
    fCenter = MAnimControl::currentTime();
    if (fCenter < fRangeStart || fCenter > fRangeEnd)
        fCenter = fRangeStart;
}

void Cache::markAllFrames()
{
    const double last = fRangeEnd.value();
    // Whole steps from the start, as many as the span holds: one more, as a
    // fractional start below zero files two steps under frame 0.
    const size_t count = fDirty.span() + 1;
    double f = fRangeStart.value();
    for (size_t i = 0; i < count && last >= f; ++i, f += 1.0)
        fDirty.insert(frameOf(f));
}

void Cache::markEditedFrames(const MObjectArray& editedKeys)
{
    const double start = fRangeStart.value(), end = fRangeEnd.value();
    // Deltas come curve by curve: the curve is looked at once for each run
    // of its deltas, and again only when a key came or went. A key's own
    // deltas (its move, then its tangents) follow each other and mark the
    // same frames: only the first of them is looked at. Neighbouring keys
    // share the times they read: each time is read once while the keys stay.
    const MFnAnimCurve& curve = fEditedCurveFn;
    unsigned int lastKey = ~0u;
    std::array<std::pair<unsigned int, double>, 4> timesRead;
    size_t timesKnown = 0, nextSlot = 0;
    const auto timeOfKey = [&](unsigned int index) {
        for (size_t j = 0; j < timesKnown; ++j)
            if (timesRead[j].first == index)
                return timesRead[j].second;
        const double time = curve.time(index).value();
        timesRead[nextSlot] = {index, time};
        nextSlot = (nextSlot + 1) % timesRead.size();
        timesKnown = std::min(timesKnown + 1, timesRead.size());
        return time;
    };
    for (unsigned int i = 0; i < editedKeys.length(); ++i) {
        MFnKeyframeDelta delta(editedKeys[i]);
        const MObject edited = delta.paramCurve();
        const unsigned int k = delta.keyIndex();
        const bool keysChanged = editedKeys[i].hasFn(MFn::kKeyframeDeltaAddRemove);
        if (edited != fEditedCurve || keysChanged) {
            if (edited != fEditedCurve) {
                fEditedCurve = edited;
                fEditedCurveFn.setObject(fEditedCurve);
            }
            fEditedCurveKeys = curve.numKeys();
            timesKnown = 0;
        } else if (k == lastKey) {
            continue;
        }
        lastKey = k;
        const unsigned int count = fEditedCurveKeys;
        if (count == 0)
            continue;
        const unsigned int a = k == 0 ? 0 : std::min(k, count) - 1;
        const unsigned int b = k + 1 < count ? k + 1 : std::min(k, count - 1);
        const double from = timeOfKey(a), to = timeOfKey(b);
        // Whole steps from the earlier key, from the first one in the range
        // on: a span far wider than the range costs no more than the range.
        const double skipped = start > from ? std::ceil(start - from) : 0.0;
        for (double step = skipped; from + step <= to && from + step <= end; step += 1.0)
            fDirty.insert(frameOf(from + step));
    }
}

MTime Cache::nextFrame()
{
    if (fStep.value() == 0.0) {
        ++fStep;
        return fCenter;
    }
    MTime time;
    if (fDirection == Forward) {
        time = fCenter + fStep;
        if (time >= fRangeEnd)
            fReachedEnds |= ReachedEnd;
        if (!(fReachedEnds & ReachedStart))
            fDirection = Backward;
        else
            ++fStep;
        return time;
    }
    time = fCenter - fStep;
    if (time <= fRangeStart)
        fReachedEnds |= ReachedStart;
    if (!(fReachedEnds & ReachedEnd))
        fDirection = Forward;
    ++fStep;
    return time;
}

bool Cache::processOneFrame()
{
    const MTime time = nextFrame();
    const Frame frame = frameOf(time);
    if (fDirty.contains(frame)) {
        computeFrame(time, frame);
        fDirty.erase(frame);
    }
    // Past both ends every frame of the range has had its visit; a frame
    // still dirty then could never be reached, and would keep the queue
    // running for good.
    if (fReachedEnds == (ReachedStart | ReachedEnd) && time > fRangeEnd + 1.0)
        fDirty.clear();
    return fDirty.empty();
}

Trail::Trail(const MObject& object) : Cache(object)
{
    fFrames.widen(frameOf(rangeStart()), frameOf(rangeEnd()));
    MDagPath path = pathTo(object);
    registerCallback(MNodeMessage::addAttributeChangedCallback(this->object(), attributeChanged, this));
    registerCallback(MDagMessage::addWorldMatrixModifiedCallback(path, worldMatrixModified, this));
    registerCallback(MEventMessage::addEventCallback("playbackRangeChanged", playbackRangeChanged, this));
    registerCallback(MAnimMessage::addAnimKeyframeEditedCallback(keysEdited, this));
    markAllFrames();
    resetWalk(RecomputeMode::Full);
    enqueue();
}

void Trail::resetWalk(RecomputeMode mode)
{
    fMode = mode;
    restartWalk();
}

void Trail::enqueue() { Manager::instance().enqueueTrail(id()); }

void Trail::computeFrame(const MTime& time, Frame number)
{
    const TrailFrame* held = fFrames.find(number);
    if ((fMode == RecomputeMode::Refresh && !held) || (fMode == RecomputeMode::MissingOnly && held))
        return;
    const MDGContext context(time);
    TrailFrame value;
    if (fMode == RecomputeMode::Refresh) {
        value.matrix = held->matrix;
    } else {
        MDGContextGuard guard(context);
        const MPoint pivot = reader().rotatePivot();
        MMatrix pivotMatrix;
        pivotMatrix[3][0] = pivot.x;
        pivotMatrix[3][1] = pivot.y;
        pivotMatrix[3][2] = pivot.z;
        value.matrix = pivotMatrix * reader().parentMatrix();
    }
    value.point = reader().position(false, context) * value.matrix;
    fFrames.set(number, value);
}

void Trail::attributeChanged(MNodeMessage::AttributeMessage, MPlug&, MPlug&, void* data)
{
    auto* trail = static_cast<Trail*>(data);
    trail->resetWalk(RecomputeMode::Refresh);
    trail->markAllFrames();
    trail->enqueue();
}

void Trail::worldMatrixModified(MObject&, MDagMessage::MatrixModifiedFlags&, void* data)
{
    if (!data)
        return;
    auto* trail = static_cast<Trail*>(data);
    trail->resetWalk(RecomputeMode::Full);
    trail->markAllFrames();
    trail->enqueue();
}

void Trail::playbackRangeChanged(void* data)
{
    if (!data)
        return;
    auto* trail = static_cast<Trail*>(data);
    trail->readRange();
    trail->fFrames.widen(frameOf(trail->rangeStart()), frameOf(trail->rangeEnd()));
    trail->resetWalk(RecomputeMode::MissingOnly);
    trail->markAllFrames();
    trail->enqueue();
}

void Trail::keysEdited(MObjectArray& editedKeys, void* data)
{
    auto* trail = static_cast<Trail*>(data);
    if (!trail->exists())
        return;
    trail->markEditedFrames(editedKeys);
    trail->resetWalk(RecomputeMode::Full);
    trail->enqueue();
}

CameraCache::CameraCache(const MObject& camera) : Cache(camera)
{
    fMatrices.widen(frameOf(rangeStart()), frameOf(rangeEnd()));
    MDagPath path = pathTo(camera);
    registerCallback(MDagMessage::addWorldMatrixModifiedCallback(path, worldMatrixModified, this));
    registerCallback(MEventMessage::addEventCallback("playbackRangeChanged", playbackRangeChanged, this));
    registerCallback(MAnimMessage::addAnimKeyframeEditedCallback(keysEdited, this));
    resetWalk();
    markAllFrames();
    enqueue();
}

MMatrix CameraCache::matrix(Frame number) const
{
    const MMatrix* held = fMatrices.find(number);
    return held ? *held : MMatrix();
}

void CameraCache::enqueue() { Manager::instance().enqueueCamera(id()); }

void CameraCache::computeFrame(const MTime& time, Frame number)
{
    fMatrices.set(number, reader().worldInverseMatrix(MDGContext(time)));
}

void CameraCache::worldMatrixModified(MObject&, MDagMessage::MatrixModifiedFlags&, void* data)
{
    if (!data)
        return;
    auto* camera = static_cast<CameraCache*>(data);
    camera->markAllFrames();
    camera->resetWalk();
    camera->enqueue();
}

void CameraCache::playbackRangeChanged(void* data)
{
    if (!data)
        return;
    auto* camera = static_cast<CameraCache*>(data);
    camera->readRange();
    camera->fMatrices.widen(frameOf(camera->rangeStart()), frameOf(camera->rangeEnd()));
    camera->resetWalk();
    camera->markAllFrames();
    camera->enqueue();
}

void CameraCache::keysEdited(MObjectArray& editedKeys, void* data)
{
    auto* camera = static_cast<CameraCache*>(data);
    if (!camera->exists())
        return;
    camera->markEditedFrames(editedKeys);
    camera->resetWalk();
    camera->enqueue();
}

} // namespace MotionTrail
