#include "AnimationRecovery/Manager.h"

#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/SceneId/Manager.h"
#include "Utils/Nodes/SceneId/Node.h"
#include "Utils/Report.h"

#include <maya/MAnimMessage.h>
#include <maya/MEventMessage.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MGlobal.h>
#include <maya/MObjectHandle.h>
#include <maya/MSceneMessage.h>
#include <maya/MString.h>
#include <maya/MTimerMessage.h>

#include <QDir>

#include <algorithm>

namespace AnimationRecovery {

namespace {

// Scene events in before and after pairs: loading, importing and reference
// work pause recording and its end starts it again, so that what a file
// brings in isn't taken for edits.
static_assert(MSceneMessage::kBeforeRemoveReference == 16 && MSceneMessage::kAfterRemoveReference == 17
                  && MSceneMessage::kBeforeLoadReference == 36 && MSceneMessage::kAfterLoadReference == 37
                  && MSceneMessage::kBeforeCreateReference == 44 && MSceneMessage::kAfterCreateReference == 45,
              "the scene messages recovery pairs");

struct SceneEvent
{
    MSceneMessage::Message message;
    bool start;
};

const SceneEvent SceneEvents[] = {
    {MSceneMessage::kAfterOpen, true},
    {MSceneMessage::kBeforeRemoveReference, false},
    {MSceneMessage::kAfterRemoveReference, true},
    {MSceneMessage::kBeforeLoadReference, false},
    {MSceneMessage::kAfterLoadReference, true},
    {MSceneMessage::kBeforeCreateReference, false},
    {MSceneMessage::kAfterCreateReference, true},
    {MSceneMessage::kBeforeImport, false},
    {MSceneMessage::kAfterImport, true},
};

// Layer events: a burst of them comes to one save of the tree.
const char* const LayerEvents[] = {"animLayerRebuild", "animLayerLockChanged", "animLayerBaseLockChanged",
                                   "animLayerAnimationChanged"};

} // namespace

Manager& Manager::instance()
{
    static Manager manager;
    return manager;
}

bool Manager::enable()
{
    if (fEnabled)
        return true;
    if (!isValidObject(SceneId::manager().findOrCreateNode()))
        return false;
    startAnimCallbacks();
    fSceneCallbacks.append(MEventMessage::addEventCallback("PreFileNewOrOpened", onPause, this));
    for (const SceneEvent& event : SceneEvents)
        fSceneCallbacks.append(MSceneMessage::addCallback(event.message, event.start ? onStart : onPause, this));
    fEnabled = true;
    return true;
}

bool Manager::disable()
{
    removeIdle();
    MMessage::removeCallbacks(fAnimCallbacks);
    fAnimCallbacks.clear();
    MMessage::removeCallbacks(fSceneCallbacks);
    fSceneCallbacks.clear();
    removeLayerTimer();
    fEnabled = false;
    fPendingWork = 0;
    fEditedCurves.clear();
    fPendingCurves = QJsonObject();
    return true;
}

void Manager::startAnimCallbacks()
{
    // Curve edits rather than key edits: a change of tangent or weight locks
    // alone is no key edit, and a curve's one entry costs less than each key's.
    fAnimCallbacks.append(MAnimMessage::addAnimCurveEditedCallback(onCurvesEdited, this));
    for (const char* event : LayerEvents)
        fAnimCallbacks.append(MEventMessage::addEventCallback(event, onLayersChanged, this));
}

void Manager::pauseAnimCallbacks()
{
    // What is queued still gets saved.
    MMessage::removeCallbacks(fAnimCallbacks);
    fAnimCallbacks.clear();
}

void Manager::onStart(void* clientData) { static_cast<Manager*>(clientData)->startAnimCallbacks(); }

void Manager::onPause(void* clientData) { static_cast<Manager*>(clientData)->pauseAnimCallbacks(); }

void Manager::onCurvesEdited(MObjectArray& editedCurves, void* clientData)
{
    // Marking only: the saving waits for idle time.
    Manager& manager = *static_cast<Manager*>(clientData);
    for (unsigned int i = 0; i < editedCurves.length(); ++i)
        manager.fEditedCurves.try_emplace(MObjectHandle(editedCurves[i]).hashCode(), editedCurves[i]);
    manager.fPendingWork |= EncodeCurves;
    manager.ensureIdle();
}

void Manager::onLayersChanged(void* clientData)
{
    Manager& manager = *static_cast<Manager*>(clientData);
    manager.removeLayerTimer();
    manager.fLayerTimer = MTimerMessage::addTimerCallback(1.0f, onLayerTimer, clientData);
    manager.fHasLayerTimer = true;
}

void Manager::onLayerTimer(float, float, void* clientData)
{
    Manager& manager = *static_cast<Manager*>(clientData);
    manager.removeLayerTimer();
    manager.fPendingWork |= EncodeLayers;
    manager.ensureIdle();
}

void Manager::removeLayerTimer()
{
    if (!fHasLayerTimer)
        return;
    MMessage::removeCallback(fLayerTimer);
    fHasLayerTimer = false;
}

void Manager::ensureIdle()
{
    if (fHasIdleCallback)
        return;
    fIdleCallback = MEventMessage::addEventCallback("idle", onIdle, this);
    fHasIdleCallback = true;
}

void Manager::removeIdle()
{
    if (!fHasIdleCallback)
        return;
    MMessage::removeCallback(fIdleCallback);
    fHasIdleCallback = false;
}

void Manager::onIdle(void* clientData)
{
    Manager& manager = *static_cast<Manager*>(clientData);
    if (!manager.idleStep())
        manager.removeIdle();
}

bool Manager::idleStep()
{
    // A file holds at most this many curves, so that no tick's write grows
    // with the burst: a blend over a whole rig is saved in several files,
    // each curve whole in one of them.
    const int curvesPerFile = 50;
    if ((fPendingWork & EncodeCurves) && fPendingCurves.size() < curvesPerFile) {
        if (fEditedCurves.empty()) {
            fPendingWork &= ~EncodeCurves;
            return true;
        }
        // Encoded when its turn comes, so a curve edited again meanwhile is read once.
        const auto first = fEditedCurves.begin();
        // A curve deleted since keeps its name, and its empty record deletes it at restore,
        // unless another node bears the name now (a curve keyed anew, or one of a scene opened
        // since): that node's record is its own to write.
        MStatus status;
        const MString name = MFnDependencyNode(first->second).name(&status);
        if (status && name.length() > 0
            && (isValidObject(first->second) || !isValidObject(objectByName(name))))
            fPendingCurves.insert(QString::fromUtf8(name.asChar()), fFiles.encodeCurve(first->second));
        fPendingWork |= WriteCurves;
        fEditedCurves.erase(first);
        return true;
    }
    if (fPendingWork & WriteCurves) {
        // Without a folder (an untitled scene) the work goes as if written.
        fPendingWork &= ~WriteCurves;
        fFiles.writeCurves(fPendingCurves);
        fPendingCurves = QJsonObject();
        return true;
    }
    if (fPendingWork & EncodeLayers) {
        fPendingLayers = fFiles.encodeLayers();
        fPendingWork = (fPendingWork & ~EncodeLayers) | WriteLayers;
        return true;
    }
    if (fPendingWork & WriteLayers) {
        fPendingWork &= ~WriteLayers;
        fFiles.writeLayers(fPendingLayers);
        return true;
    }
    return false;
}

bool Manager::restore(MAnimCurveChange& change, MDGModifier& modifier)
{
    const bool wasEnabled = fEnabled;
    disable();
    const QString folder = recoveryFolder();
    // Layers first: restored curves drive their blend nodes.
    fFiles.restoreLayers(folder, std::max(fFiles.readLastModified(folder), fFiles.sceneFileTime()));
    restoreAnimation(folder, change, modifier);
    if (wasEnabled)
        enable();
    return true;
}

QString Manager::recoveryFolder() const
{
    if (isValidObject(objectByName(SceneId::NodeName)))
        return fFiles.sceneFolder();
    const QString folder = fFiles.folderDrivingThisScene();
    if (!folder.isEmpty())
        MGlobal::displayInfo(MString("OVAnimationRecovery: restoring from ")
                             + QDir::toNativeSeparators(folder).toUtf8().constData());
    return folder;
}

bool Manager::restoreAnimation(const QString& folder, MAnimCurveChange& change, MDGModifier& modifier)
{
    const qint64 recorded = fFiles.readLastModified(folder);
    if (recorded == 0) {
        OV_REPORT(QStringLiteral("faile to find last modified"), "restoreAnimation");
        return false;
    }
    // Only what was saved since both the last save recovery saw and the scene file as it is now.
    fFiles.applyAnimation(fFiles.readCurves(folder, std::max(recorded, fFiles.sceneFileTime())), modifier, change);
    return true;
}

} // namespace AnimationRecovery
