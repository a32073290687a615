#pragma once
#include "AnimationRecovery/FileManager.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MMessage.h>
#include <maya/MObject.h>
#include <maya/MObjectArray.h>

#include <QJsonObject>

#include <cstdint>
#include <unordered_map>
#include <maya/MApiNamespace.h>

namespace AnimationRecovery {

// Background saving of edited curves. Callbacks only note which curves
// changed; the idle handler encodes one curve or writes one file a tick, so
// an edit never waits for the disk. One for the whole session, until unload.
class Manager
{
public:
    enum PendingWork : std::uint32_t
    {
        EncodeCurves = 1,
        WriteCurves = 2,
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
    bool restoreAnimation(MAnimCurveChange& change, MDGModifier& modifier);

    static void onKeysEdited(MObjectArray& editedKeys, void* clientData);
    static void onIdle(void* clientData);
    static void onStart(void* clientData);
    static void onPause(void* clientData);

    bool fEnabled = false;
    std::uint32_t fPendingWork = 0;
    MCallbackIdArray fSceneCallbacks;
    MCallbackIdArray fAnimCallbacks;
    FileManager fFiles;
    // Curves waiting to be encoded, by MObjectHandle::hashCode.
    std::unordered_map<unsigned int, MObject> fEditedCurves;
    QJsonObject fPendingCurves;
    // The idle callback while one exists.
    MCallbackId fIdleCallback = 0;
    bool fHasIdleCallback = false;
};

} // namespace AnimationRecovery
