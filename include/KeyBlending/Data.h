#pragma once
#include "CollectAnimation/DataBase.h"
#include "KeyBlending/CurveShaping.h"
#include "KeyBlending/ScaleBlends.h"
#include "KeyBlending/SimplifyBakeKeys.h"
#include "KeyBlending/ValueOffset.h"
#include "KeyBlending/ValueOffsetStagger.h"
#include "KeyBlending/WorldSpace.h"
#include "Snapshot/Manager.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MTime.h>

#include <QString>
#include <maya/MApiNamespace.h>

namespace KeyBlending {

constexpr int BlendTypeCount = 25;

// The logic behind OVKeyBlending: one collection, then any number of blend
// steps, each computed from the values captured at collection.
class Data : public CollectAnimation::DataBase
{
public:
    Data();

    void setBlendType(int type);
    void setBlendType(double type);
    int blendType() const { return fBlendType; }
    void setFrameTimes(double start, double end);
    const MTime& startTime() const { return fStartTime; }
    const MTime& endTime() const { return fEndTime; }

    void collect(const MSelectionList& selection);
    void blend(double x);
    void finish();

    static QString blendTypeName(int type);
    static QString blendTypeList();
    MAnimCurveChange& animCurveChange() { return fChange; }

private:
    void tweenMachine(double x);

    int fBlendType = 0;
    MTime fStartTime;
    MTime fEndTime;
    MAnimCurveChange fChange;
    Infinity fInfinity;
    WorldSpace fWorldSpace;
    NeighborsWorldSpace fNeighborsWorldSpace;
    FrameWorldSpace fFrameWorldSpace;
    InfinityWorldSpace fInfinityWorldSpace;
    ScaleFromAverage fScaleAverage;
    ScaleFromFrame fScaleFrame;
    SimplifyBakeKeys fSimplify;
    NoiseWave fNoiseWave;
    SmoothRough fSmoothRough;
    GapSmoother fGapSmoother;
    ValueOffset fValueOffset;
    ValueOffsetStagger fValueOffsetStagger;
    Snapshot::Manager fDefaults;
    Snapshot::Manager fScaleDefaults;
    // Connect To Neighbors: whether the first movement of the drag has
    // chosen the side that lone keys widen to.
    bool fConnectSideChosen = false;
};

// The Data of the slider drag in progress, or null.
extern Data* activeData;

} // namespace KeyBlending
