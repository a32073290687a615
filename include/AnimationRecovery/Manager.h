#pragma once
#include "AnimationRecovery/FileManager.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>

#include <QJsonArray>
#include <QJsonObject>

#include <cstdint>
#include <unordered_map>
#include <maya/MApiNamespace.h>

namespace AnimationRecovery {

// Background saving of edited curves and of the layer tree. Callbacks only note which curves
// changed; the idle handler encodes one curve or writes one file a tick, so
// an edit never waits for the disk. One for the whole session, until unload.
class Manager
{
public:
    enum PendingWork : std::uint32_t
    {
        EncodeCurves = 1,
        WriteCurves = 2,
        EncodeLayers = 4,
        WriteLayers = 8,
    };

    static Manager& instance();

    // Starts recording on the open scene, giving it an identity node first;
    // false when that node can't be had.
    bool enable();
    // Stops recording and drops whatever waits to be saved.
    bool disable();
    bool enabled() const { return fEnabled; }
    // Rebuilds the curves saved since the scene file was last written, with
    // the command's modifier and change; recording is as it was afterwards.
    bool restore(MAnimCurveChange& change, MDGModifier& modifier);

private:
    Manager() = default;

    void startAnimCallbacks();
    void pauseAnimCallbacks();
    void ensureIdle();
    void removeIdle();
    // One step of the saving; false when nothing is left to do.
    bool idleStep();
    // The scene's recovery folder; a scene without its identity node takes the
    // folder whose curves drive its nodes, and says so.
    QString recoveryFolder() const;
    bool restoreAnimation(const QString& folder, MAnimCurveChange& change, MDGModifier& modifier);
    void removeLayerTimer();

    static void onCurvesEdited(MObjectArray& editedCurves, void* clientData);
    static void onIdle(void* clientData);
    static void onStart(void* clientData);
    static void onPause(void* clientData);
    static void onLayersChanged(void* clientData);
    static void onLayerTimer(float elapsedTime, float lastTime, void* clientData);

    bool fEnabled = false;
    std::uint32_t fPendingWork = 0;
    MCallbackIdArray fSceneCallbacks;
    MCallbackIdArray fAnimCallbacks;
    // One second after the last layer event, the layers are saved.
    MCallbackId fLayerTimer = 0;
    bool fHasLayerTimer = false;
    FileManager fFiles;
    // Curves waiting to be encoded, by MObjectHandle::hashCode.
    std::unordered_map<unsigned int, MObject> fEditedCurves;
    QJsonObject fPendingCurves;
    QJsonArray fPendingLayers;
    // The idle callback while one exists.
    MCallbackId fIdleCallback = 0;
    bool fHasIdleCallback = false;
};

} // namespace AnimationRecovery
