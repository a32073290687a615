#include <maya/MFnAnimCurve.h>

#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/ChangeLog.h"
#include "openmayaanim/KeyEvents.h"
#include "scene/Api.h"
#include "scene/Namespaces.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <maya/MAnimCurveChange.h>
#include <maya/MDGModifier.h>
#include <maya/MDistance.h>

#include <cctype>

using namespace mayasim;
using anim::AnimCurveData;
using anim::Side;

namespace {

// The anim curve a function set is attached to.
struct Curve
{
    NodePtr node;
    const anim::CurveKind* kind = nullptr;
    std::shared_ptr<AnimCurveData> data;

    explicit operator bool() const { return data != nullptr; }
    bool hasKey(unsigned int index) const { return index < data->size(); }
    const anim::Key& key(unsigned int index) const { return data->key(index); }

    // How the UI shows the input and the value: frames (or plain numbers)
    // against the UI's distance, angle or time unit.
    double inputScale() const { return kind->timeInput ? MTime(1.0, MTime::kSeconds).as(MTime::uiUnit()) : 1.0; }
    double valueScale() const
    {
        switch (kind->output)
        {
        case anim::OutputUnit::Angle: return MAngle::internalToUI(1.0);
        case anim::OutputUnit::Distance: return MDistance::internalToUI(1.0);
        case anim::OutputUnit::Time: return MTime(1.0, MTime::kSeconds).as(MTime::uiUnit());
        case anim::OutputUnit::Unitless: break;
        }
        return 1.0;
    }
};

Curve curveOf(const MObject& object)
{
    Curve curve;
    curve.node = nodePtr(object);
    curve.kind = curve.node ? anim::curveKind(*curve.node) : nullptr;
    if (curve.kind)
        curve.data = anim::curveData(*curve.node);
    return curve;
}

double secondsOf(const MTime& time)
{
    return anim::wholeTicks(time.as(MTime::kSeconds));
}

MTime timeOf(double seconds)
{
    MTime time(seconds, MTime::kSeconds);
    time.setUnit(MTime::uiUnit());
    return time;
}

Side sideOf(bool inTangent)
{
    return inTangent ? Side::In : Side::Out;
}

anim::TangentType typeOf(MFnAnimCurve::TangentType type)
{
    return static_cast<anim::TangentType>(type);
}

anim::EditSink* logOf(MAnimCurveChange* change)
{
    return anim::ChangeLog::of(change);
}

// A query: the curve's answer, or the fallback with a failed status when
// there is no curve or the index or input kind doesn't fit.
template <typename Result, typename Answer>
Result query(const MObject& object, MStatus* status, Result fallback, Answer&& answer)
{
    const Curve curve = curveOf(object);
    MStatus result = curve ? MS::kSuccess : MS::kInvalidParameter;
    Result value = curve ? answer(curve, result) : fallback;
    setStatus(status, result.statusCode());
    return result ? value : fallback;
}

// A read of one key: the fallback and kInvalidParameter for an index out of range.
template <typename Result, typename Answer>
Result keyQuery(const MObject& object, unsigned int index, MStatus* status, Result fallback, Answer&& answer)
{
    return query(object, status, fallback, [&](const Curve& curve, MStatus& result) {
        if (!curve.hasKey(index))
        {
            result = MS::kInvalidParameter;
            return fallback;
        }
        return answer(curve, curve.key(index), result);
    });
}

// An edit: refused without a curve, on a curve read from a referenced file
// (its key edits would have no place in the scene's file), and on a curve
// whose output drives a locked plug (keys of a locked attribute can't
// change).
template <typename Work> MStatus editCurve(const MObject& object, Work&& work)
{
    const Curve curve = curveOf(object);
    if (!curve)
        return MS::kInvalidParameter;
    if (curve.node->origin)
        return MS::kFailure;
    for (const auto& [key, destinations] : curve.node->outgoing)
        for (const PlugAddress& destination : destinations)
            if (NodePtr target = destination.lock(); target && ops::locked(*target, destination.key))
                return MS::kFailure;
    return work(curve);
}

template <typename Work> MStatus editKey(const MObject& object, unsigned int index, Work&& work)
{
    return editCurve(object, [&](const Curve& curve) -> MStatus {
        if (!curve.hasKey(index))
            return MS::kInvalidParameter;
        return work(curve);
    });
}

unsigned int addKeyAt(const MObject& object, bool timeInput, double input, double value,
                      MFnAnimCurve::TangentType inType, MFnAnimCurve::TangentType outType, MAnimCurveChange* change,
                      MStatus* status)
{
    unsigned int index = 0;
    MStatus result = editCurve(object, [&](const Curve& curve) -> MStatus {
        if (curve.kind->timeInput != timeInput || !anim::isTangentType(inType) || !anim::isTangentType(outType))
            return MS::kInvalidParameter;
        const anim::KeyReplacement replacing(*curve.data, input); // a key over a key is reported replaced
        index =
            static_cast<unsigned int>(curve.data->addKey(input, value, typeOf(inType), typeOf(outType), logOf(change)));
        return MS::kSuccess;
    });
    setStatus(status, result.statusCode());
    return index;
}

bool findAt(const MObject& object, bool timeInput, double input, unsigned int& index, MStatus* status)
{
    return query(object, status, false, [&](const Curve& curve, MStatus& result) {
        std::size_t at = 0;
        if (curve.kind->timeInput != timeInput)
            result = MS::kInvalidParameter;
        else if (curve.data->find(input, at))
            index = static_cast<unsigned int>(at);
        else
            return false;
        return true;
    });
}

unsigned int closestTo(const MObject& object, bool timeInput, double input, MStatus* status)
{
    return query(object, status, 0u, [&](const Curve& curve, MStatus& result) {
        if (curve.kind->timeInput != timeInput || curve.data->size() == 0)
        {
            result = MS::kInvalidParameter;
            return 0u;
        }
        return static_cast<unsigned int>(curve.data->findClosest(input));
    });
}

MStatus evaluateAt(const MObject& object, bool timeInput, double input, bool timeOutput, double& value)
{
    MStatus status;
    value = query(object, &status, 0.0, [&](const Curve& curve, MStatus& result) {
        if (curve.kind->timeInput != timeInput || (timeOutput && curve.kind->output != anim::OutputUnit::Time))
            result = MS::kInvalidParameter;
        return curve.data->evaluate(input);
    });
    return status;
}

MStatus setInputOf(const MObject& object, unsigned int index, bool timeInput, double input, MAnimCurveChange* change)
{
    return editKey(object, index, [&](const Curve& curve) -> MStatus {
        if (curve.kind->timeInput != timeInput)
            return MS::kInvalidParameter;
        return curve.data->setInput(index, input, logOf(change)) ? MS::kSuccess : MS::kFailure;
    });
}

MStatus setTangentTypeOf(const MObject& object, unsigned int index, Side side, MFnAnimCurve::TangentType type,
                         MAnimCurveChange* change)
{
    return editKey(object, index, [&](const Curve& curve) -> MStatus {
        return curve.data->setTangentType(index, side, typeOf(type), logOf(change)) ? MS::kSuccess
                                                                                    : MS::kInvalidParameter;
    });
}

MStatus setInfinityOf(const MObject& object, Side side, MFnAnimCurve::InfinityType type, MAnimCurveChange* change)
{
    return editCurve(object, [&](const Curve& curve) -> MStatus {
        if (!anim::isInfinityType(type))
            return MS::kInvalidParameter;
        curve.data->setInfinity(side, static_cast<anim::InfinityType>(type), logOf(change));
        return MS::kSuccess;
    });
}

// The name Maya gives a curve made for a plug: "pCube1_translateX", without
// the node's namespace (the curve goes into the current one).
std::string curveNameFor(const Node& node, const PlugKey& key)
{
    std::string name = ns::baseName(node.name) + "_" + plugName(node, key, {false, true, false, false});
    for (char& c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_')
            c = '_';
    return name;
}

MFnAnimCurve::AnimCurveType timedTypeFor(const Attribute& attribute)
{
    switch (attribute.unitType)
    {
    case MFnUnitAttribute::kAngle: return MFnAnimCurve::kAnimCurveTA;
    case MFnUnitAttribute::kDistance: return MFnAnimCurve::kAnimCurveTL;
    case MFnUnitAttribute::kTime: return MFnAnimCurve::kAnimCurveTT;
    default: return MFnAnimCurve::kAnimCurveTU;
    }
}

} // namespace

MFnAnimCurve::MFnAnimCurve() = default;

MFnAnimCurve::MFnAnimCurve(MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

MFnAnimCurve::MFnAnimCurve(const MObject& object, MStatus* ReturnStatus)
{
    attach(object, ReturnStatus);
}

// Attaches to the anim curve that drives the plug.
MFnAnimCurve::MFnAnimCurve(const MPlug& plug, MStatus* ReturnStatus)
{
    const MPlug source = plug.source();
    attach(source.isNull() ? MObject() : source.node(), ReturnStatus);
}

MFnAnimCurve::~MFnAnimCurve() = default;

MFn::Type MFnAnimCurve::type() const
{
    return MFn::kAnimCurve;
}

// --- creation --------------------------------------------------------------

MObject MFnAnimCurve::create(const MObject& node, const MObject& attribute, MDGModifier* modifier,
                             MStatus* ReturnStatus)
{
    return create(MPlug(node, attribute), kAnimCurveUnknown, modifier, ReturnStatus);
}

MObject MFnAnimCurve::create(const MObject& node, const MObject& attribute, AnimCurveType animCurveType,
                             MDGModifier* modifier, MStatus* ReturnStatus)
{
    return create(MPlug(node, attribute), animCurveType, modifier, ReturnStatus);
}

MObject MFnAnimCurve::create(const MPlug& plug, MDGModifier* modifier, MStatus* ReturnStatus)
{
    return create(plug, kAnimCurveUnknown, modifier, ReturnStatus);
}

// A curve whose output drives the plug, named after it. With a modifier
// the node and connection wait for its doIt; the keys can be set at once.
MObject MFnAnimCurve::create(const MPlug& plug, AnimCurveType animCurveType, MDGModifier* modifier,
                             MStatus* ReturnStatus)
{
    Node* target = plug.isNull() ? nullptr : plugNode(plug);
    if (!target)
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    const PlugKey destination = plugKey(plug);
    if (animCurveType == kAnimCurveUnknown)
        animCurveType = timedTypeFor(*destination.attribute);
    const anim::CurveKind* kind = anim::curveKind(animCurveType);
    if (!kind)
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    if (plug.isLocked() || plug.isDestination())
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MObject();
    }
    const std::string name = curveNameFor(*target, destination);
    MObject curve;
    MStatus status;
    if (modifier)
    {
        curve = modifier->createNode(kind->typeName, &status);
        if (status)
            status = modifier->renameNode(curve, name.c_str());
        if (status)
            status = modifier->connect(MPlug(curve, MFnDependencyNode(curve).attribute("output")), plug);
    }
    else
    {
        status = applyDirect([&](EditList& edits) {
            NodePtr created = ops::createNode(edits, kind->typeName, name, nullptr);
            ops::connect(edits, PlugAddress{created, keyOf(*created->findAttribute("output"))},
                         PlugAddress{target->self(), destination}, false);
            curve = objectOf(created.get());
        });
    }
    setStatus(ReturnStatus, status.statusCode());
    if (!status)
        return MObject();
    setObject(curve);
    return curve;
}

MObject MFnAnimCurve::create(AnimCurveType animCurveType, MDGModifier* modifier, MStatus* ReturnStatus)
{
    const anim::CurveKind* kind = anim::curveKind(animCurveType);
    if (!kind)
    {
        setStatus(ReturnStatus, MS::kInvalidParameter);
        return MObject();
    }
    if (modifier)
    {
        MObject curve = modifier->createNode(kind->typeName, ReturnStatus);
        if (!curve.isNull())
            setObject(curve);
        return curve;
    }
    return MFnDependencyNode::create(MString(kind->typeName), ReturnStatus);
}

MFnAnimCurve::AnimCurveType MFnAnimCurve::animCurveType(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, kAnimCurveUnknown,
                 [](const Curve& curve, MStatus&) { return static_cast<AnimCurveType>(curve.kind->animCurveType); });
}

