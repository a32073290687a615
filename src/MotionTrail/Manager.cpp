#include "MotionTrail/Manager.h"

#include "MotionTrail/Node.h"
#include "Utils/Nodes/Node.h"

#include <maya/M3dView.h>
#include <maya/MAnimControl.h>
#include <maya/MConditionMessage.h>
#include <maya/MDagPath.h>
#include <maya/MEventMessage.h>
#include <maya/MFnCamera.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#include <maya/MPointArray.h>
#include <maya/MStringArray.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace MotionTrail {

namespace {

std::unique_ptr<Manager>& held()
{
    static std::unique_ptr<Manager> manager;
    return manager;
}

unsigned int hashOf(const MObject& node) { return MObjectHandle(node).hashCode(); }

MStringArray modelPanels()
{
    MStringArray panels;
    MGlobal::executeCommand("getPanel -type \"modelPanel\"", panels);
    return panels;
}

// The camera of a model panel; an invalid path when the panel has none.
MDagPath cameraOf(const MString& panel)
{
    M3dView view;
    MDagPath camera;
    if (M3dView::getM3dViewFromModelPanel(panel, view))
        view.getCamera(camera);
    return camera;
}

// Sorted and without repeats; a queue has room for every id, so an insert
// allocates nothing.
void insertSorted(std::vector<unsigned int>& queue, unsigned int id)
{
    const auto at = std::lower_bound(queue.begin(), queue.end(), id);
    if (at == queue.end() || *at != id)
        queue.insert(at, id);
}

// One visit for each queued cache; those done, gone or dead leave the queue.
template <typename Caches>
void visitQueued(std::vector<unsigned int>& queue, Caches& caches)
{
    size_t kept = 0;
    for (const unsigned int id : queue) {
        const auto found = caches.find(id);
        if (found == caches.end() || !found->second.exists())
            continue;
        if (!found->second.processOneFrame())
            queue[kept++] = id;
    }
    queue.resize(kept);
}

constexpr unsigned int NoPoint = 999999999;

double alphaAt(const std::vector<double>& alphas, unsigned int i) { return i < alphas.size() ? alphas[i] : 1.0; }

MColor withAlpha(const MColor& color, double alpha)
{
    return MColor(color.r, color.g, color.b, static_cast<float>(alpha));
}

void drawLine(const TrailStyle& style, const MPointArray& points, const std::vector<double>& alphas,
              MHWRender::MUIDrawManager& drawManager)
{
    if ((style.lineStyle != AlternatingLine && style.lineStyle != SolidLine) || points.length() < 2)
        return;
    drawManager.setLineWidth(static_cast<float>(style.lineSize));
    for (unsigned int i = 0; i + 1 < points.length(); ++i) {
        const bool secondary = style.lineStyle == AlternatingLine && i % 2 == 1;
        drawManager.setColor(withAlpha(secondary ? style.secondaryLineColor : style.mainLineColor, alphaAt(alphas, i)));
        drawManager.line2d(points[i], points[i + 1]);
    }
}

void drawPoints(const TrailStyle& style, const MPointArray& points, const std::vector<double>& alphas,
                MHWRender::MUIDrawManager& drawManager)
{
    if (style.pointsStyle == CirclePoints) {
        const double radius = style.pointsSize * 0.5;
        for (unsigned int i = 0; i < points.length(); ++i) {
            drawManager.setColor(withAlpha(style.pointsColor, alphaAt(alphas, i)));
            drawManager.circle2d(points[i], radius, true);
        }
    } else if (style.pointsStyle == PlainPoints) {
        // One point at a time: the colour changes from point to point.
        drawManager.setPointSize(static_cast<float>(style.pointsSize));
        MPointArray one(1);
        for (unsigned int i = 0; i < points.length(); ++i) {
            drawManager.setColor(withAlpha(style.pointsColor, alphaAt(alphas, i)));
            one[0] = points[i];
            drawManager.points(one, true);
        }
    }
}

// Fades from 1 at now to 0 at the range's end on each side, at a
// square-root rate; a side of no length doesn't fade.
double fadeAlpha(double value, double now, double before, double after)
{
    double alpha = 1.0;
    if (value >= now) {
        if (after > 0.0)
            alpha = 1.0 - std::sqrt((value - now) / after);
    } else if (before > 0.0) {
        alpha = 1.0 - std::sqrt((now - value) / before);
    }
    return std::max(alpha, 0.0);
}

} // namespace

Manager& Manager::instance()
{
    std::unique_ptr<Manager>& manager = held();
    if (!manager)
        manager.reset(new Manager);
    return *manager;
}

void Manager::destroy() { held().reset(); }

Manager::~Manager()
{
    resetAll();
    resetPendingWork();
}

void Manager::ensureNode()
{
    MSelectionList named;
    if (named.add(NodeName))
        named.getDependNode(0, fTrailNode);
    if (!isValidObject(fTrailNode)) {
        MFnDependencyNode node;
        fTrailNode = node.create(NodeName, NodeName);
    }
}

