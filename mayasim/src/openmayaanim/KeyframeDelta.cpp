// The keyframe delta objects and their function sets.
#include "openmayaanim/KeyEvents.h"

#include <maya/MFnKeyframeDeltaAddRemove.h>
#include <maya/MFnKeyframeDeltaInfType.h>
#include <maya/MFnKeyframeDeltaMove.h>
#include <maya/MFnKeyframeDeltaTangent.h>
#include <maya/MFnKeyframeDeltaWeighted.h>

namespace mayasim::anim {

MFn::Type KeyframeDelta::apiType() const
{
    switch (kind)
    {
    case Kind::Move: return MFn::kKeyframeDeltaMove;
    case Kind::AddRemove: return MFn::kKeyframeDeltaAddRemove;
    case Kind::Tangent: return MFn::kKeyframeDeltaTangent;
    case Kind::Infinity: return MFn::kKeyframeDeltaInfType;
    case Kind::Weighted: return MFn::kKeyframeDeltaWeighted;
    }
    return MFn::kKeyframeDelta;
}

bool KeyframeDelta::hasFn(MFn::Type type) const
{
    return type == apiType() || type == MFn::kKeyframeDelta || type == MFn::kBase;
}

const KeyframeDelta* keyframeDelta(const MObject& object)
{
    return dynamic_cast<const KeyframeDelta*>(sharedObject(object).get());
}

} // namespace mayasim::anim

namespace {

using mayasim::anim::KeyframeDelta;

// The delta a function set is attached to; reads fail without one.
template <typename Result, typename Read>
Result read(const MObject& object, MStatus* status, Result fallback, Read&& answer)
{
    const KeyframeDelta* delta = mayasim::anim::keyframeDelta(object);
    if (status)
        *status = delta ? MS::kSuccess : MS::kFailure;
    return delta ? answer(*delta) : fallback;
}

MTime timeOf(double seconds)
{
    MTime time(seconds, MTime::kSeconds);
    time.setUnit(MTime::uiUnit());
    return time;
}

} // namespace

// --- MFnKeyframeDelta -----------------------------------------------------------

MFnKeyframeDelta::MFnKeyframeDelta() = default;

MFnKeyframeDelta::MFnKeyframeDelta(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDelta::MFnKeyframeDelta(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDelta::~MFnKeyframeDelta() = default;

MFn::Type MFnKeyframeDelta::type() const
{
    return MFn::kKeyframeDelta;
}

MObject MFnKeyframeDelta::paramCurve(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MObject(), [](const KeyframeDelta& d) { return d.curve; });
}

unsigned int MFnKeyframeDelta::keyIndex(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, 0u, [](const KeyframeDelta& d) { return d.index; });
}

const char* MFnKeyframeDelta::className()
{
    return "MFnKeyframeDelta";
}

// --- MFnKeyframeDeltaMove -------------------------------------------------------

MFnKeyframeDeltaMove::MFnKeyframeDeltaMove() = default;

MFnKeyframeDeltaMove::MFnKeyframeDeltaMove(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaMove::MFnKeyframeDeltaMove(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaMove::~MFnKeyframeDeltaMove() = default;

MFn::Type MFnKeyframeDeltaMove::type() const
{
    return MFn::kKeyframeDeltaMove;
}

MTime MFnKeyframeDeltaMove::previousTime(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MTime(), [](const KeyframeDelta& d) { return timeOf(d.previousInput); });
}

MTime MFnKeyframeDeltaMove::currentTime(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MTime(), [](const KeyframeDelta& d) { return timeOf(d.input); });
}

double MFnKeyframeDeltaMove::previousValue(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, 0.0, [](const KeyframeDelta& d) { return d.previousValue; });
}

double MFnKeyframeDeltaMove::currentValue(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, 0.0, [](const KeyframeDelta& d) { return d.value; });
}

unsigned int MFnKeyframeDeltaMove::previousIndex(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, 0u, [](const KeyframeDelta& d) { return d.previousIndex; });
}

unsigned int MFnKeyframeDeltaMove::keyIndex(MStatus* ReturnStatus) const
{
    return MFnKeyframeDelta::keyIndex(ReturnStatus);
}

const char* MFnKeyframeDeltaMove::className()
{
    return "MFnKeyframeDeltaMove";
}

// --- MFnKeyframeDeltaAddRemove --------------------------------------------------

MFnKeyframeDeltaAddRemove::MFnKeyframeDeltaAddRemove() = default;

MFnKeyframeDeltaAddRemove::MFnKeyframeDeltaAddRemove(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaAddRemove::MFnKeyframeDeltaAddRemove(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaAddRemove::~MFnKeyframeDeltaAddRemove() = default;

MFn::Type MFnKeyframeDeltaAddRemove::type() const
{
    return MFn::kKeyframeDeltaAddRemove;
}

MFnKeyframeDeltaAddRemove::DeltaType MFnKeyframeDeltaAddRemove::deltaType(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, kAdded,
                [](const KeyframeDelta& d) { return static_cast<DeltaType>(d.addRemove); });
}

double MFnKeyframeDeltaAddRemove::value(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, 0.0, [](const KeyframeDelta& d) { return d.value; });
}

MTime MFnKeyframeDeltaAddRemove::time(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MTime(), [](const KeyframeDelta& d) { return timeOf(d.input); });
}