// --- evaluation and queries --------------------------------------------------

double MFnAnimCurve::evaluate(const MTime& atTime, MStatus* ReturnStatus) const
{
    double value = 0.0;
    MStatus status = evaluate(atTime, value);
    setStatus(ReturnStatus, status.statusCode());
    return value;
}

MStatus MFnAnimCurve::evaluate(const MTime& atTime, double& value) const
{
    return evaluateAt(fObject, true, secondsOf(atTime), false, value);
}

MStatus MFnAnimCurve::evaluate(const MTime& atTime, MTime& timeValue) const
{
    double seconds = 0.0;
    MStatus status = evaluateAt(fObject, true, secondsOf(atTime), true, seconds);
    if (status)
        timeValue = timeOf(seconds);
    return status;
}

MStatus MFnAnimCurve::evaluate(const double& atUnitlessInput, double& value) const
{
    return evaluateAt(fObject, false, atUnitlessInput, false, value);
}

MStatus MFnAnimCurve::evaluate(const double& atUnitlessInput, MTime& timeValue) const
{
    double seconds = 0.0;
    MStatus status = evaluateAt(fObject, false, atUnitlessInput, true, seconds);
    if (status)
        timeValue = timeOf(seconds);
    return status;
}

bool MFnAnimCurve::isStatic(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, false, [](const Curve& curve, MStatus&) { return curve.data->isStatic(); });
}