void Manager::toggleSelection(const MSelectionList& list)
{
    if (!isValidObject(fTrailNode)) {
        // The first trail of a new life of the subsystem.
        resetAll();
        resetPendingWork();
        ensureNode();
        fCallbacks.append(MEventMessage::addEventCallback("PreFileNewOrOpened", sceneOpening, this));
        fCallbacks.append(MConditionMessage::addConditionCallback("playblasting", playblastChanged, this));
        fCallbacks.append(MEventMessage::addEventCallback("modelEditorChanged", editorChanged, this));
        refreshEnabledCameras();
    }
    const MObjectArray objects = transformsOf(list);
    for (unsigned int i = 0; i < objects.length(); ++i) {
        const unsigned int id = hashOf(objects[i]);
        if (fTrails.erase(id) == 0) {
            fPendingTrails.reserve(fTrails.size() + 1);
            fTrails.emplace(std::piecewise_construct, std::forward_as_tuple(id), std::forward_as_tuple(objects[i]));
        }
    }
    if (fTrails.empty()) {
        resetAll();
        resetPendingWork();
    }
}

void Manager::resetAll()
{
    MMessage::removeCallbacks(fCallbacks);
    fCallbacks.clear();
    fTrails.clear();
    fCameraCaches.clear();
    fEnabledCameras.clear();
    fPlayblasting = false;
    if (!isValidObject(fTrailNode))
        return;
    // The node's transform goes with it: no empty transform is left behind.
    MFnDagNode node(fTrailNode);
    MObject parent = node.parentCount() > 0 ? node.parent(0) : MObject::kNullObj;
    if (!parent.isNull() && parent.hasFn(MFn::kTransform) && MFnDagNode(parent).childCount() == 1)
        MGlobal::deleteNode(parent);
    else
        MGlobal::deleteNode(fTrailNode);
    fTrailNode = MObject::kNullObj;
}

void Manager::enableCameraSpace()
{
    if (fTrails.empty())
        return;
    ensureNode();
    fCameraSpaceActive = true;
    const MStringArray panels = modelPanels();
    for (unsigned int i = 0; i < panels.length(); ++i) {
        const MDagPath camera = cameraOf(panels[i]);
        if (!camera.isValid() || MFnCamera(camera).isOrtho())
            continue;
        const unsigned int id = hashOf(camera.node());
        if (fCameraCaches.count(id) == 0) {
            fPendingCameras.reserve(fCameraCaches.size() + 1);
            fCameraCaches.emplace(std::piecewise_construct, std::forward_as_tuple(id),
                                  std::forward_as_tuple(camera.node()));
        }
    }
}

void Manager::disableCameraSpace()
{
    if (fCameraCaches.empty())
        return;
    fCameraCaches.clear();
    // Trails waiting to be filled stay queued: the panel's button sends
    // this right after making a trail.
    fPendingCameras.clear();
    if (fPendingTrails.empty())
        resetPendingWork();
    fCameraSpaceActive = false;
    M3dView::scheduleRefreshAllViews();
}

void Manager::refreshEnabledCameras()
{
    fEnabledCameras.clear();
    const MStringArray panels = modelPanels();
    for (unsigned int i = 0; i < panels.length(); ++i) {
        int shows = 0;
        MGlobal::executeCommand("modelEditor -query -motionTrails " + panels[i], shows);
        const MDagPath camera = cameraOf(panels[i]);
        if (shows != 0 && camera.isValid())
            fEnabledCameras.insert(hashOf(camera.node()));
    }
}

template <typename Edit>
void Manager::editStyles(const MSelectionList& list, Edit edit)
{
    const MObjectArray objects = transformsOf(list);
    if (objects.length() == 0)
        return;
    for (unsigned int i = 0; i < objects.length(); ++i) {
        const auto found = fTrails.find(hashOf(objects[i]));
        if (found != fTrails.end())
            edit(found->second.style);
    }
    M3dView::scheduleRefreshAllViews();
}

void Manager::setColor(const MSelectionList& list, const MColor& color, TrailAspect part)
{
    editStyles(list, [&](TrailStyle& style) {
        switch (part) {
        case Points: style.pointsColor = color; break;
        case Line: style.mainLineColor = color; break;
        case SecondaryLine: style.secondaryLineColor = color; break;
        case CurrentFrame: style.currentFrameColor = color; break;
        default: break;
        }
    });
}

void Manager::setSize(const MSelectionList& list, double size, TrailAspect part)
{
    editStyles(list, [&](TrailStyle& style) {
        switch (part) {
        case Points: style.pointsSize = size; break;
        case Line: style.lineSize = size; break;
        case CurrentFrame: style.currentFrameSize = size; break;
        default: break;
        }
    });
}

void Manager::setVisible(const MSelectionList& list, bool visible, TrailAspect part)
{
    editStyles(list, [&](TrailStyle& style) {
        if (visible)
            style.visibleParts |= part;
        else
            style.visibleParts &= ~static_cast<uint32_t>(part);
    });
}

void Manager::setStyle(const MSelectionList& list, TrailAspect part, TrailAspect value)
{
    editStyles(list, [&](TrailStyle& style) { (part == Points ? style.pointsStyle : style.lineStyle) = value; });
}

