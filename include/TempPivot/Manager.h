#pragma once
// The temporary pivot: a transform the user places, whose moves are turned
// into moves of the objects it was made for.
#include "Utils/Nodes/Transform.h"
#include "Utils/UndoChunk.h"

#include <maya/MCallbackIdArray.h>
#include <maya/MMatrix.h>
#include <maya/MNodeMessage.h>
#include <maya/MObjectArray.h>
#include <maya/MSelectionList.h>
#include <maya/MTime.h>

#include <QString>

#include <cstdint>
#include <vector>

namespace TempPivot {

// One object moved by the pivot.
struct PivotTarget
{
    TransformReader object;
    // The object's world matrix times the inverse of the pivot's.
    MMatrix relativeMatrix;
};

class Manager
{
public:
    // Made on first use; lives until the process ends, off after unload.
    static Manager& instance();

    bool isEnabled() const { return fEnabled; }
    void setModes(bool center, bool lastObject, bool worldSpace);
    // Makes the pivot for the transforms of the list; false when there is none.
    bool enable(const MSelectionList& list);
    // Ends the activation: the pivot saved and deleted, every callback and
    // task gone. Always true.
    bool disable();
    bool toggleEdit();
    bool reset();

    // The pivot node, null while off.
    const MObject& pivotNode() const { return fPivot.object(); }
    // The objects the pivot moves, those still alive, in their order: what
    // the pivot stands for while it alone is selected.
    MSelectionList targetList() const;
    // Turns the pivot node's attribute changes into xform calls on the targets.
    void applyPivotMove();
    // Where the open scene's pivots are kept; empty without a scene identity.
    static QString pivotFilePath();

private:
    Manager() = default;

    void attachTimeline(const MSelectionList& list);
    void detachTimeline();
    void createPivotObject();
    void alignToTarget();
    void centerOnTargets();
    void storeRelativeMatrices();
    void followTargets();
    void removeAttributeCallback();
    bool pivotAlive() const;
    void deletePivotNode();
    void savePivot();
    bool loadPivot(const QString& name, double pivot[3], double orientation[3]) const;
    void queueRefresh();
    void queueFollow();

    static void onPivotAttributeChanged(MNodeMessage::AttributeMessage message, MPlug& plug, MPlug& other,
                                        void* clientData);
    static void onSelectionChanged(void* clientData);
    static void onTimeChange(MTime& time, void* clientData);
    static void onCurvesEdited(MObjectArray& curves, void* clientData);
    static void onNewScene(void* clientData);
    static void onDragRelease(void* clientData);

    TransformReader fPivot{MObject::kNullObj};
    std::vector<PivotTarget> fTargets;
    double fPivotOrientation[3] = {0.0, 0.0, 0.0};
    MCallbackId fAttributeCallback = 0;
    MCallbackIdArray fActiveCallbacks;
    int32_t fCloseChunkTask = 0;
    int32_t fRefreshMatricesTask = 0;
    int32_t fFollowTask = 0;
    bool fCenterMode = false;
    bool fLastObjectMode = false;
    bool fWorldSpaceMode = false;
    bool fEnabled = false;
    const QString fConnectionName = QStringLiteral("TempPivotConnection");
    UndoChunk fUndoChunk{QStringLiteral("TempPivot")};
};

} // namespace TempPivot