unsigned int MFnAnimCurve::numKeys(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, 0u,
                 [](const Curve& curve, MStatus&) { return static_cast<unsigned int>(curve.data->size()); });
}

bool MFnAnimCurve::find(const MTime& time, unsigned int& index, MStatus* ReturnStatus) const
{
    return findAt(fObject, true, secondsOf(time), index, ReturnStatus);
}

bool MFnAnimCurve::find(double unitlessInput, unsigned int& index, MStatus* ReturnStatus) const
{
    return findAt(fObject, false, unitlessInput, index, ReturnStatus);
}

unsigned int MFnAnimCurve::findClosest(const MTime& time, MStatus* ReturnStatus) const
{
    return closestTo(fObject, true, secondsOf(time), ReturnStatus);
}

unsigned int MFnAnimCurve::findClosest(double unitlessInput, MStatus* ReturnStatus) const
{
    return closestTo(fObject, false, unitlessInput, ReturnStatus);
}

MTime MFnAnimCurve::time(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, MTime(),
                    [](const Curve& curve, const anim::Key& key, MStatus& result) {
                        if (!curve.kind->timeInput)
                            result = MS::kInvalidParameter;
                        return timeOf(key.input);
                    });
}

double MFnAnimCurve::value(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, 0.0,
                    [](const Curve&, const anim::Key& key, MStatus&) { return key.value; });
}