void Manager::setFalloff(const MSelectionList& list, bool falloff)
{
    editStyles(list, [&](TrailStyle& style) { style.transparencyFalloff = falloff; });
}

void Manager::enqueueTrail(unsigned int id)
{
    insertSorted(fPendingTrails, id);
    startIdleWork();
}

void Manager::enqueueCamera(unsigned int id)
{
    insertSorted(fPendingCameras, id);
    startIdleWork();
}

void Manager::startIdleWork()
{
    if (fIdleCallback != 0)
        return;
    MStatus status;
    fIdleCallback = MEventMessage::addEventCallback("idle", onIdle, this, &status);
    if (!status) {
        fIdleCallback = 0;
        resetPendingWork();
    }
}

void Manager::resetPendingWork()
{
    // clear keeps the room the queues have.
    fPendingCameras.clear();
    fPendingTrails.clear();
    if (fIdleCallback != 0) {
        MMessage::removeCallback(fIdleCallback);
        fIdleCallback = 0;
    }
}

void Manager::idleTick()
{
    visitQueued(fPendingCameras, fCameraCaches);
    visitQueued(fPendingTrails, fTrails);
    if (fPendingCameras.empty() && fPendingTrails.empty()) {
        M3dView::scheduleRefreshAllViews();
        resetPendingWork();
    }
}

const Trail* Manager::trail(unsigned int id) const
{
    const auto found = fTrails.find(id);
    return found == fTrails.end() ? nullptr : &found->second;
}

void Manager::draw(const MDagPath& camera, MHWRender::MUIDrawManager& drawManager,
                   const MHWRender::MFrameContext& frameContext)
{
    const unsigned int cameraId = hashOf(camera.node());
    if (fEnabledCameras.count(cameraId) == 0 || fPlayblasting)
        return;
    drawManager.beginDrawable(MHWRender::MUIDrawManager::kAutomatic, 0);
    for (auto entry = fTrails.begin(); entry != fTrails.end();) {
        // The one place where the trail of a deleted object goes.
        if (!entry->second.exists()) {
            entry = fTrails.erase(entry);
            continue;
        }
        const CameraCache* cameraCache = nullptr;
        if (fCameraSpaceActive) {
            const auto found = fCameraCaches.find(cameraId);
            if (found != fCameraCaches.end())
                cameraCache = &found->second;
        }
        drawTrail(entry->second, cameraCache, camera, drawManager, frameContext);
        ++entry;
    }
    drawManager.endDrawable();
}

void Manager::drawTrail(const Trail& trail, const CameraCache* cameraCache, const MDagPath& camera,
                        MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext& frameContext)
{
    const MMatrix cameraNow = cameraCache ? camera.inclusiveMatrix() : MMatrix();
    MPointArray points;
    std::vector<double> alphas;
    int originX = 0, originY = 0, width = 0, height = 0;
    frameContext.getViewportDimensions(originX, originY, width, height);

    const MTime current = MAnimControl::currentTime();
    const double now = current.value();
    const double before = now - trail.rangeStart().value(), after = trail.rangeEnd().value() - now;
    unsigned int currentIndex = NoPoint;
    // No more frames than a trail can hold, however long the range.
    int64_t left = FrameFlags::MaxSpan + 1;
    for (MTime time = trail.rangeStart(); time <= trail.rangeEnd() && left > 0; ++time, --left) {
        const Frame frame = frameOf(time);
        const TrailFrame* held = trail.frame(frame);
        if (!held)
            continue;
        MPoint point = held->point;
        // Where the point stood relative to the camera at its frame, carried
        // to where the camera is now.
        if (cameraCache)
            point = point * cameraCache->matrix(frame) * cameraNow;
        double x = 0.0, y = 0.0;
        frameContext.worldToViewport(point, x, y);
        if (!(x >= 0.0 && x <= width && y >= 0.0 && y <= height))
            continue;
        points.append(MPoint(x, y, 0.0, 1.0));
        alphas.push_back(trail.style.transparencyFalloff ? fadeAlpha(time.value(), now, before, after) : 1.0);
        if (time == current)
            currentIndex = points.length() - 1;
    }

    const TrailStyle& style = trail.style;
    if (style.visibleParts & Line)
        drawLine(style, points, alphas, drawManager);
    if (style.visibleParts & Points)
        drawPoints(style, points, alphas, drawManager);
    if ((style.visibleParts & CurrentFrame) && currentIndex != NoPoint) {
        drawManager.setColor(style.currentFrameColor);
        drawManager.circle2d(points[currentIndex], style.currentFrameSize, true);
    }
}

void Manager::sceneOpening(void* data)
{
    auto* manager = static_cast<Manager*>(data);
    manager->resetAll();
    manager->resetPendingWork();
}

void Manager::playblastChanged(bool state, void* data) { static_cast<Manager*>(data)->fPlayblasting = state; }

void Manager::editorChanged(void* data) { static_cast<Manager*>(data)->refreshEnabledCameras(); }

void Manager::onIdle(void* data) { static_cast<Manager*>(data)->idleTick(); }

} // namespace MotionTrail
