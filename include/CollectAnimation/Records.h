#pragma once
#include <maya/MAngle.h>
#include <maya/MFnAnimCurve.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MTime.h>

#include <QHash>
#include <QString>

#include <vector>

namespace CollectAnimation {

// Snapshot of one key, taken at collection.
struct KeyRecord
{
    MTime time;
    double value = 0.0;
    unsigned int index = 0;
    MFnAnimCurve::TangentType inTangentType = MFnAnimCurve::kTangentGlobal;
    MFnAnimCurve::TangentType outTangentType = MFnAnimCurve::kTangentGlobal;
    MAngle inAngle;
    double inWeight = 0.0;
    MAngle outAngle;
    double outWeight = 0.0;
    bool tangentsLocked = false;
    bool weightsLocked = false;
};

// Snapshot of one animation curve and all its keys.
struct CurveRecord
{
    MObject curve;
    bool isWeighted = false;
    MFnAnimCurve::AnimCurveType animCurveType = MFnAnimCurve::kAnimCurveUnknown;
    MFnAnimCurve::InfinityType preInfinity = MFnAnimCurve::kConstant;
    MFnAnimCurve::InfinityType postInfinity = MFnAnimCurve::kConstant;
    std::vector<KeyRecord> keys;
};

struct PlugRecord
{
    MPlug plug;
    std::vector<CurveRecord> curves;
};

struct NodeRecord
{
    MObject node;
    QHash<QString, QString> reserved;
    std::vector<PlugRecord> plugs;
};

// One key under edit. All keys of a run share the neighbours' values and
// times; at the ends of a curve a neighbour is the end key itself.
struct KeyInfo
{
    unsigned int index = 0;
    double value = 0.0;
    double leftValue = 0.0;
    double rightValue = 0.0;
    MTime time;
    MTime leftTime;
    MTime rightTime;
};

struct CurveKeys
{
    MObject curve;
    std::vector<KeyInfo> keys;
};

struct PlugKeys
{
    MPlug plug;
    std::vector<CurveKeys> curves;
};

struct NodeKeys
{
    MObject node;
    QHash<QString, QString> reserved;
    std::vector<PlugKeys> plugs;
};

} // namespace CollectAnimation