double MFnAnimCurve::unitlessInput(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, 0.0, [](const Curve& curve, const anim::Key& key, MStatus& result) {
        if (curve.kind->timeInput)
            result = MS::kInvalidParameter;
        return key.input;
    });
}

bool MFnAnimCurve::isTimeInput(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, false, [](const Curve& curve, MStatus&) { return curve.kind->timeInput; });
}

bool MFnAnimCurve::isUnitlessInput(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, false, [](const Curve& curve, MStatus&) { return !curve.kind->timeInput; });
}

// --- keys ------------------------------------------------------------------

MStatus MFnAnimCurve::remove(unsigned int index, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        curve.data->remove(index, logOf(change));
        return MS::kSuccess;
    });
}

unsigned int MFnAnimCurve::addKey(const MTime& time, double value, TangentType tangentInType,
                                  TangentType tangentOutType, MAnimCurveChange* change, MStatus* ReturnStatus)
{
    return addKeyAt(fObject, true, secondsOf(time), value, tangentInType, tangentOutType, change, ReturnStatus);
}

unsigned int MFnAnimCurve::addKey(const MTime& timeInput, const MTime& timeValue, TangentType tangentInType,
                                  TangentType tangentOutType, MAnimCurveChange* change, MStatus* ReturnStatus)
{
    return addKeyAt(fObject, true, secondsOf(timeInput), secondsOf(timeValue), tangentInType, tangentOutType, change,
                    ReturnStatus);
}

