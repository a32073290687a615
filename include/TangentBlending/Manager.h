#pragma once
#include "CollectAnimation/DataBase.h"

#include <maya/MAngle.h>
#include <maya/MAnimCurveChange.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObject.h>

#include <QString>

#include <vector>
#include <maya/MApiNamespace.h>

namespace TangentBlending {

// The tangent types both tangent tools offer, by index: "Linear" to "Step".
constexpr int TangentTypeCount = 7;
constexpr int DefaultTangentType = 5; // "Auto"
QString tangentTypeName(int type);
MFnAnimCurve::TangentType tangentType(int type);
// One line per type: the name padded to 27 characters, " => ", the index.
QString tangentTypeList();

// One collected key with its tangents at collection and the targets a type gives.
struct TangentKey : CollectAnimation::KeyInfo
{
    MAngle oldInAngle{};
    double oldInWeight = 0.0;
    MAngle oldOutAngle{};
    double oldOutWeight = 0.0;
    bool tangentsLocked = false;
    MAngle targetInAngle{0.0, MAngle::kRadians};
    double targetInWeight = 1.0;
    MAngle targetOutAngle{0.0, MAngle::kRadians};
    double targetOutWeight = 1.0;
    bool hasInSide = false;
    bool hasOutSide = false;
};

struct TangentCurve
{
    MObject curve;
    std::vector<TangentKey> keys;
};

// The collection of the tangent blend: the keys and what their tangents were.
class Tangent : public CollectAnimation::DataBase
{
public:
    explicit Tangent(MAnimCurveChange* change) : DataBase(change) {}

    void collect(const MSelectionList& selection);
    // Asks Maya what the type gives each collected key, then takes it back.
    void computeTargets(MFnAnimCurve::TangentType type);
    const std::vector<TangentCurve>& curves() const { return fCurves; }

private:
    std::vector<TangentCurve> fCurves;
};

// The logic behind OVTangentBlending: one collection, then any number of
// blend steps, each from the tangents captured at collection.
class Manager
{
public:
    Manager() : fTangent(&fChange) {}

    void setBlendType(int type);
    int blendType() const { return fBlendType; }
    void setInTangent(bool on) { fInTangent = on; }
    void setOutTangent(bool on) { fOutTangent = on; }

    void collect(const MSelectionList& selection);
    void apply(double blend);
    MAnimCurveChange& animCurveChange() { return fChange; }

private:
    bool fInTangent = false;
    bool fOutTangent = false;
    int fBlendType = DefaultTangentType;
    MAnimCurveChange fChange;
    Tangent fTangent;
};

// The Manager of the slider drag in progress, or null.
extern Manager* activeData;

} // namespace TangentBlending
