#pragma once
#include "MotionTrail/Style.h"
#include "MotionTrail/Trail.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MColor.h>
#include <maya/MFrameContext.h>
#include <maya/MObject.h>
#include <maya/MSelectionList.h>
#include <maya/MUIDrawManager.h>

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace MotionTrail {

// Owns every trail and camera cache, the locator that draws them, and what
// decides where they are drawn. Lives from first use to unload.
class Manager
{
public:
    static Manager& instance();
    static void destroy();
    ~Manager();
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    // A trail on each object of the list that has none; the trails of the
    // others go.
    void toggleSelection(const MSelectionList& list);
    // Every trail, camera cache and callback goes, and the locator.
    void resetAll();
    void enableCameraSpace();
    void disableCameraSpace();
    // Style edits of the listed objects' trails; part is a TrailAspect part.
    void setColor(const MSelectionList& list, const MColor& color, TrailAspect part);
    void setSize(const MSelectionList& list, double size, TrailAspect part);
    void setVisible(const MSelectionList& list, bool visible, TrailAspect part);
    void setStyle(const MSelectionList& list, TrailAspect part, TrailAspect style);
    void setFalloff(const MSelectionList& list, bool falloff);

    // The idle queue holds ids, looked up at each tick, so that a trail
    // removed while queued is simply not found.
    void enqueueTrail(unsigned int id);
    void enqueueCamera(unsigned int id);
    void resetPendingWork();

    // Draws every trail into a view of the camera, when the view shows them.
    void draw(const MDagPath& camera, MHWRender::MUIDrawManager& drawManager,
              const MHWRender::MFrameContext& frameContext);

    // For the tests: what is held.
    const Trail* trail(unsigned int id) const;
    size_t trailCount() const { return fTrails.size(); }
    size_t cameraCacheCount() const { return fCameraCaches.size(); }
    bool cameraSpaceActive() const { return fCameraSpaceActive; }
    bool hasPendingWork() const { return fIdleCallback != 0; }

private:
    Manager() = default;

    void ensureNode();
    void refreshEnabledCameras();
    // The trails of the listed objects get the edit; then the views redraw.
    template <typename Edit>
    void editStyles(const MSelectionList& list, Edit edit);
    void drawTrail(const Trail& trail, const CameraCache* cameraCache, const MDagPath& camera,
                   MHWRender::MUIDrawManager& drawManager, const MHWRender::MFrameContext& frameContext);
    // The idle callback, unless there is one.
    void startIdleWork();
    void idleTick();

    static void sceneOpening(void* data);
    static void playblastChanged(bool state, void* data);
    static void editorChanged(void* data);
    static void onIdle(void* data);

    MObject fTrailNode;
    bool fPlayblasting = false;
    std::unordered_map<unsigned int, CameraCache> fCameraCaches;
    std::unordered_map<unsigned int, Trail> fTrails;
    std::unordered_set<unsigned int> fEnabledCameras;
    MCallbackIdArray fCallbacks;
    bool fCameraSpaceActive = false;

    // The queue, each kept sorted, with room for every trail and camera so
    // that queueing allocates nothing.
    std::vector<unsigned int> fPendingCameras;
    std::vector<unsigned int> fPendingTrails;
    MCallbackId fIdleCallback = 0;
};

} // namespace MotionTrail