unsigned int MFnAnimCurve::addKey(double unitlessInput, double value, TangentType tangentInType,
                                  TangentType tangentOutType, MAnimCurveChange* change, MStatus* ReturnStatus)
{
    return addKeyAt(fObject, false, unitlessInput, value, tangentInType, tangentOutType, change, ReturnStatus);
}

unsigned int MFnAnimCurve::addKey(double unitlessInput, const MTime& time, TangentType tangentInType,
                                  TangentType tangentOutType, MAnimCurveChange* change, MStatus* ReturnStatus)
{
    return addKeyAt(fObject, false, unitlessInput, secondsOf(time), tangentInType, tangentOutType, change,
                    ReturnStatus);
}

unsigned int MFnAnimCurve::insertKey(const MTime& time, bool adjustTangents, MAnimCurveChange* change,
                                     MStatus* ReturnStatus)
{
    unsigned int index = 0;
    MStatus status = editCurve(fObject, [&](const Curve& curve) -> MStatus {
        if (!curve.kind->timeInput)
            return MS::kInvalidParameter;
        index = static_cast<unsigned int>(curve.data->insertKey(secondsOf(time), adjustTangents, logOf(change)));
        return MS::kSuccess;
    });
    setStatus(ReturnStatus, status.statusCode());
    return index;
}

MStatus MFnAnimCurve::setValue(unsigned int index, double value, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        curve.data->setValue(index, value, logOf(change));
        return MS::kSuccess;
    });
}

MStatus MFnAnimCurve::setTime(unsigned int index, const MTime& time, MAnimCurveChange* change)
{
    return setInputOf(fObject, index, true, secondsOf(time), change);
}

MStatus MFnAnimCurve::setUnitlessInput(unsigned int index, double unitlessInput, MAnimCurveChange* change)
{
    return setInputOf(fObject, index, false, unitlessInput, change);
}

// --- tangents --------------------------------------------------------------

MFnAnimCurve::TangentType MFnAnimCurve::inTangentType(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, kTangentGlobal,
                    [](const Curve&, const anim::Key& key, MStatus&) { return static_cast<TangentType>(key.inType); });
}

MFnAnimCurve::TangentType MFnAnimCurve::outTangentType(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, kTangentGlobal,
                    [](const Curve&, const anim::Key& key, MStatus&) { return static_cast<TangentType>(key.outType); });
}

MStatus MFnAnimCurve::setInTangentType(unsigned int index, TangentType tangentType, MAnimCurveChange* change)
{
    return setTangentTypeOf(fObject, index, Side::In, tangentType, change);
}

MStatus MFnAnimCurve::setOutTangentType(unsigned int index, TangentType tangentType, MAnimCurveChange* change)
{
    return setTangentTypeOf(fObject, index, Side::Out, tangentType, change);
}

MStatus MFnAnimCurve::getTangent(unsigned int index, TangentValue& x, TangentValue& y, bool inTangent) const
{
    MStatus status;
    keyQuery(fObject, index, &status, 0, [&](const Curve&, const anim::Key& key, MStatus&) {
        x = key.tangent(sideOf(inTangent)).x;
        y = key.tangent(sideOf(inTangent)).y;
        return 0;
    });
    return status;
}

MStatus MFnAnimCurve::getTangent(unsigned int index, MAngle& angle, double& weight, bool inTangent) const
{
    MStatus status;
    keyQuery(fObject, index, &status, 0, [&](const Curve& curve, const anim::Key& key, MStatus&) {
        const anim::AngleWeight seen = anim::angleWeightOf(
            key.tangent(sideOf(inTangent)), curve.data->settings().weighted, curve.inputScale(), curve.valueScale());
        angle = MAngle(seen.angle, MAngle::kRadians);
        weight = seen.weight;
        return 0;
    });
    return status;
}

MStatus MFnAnimCurve::setTangent(unsigned int index, TangentValue x, TangentValue y, bool inTangent,
                                 MAnimCurveChange* change, bool convertUnits)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        const double xScale = convertUnits ? curve.inputScale() : 1.0;
        const double yScale = convertUnits ? curve.valueScale() : 1.0;
        curve.data->setTangent(index, sideOf(inTangent), {x / xScale, y / yScale}, logOf(change));
        return MS::kSuccess;
    });
}