unsigned int MFnKeyframeDeltaAddRemove::keyIndex(MStatus* ReturnStatus) const
{
    return MFnKeyframeDelta::keyIndex(ReturnStatus);
}

double MFnKeyframeDeltaAddRemove::replacedValue(MStatus* ReturnStatus) const
{
    // Only a replacing key has a value it replaced.
    const KeyframeDelta* delta = mayasim::anim::keyframeDelta(fObject);
    const bool replaced = delta && delta->addRemove == KeyframeDelta::Replaced;
    if (ReturnStatus)
        *ReturnStatus = replaced ? MS::kSuccess : MS::kFailure;
    return replaced ? delta->previousValue : 0.0;
}

const char* MFnKeyframeDeltaAddRemove::className()
{
    return "MFnKeyframeDeltaAddRemove";
}

// --- MFnKeyframeDeltaTangent ----------------------------------------------------

MFnKeyframeDeltaTangent::MFnKeyframeDeltaTangent() = default;

MFnKeyframeDeltaTangent::MFnKeyframeDeltaTangent(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaTangent::MFnKeyframeDeltaTangent(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaTangent::~MFnKeyframeDeltaTangent() = default;

MFn::Type MFnKeyframeDeltaTangent::type() const
{
    return MFn::kKeyframeDeltaTangent;
}

MFnAnimCurve::TangentType MFnKeyframeDeltaTangent::previousTangentType(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MFnAnimCurve::kTangentGlobal,
                [](const KeyframeDelta& d) { return static_cast<MFnAnimCurve::TangentType>(d.previousType); });
}

MFnAnimCurve::TangentType MFnKeyframeDeltaTangent::currentTangentType(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MFnAnimCurve::kTangentGlobal,
                [](const KeyframeDelta& d) { return static_cast<MFnAnimCurve::TangentType>(d.type); });
}

MStatus MFnKeyframeDeltaTangent::getPreviousPosition(MFnAnimCurve::TangentValue& x,
                                                     MFnAnimCurve::TangentValue& y) const
{
    MStatus status;
    const mayasim::anim::Tangent t =
        read(fObject, &status, mayasim::anim::Tangent{}, [](const KeyframeDelta& d) { return d.previousTangent; });
    x = t.x;
    y = t.y;
    return status;
}

MStatus MFnKeyframeDeltaTangent::getCurrentPosition(MFnAnimCurve::TangentValue& x,
                                                    MFnAnimCurve::TangentValue& y) const
{
    MStatus status;
    const mayasim::anim::Tangent t =
        read(fObject, &status, mayasim::anim::Tangent{}, [](const KeyframeDelta& d) { return d.tangent; });
    x = t.x;
    y = t.y;
    return status;
}

bool MFnKeyframeDeltaTangent::isInTangent(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, false,
                [](const KeyframeDelta& d) { return d.side == mayasim::anim::Side::In; });
}

const char* MFnKeyframeDeltaTangent::className()
{
    return "MFnKeyframeDeltaTangent";
}

// --- MFnKeyframeDeltaInfType ----------------------------------------------------

MFnKeyframeDeltaInfType::MFnKeyframeDeltaInfType() = default;

MFnKeyframeDeltaInfType::MFnKeyframeDeltaInfType(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaInfType::MFnKeyframeDeltaInfType(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaInfType::~MFnKeyframeDeltaInfType() = default;

MFn::Type MFnKeyframeDeltaInfType::type() const
{
    return MFn::kKeyframeDeltaInfType;
}

MFnAnimCurve::InfinityType MFnKeyframeDeltaInfType::previousInfinityType(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MFnAnimCurve::kConstant,
                [](const KeyframeDelta& d) { return static_cast<MFnAnimCurve::InfinityType>(d.previousInfinity); });
}

MFnAnimCurve::InfinityType MFnKeyframeDeltaInfType::currentInfinityType(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, MFnAnimCurve::kConstant,
                [](const KeyframeDelta& d) { return static_cast<MFnAnimCurve::InfinityType>(d.infinity); });
}

bool MFnKeyframeDeltaInfType::isPreInfinity(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, false,
                [](const KeyframeDelta& d) { return d.side == mayasim::anim::Side::In; });
}

const char* MFnKeyframeDeltaInfType::className()
{
    return "MFnKeyframeDeltaInfType";
}

// --- MFnKeyframeDeltaWeighted ---------------------------------------------------

MFnKeyframeDeltaWeighted::MFnKeyframeDeltaWeighted() = default;

MFnKeyframeDeltaWeighted::MFnKeyframeDeltaWeighted(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaWeighted::MFnKeyframeDeltaWeighted(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnKeyframeDeltaWeighted::~MFnKeyframeDeltaWeighted() = default;

MFn::Type MFnKeyframeDeltaWeighted::type() const
{
    return MFn::kKeyframeDeltaWeighted;
}

bool MFnKeyframeDeltaWeighted::wasWeighted(MStatus* ReturnStatus) const
{
    return read(fObject, ReturnStatus, false, [](const KeyframeDelta& d) { return d.wasWeighted; });
}

const char* MFnKeyframeDeltaWeighted::className()
{
    return "MFnKeyframeDeltaWeighted";
}
