#include "TangentBlending/Manager.h"

#include "Utils/Arithmetic.h"
#include "Utils/Report.h"

#include <maya/MSelectionList.h>

namespace TangentBlending {

Manager* activeData = nullptr;

namespace {

struct TangentTypeRow
{
    const char* name;
    MFnAnimCurve::TangentType type;
};

const TangentTypeRow tangentTypes[TangentTypeCount] = {
    {"Linear", MFnAnimCurve::kTangentLinear},   {"Plateau", MFnAnimCurve::kTangentPlateau},
    {"Flat", MFnAnimCurve::kTangentFlat},       {"Clamped", MFnAnimCurve::kTangentClamped},
    {"Spline", MFnAnimCurve::kTangentSmooth},   {"Auto", MFnAnimCurve::kTangentAuto},
    {"Step", MFnAnimCurve::kTangentStep},
};

bool isTangentType(int type) { return type >= 0 && type < TangentTypeCount; }

// One side of a key, part of the way from its tangent at collection to the target.
void blendSide(MFnAnimCurve& fn, unsigned int index, bool inSide, const MAngle& oldAngle, double oldWeight,
               const MAngle& targetAngle, double targetWeight, double blend, bool weighted, MAnimCurveChange* change)
{
    fn.setAngle(index, MAngle(lerp(oldAngle.asRadians(), targetAngle.asRadians(), blend), MAngle::kRadians), inSide,
                change);
    if (weighted)
        fn.setWeight(index, lerp(oldWeight, targetWeight, blend), inSide, change);
}

} // namespace

QString tangentTypeName(int type)
{
    return isTangentType(type) ? QString::fromLatin1(tangentTypes[type].name) : QString();
}

MFnAnimCurve::TangentType tangentType(int type)
{
    return isTangentType(type) ? tangentTypes[type].type : MFnAnimCurve::kTangentGlobal;
}

QString tangentTypeList()
{
    QString list;
    for (int type = 0; type < TangentTypeCount; ++type)
        list += tangentTypeName(type).leftJustified(27, QLatin1Char(' ')) + QStringLiteral(" => ")
                + QString::number(type) + QStringLiteral("\n");
    return list;
}

void Tangent::collect(const MSelectionList& selection)
{
    fCurves.clear();
    DataBase::collect(selection);
    for (const CollectAnimation::NodeKeys& node : nodes()) {
        for (const CollectAnimation::PlugKeys& plug : node.plugs) {
            for (const CollectAnimation::CurveKeys& curve : plug.curves) {
                const MFnAnimCurve fn(curve.curve);
                const unsigned int numKeys = fn.numKeys();
                TangentCurve record{curve.curve, {}};
                for (const CollectAnimation::KeyInfo& info : curve.keys) {
                    TangentKey key{info};
                    fn.getTangent(info.index, key.oldInAngle, key.oldInWeight, true);
                    fn.getTangent(info.index, key.oldOutAngle, key.oldOutWeight, false);
                    key.tangentsLocked = fn.tangentsLocked(info.index);
                    key.hasInSide = info.index != 0;
                    key.hasOutSide = info.index + 1 < numKeys;
                    record.keys.push_back(key);
                }
                fCurves.push_back(std::move(record));
            }
        }
    }
}

// A type's angles depend on the neighbouring keys, so Maya computes them:
// the type goes on the whole curve and comes off again before anything shows.
void Tangent::computeTargets(MFnAnimCurve::TangentType type)
{
    for (TangentCurve& curve : fCurves) {
        MFnAnimCurve fn(curve.curve);
        MAnimCurveChange probe;
        const unsigned int numKeys = fn.numKeys();
        for (unsigned int index = 0; index < numKeys; ++index) {
            fn.setInTangentType(index, type, &probe);
            fn.setOutTangentType(index, type, &probe);
        }
        for (TangentKey& key : curve.keys) {
            if (key.index >= numKeys)
                continue;
            MAngle angle;
            double weight = 0.0;
            if (key.hasInSide && fn.getTangent(key.index, angle, weight, true)) {
                key.targetInAngle = angle;
                key.targetInWeight = weight;
            }
            if (key.hasOutSide && fn.getTangent(key.index, angle, weight, false)) {
                key.targetOutAngle = angle;
                key.targetOutWeight = weight;
            }
        }
        probe.undoIt();
    }
}

void Manager::setBlendType(int type)
{
    fBlendType = type;
    if (!isTangentType(type)) {
        OV_REPORT(QStringLiteral("Invalid Blend Type\nThe Default Blend Type ") + tangentTypeName(DefaultTangentType)
                      + QStringLiteral(" Will Be Used\n\nValid Blend Types is:\n") + tangentTypeList(),
                  "setBlendType");
        fBlendType = DefaultTangentType;
    }
}

void Manager::collect(const MSelectionList& selection)
{
    fTangent.collect(selection);
    if (isTangentType(fBlendType))
        fTangent.computeTargets(tangentType(fBlendType));
}

// Linear from the tangents at collection to the targets; at 1 and beyond the
// key takes the type itself. Locked tangents are opened for the write, since
// writing one side of a locked key turns the other.
void Manager::apply(double blend)
{
    const MFnAnimCurve::TangentType type = tangentType(fBlendType);
    const bool towardType = blend >= 1.0; // a NaN blends
    for (const TangentCurve& curve : fTangent.curves()) {
        MFnAnimCurve fn(curve.curve);
        const bool weighted = fn.isWeighted();
        for (const TangentKey& key : curve.keys) {
            fn.setTangentsLocked(key.index, false, &fChange);
            const bool in = fInTangent && key.hasInSide;
            const bool out = fOutTangent && key.hasOutSide;
            if (towardType) {
                if (in)
                    fn.setInTangentType(key.index, type, &fChange);
                if (out)
                    fn.setOutTangentType(key.index, type, &fChange);
            } else {
                if (in)
                    blendSide(fn, key.index, true, key.oldInAngle, key.oldInWeight, key.targetInAngle,
                              key.targetInWeight, blend, weighted, &fChange);
                if (out)
                    blendSide(fn, key.index, false, key.oldOutAngle, key.oldOutWeight, key.targetOutAngle,
                              key.targetOutWeight, blend, weighted, &fChange);
            }
            fn.setTangentsLocked(key.index, key.tangentsLocked, &fChange);
        }
    }
}

} // namespace TangentBlending