MStatus MFnAnimCurve::setTangent(unsigned int index, const MAngle& angle, double weight, bool inTangent,
                                 MAnimCurveChange* change, bool convertUnits)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        const double xScale = convertUnits ? curve.inputScale() : 1.0;
        const double yScale = convertUnits ? curve.valueScale() : 1.0;
        const double length = curve.data->settings().weighted ? weight : 1.0;
        curve.data->setTangent(index, sideOf(inTangent), anim::tangentOf({angle.asRadians(), length}, xScale, yScale),
                               logOf(change));
        return MS::kSuccess;
    });
}

MStatus MFnAnimCurve::setAngle(unsigned int index, const MAngle& angle, bool inTangent, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        anim::AngleWeight seen =
            anim::angleWeightOf(curve.key(index).tangent(sideOf(inTangent)), curve.data->settings().weighted,
                                curve.inputScale(), curve.valueScale());
        seen.angle = angle.asRadians();
        curve.data->setTangent(index, sideOf(inTangent), anim::tangentOf(seen, curve.inputScale(), curve.valueScale()),
                               logOf(change));
        return MS::kSuccess;
    });
}

// Weights only exist on weighted curves; elsewhere the call changes nothing.
MStatus MFnAnimCurve::setWeight(unsigned int index, double weight, bool inTangent, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        if (!curve.data->settings().weighted)
            return MS::kSuccess;
        anim::AngleWeight seen = anim::angleWeightOf(curve.key(index).tangent(sideOf(inTangent)), true,
                                                     curve.inputScale(), curve.valueScale());
        seen.weight = weight;
        curve.data->setTangent(index, sideOf(inTangent), anim::tangentOf(seen, curve.inputScale(), curve.valueScale()),
                               logOf(change));
        return MS::kSuccess;
    });
}

bool MFnAnimCurve::weightsLocked(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, false,
                    [](const Curve&, const anim::Key& key, MStatus&) { return key.weightsLocked; });
}

bool MFnAnimCurve::tangentsLocked(unsigned int index, MStatus* ReturnStatus) const
{
    return keyQuery(fObject, index, ReturnStatus, false,
                    [](const Curve&, const anim::Key& key, MStatus&) { return key.tangentsLocked; });
}

MStatus MFnAnimCurve::setWeightsLocked(unsigned int index, bool locked, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        curve.data->setWeightsLocked(index, locked, logOf(change));
        return MS::kSuccess;
    });
}

MStatus MFnAnimCurve::setTangentsLocked(unsigned int index, bool locked, MAnimCurveChange* change)
{
    return editKey(fObject, index, [&](const Curve& curve) -> MStatus {
        curve.data->setTangentsLocked(index, locked, logOf(change));
        return MS::kSuccess;
    });
}

// --- curve settings --------------------------------------------------------

MFnAnimCurve::InfinityType MFnAnimCurve::preInfinityType(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, kConstant, [](const Curve& curve, MStatus&) {
        return static_cast<InfinityType>(curve.data->settings().preInfinity);
    });
}

MFnAnimCurve::InfinityType MFnAnimCurve::postInfinityType(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, kConstant, [](const Curve& curve, MStatus&) {
        return static_cast<InfinityType>(curve.data->settings().postInfinity);
    });
}

MStatus MFnAnimCurve::setPreInfinityType(InfinityType infinityType, MAnimCurveChange* change)
{
    return setInfinityOf(fObject, Side::In, infinityType, change);
}

MStatus MFnAnimCurve::setPostInfinityType(InfinityType infinityType, MAnimCurveChange* change)
{
    return setInfinityOf(fObject, Side::Out, infinityType, change);
}

bool MFnAnimCurve::isWeighted(MStatus* ReturnStatus) const
{
    return query(fObject, ReturnStatus, false,
                 [](const Curve& curve, MStatus&) { return curve.data->settings().weighted; });
}

MStatus MFnAnimCurve::setIsWeighted(bool isWeighted, MAnimCurveChange* change)
{
    return editCurve(fObject, [&](const Curve& curve) -> MStatus {
        curve.data->setWeighted(isWeighted, logOf(change));
        return MS::kSuccess;
    });
}

const char* MFnAnimCurve::className()
{
    return "MFnAnimCurve";
}
