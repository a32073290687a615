#pragma once
// The key-edit messages. Every change of a curve that is in the scene
// becomes keyframe deltas (MFnKeyframeDelta objects) and marks its curve
// as edited; both are delivered together after the action: when the
// outermost MEL run ends, or at once for API edits made outside MEL.
#include "openmayaanim/AnimCurveData.h"

#include <maya/MObject.h>
#include <mayasim/Object.h>

namespace mayasim::anim {

class KeyframeDelta : public Object
{
public:
    enum class Kind
    {
        Move,
        AddRemove,
        Tangent,
        Infinity,
        Weighted
    };
    enum AddRemoveType // MFnKeyframeDeltaAddRemove::DeltaType
    {
        Added,
        Removed,
        Replaced
    };

    KeyframeDelta(Kind kind, MObject curve, unsigned int index) : kind(kind), curve(std::move(curve)), index(index) {}
    MFn::Type apiType() const override;
    bool hasFn(MFn::Type type) const override;

    Kind kind;
    MObject curve;
    unsigned int index;
    unsigned int previousIndex = 0;
    // Move: before and after; AddRemove: the key (after), the replaced value (before).
    double previousInput = 0.0, input = 0.0; // seconds on time-input curves
    double previousValue = 0.0, value = 0.0;
    AddRemoveType addRemove = Added;
    // Tangent: one side of the key.
    Side side = Side::In;
    TangentType previousType = TangentType::Auto, type = TangentType::Auto;
    Tangent previousTangent, tangent;
    // Infinity: one end of the curve.
    InfinityType previousInfinity = InfinityType::Constant, infinity = InfinityType::Constant;
    bool wasWeighted = false;
};

// The delta behind an MObject, or null.
const KeyframeDelta* keyframeDelta(const MObject& object);

// While it lives, a key set at `input` on the curve over a key that is
// there reads as a replaced key (addKey, setKeyframe), not as a move.
class KeyReplacement
{
public:
    KeyReplacement(const AnimCurveData& curve, double input);
    ~KeyReplacement();
    KeyReplacement(const KeyReplacement&) = delete;
    KeyReplacement& operator=(const KeyReplacement&) = delete;

    static bool active(const AnimCurveData& curve, double input);

private:
    const AnimCurveData* fCurve;
    double fInput;
};

// Delivers what is pending now.
void deliverKeyEdits();

} // namespace mayasim::anim
