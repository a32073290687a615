// The attribute function sets: create attribute definitions and read or
// change their properties.
#include <maya/MFnAttribute.h>
#include <maya/MFnCompoundAttribute.h>
#include <maya/MFnEnumAttribute.h>
#include <maya/MFnMatrixAttribute.h>
#include <maya/MFnMessageAttribute.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MFnUnitAttribute.h>

#include "scene/Api.h"

#include <algorithm>
#include "scene/Attribute.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MMatrix.h>
#include <maya/MTime.h>
#include <maya/MTypeId.h>
#include <maya/MString.h>

using namespace mayasim;

namespace {

Attribute* attr(const MObject& object, MStatus* status = nullptr)
{
    Attribute* a = attributeObject(object);
    setStatus(status, a ? MS::kSuccess : MS::kFailure);
    return a;
}

MStatus setFlag(const MObject& object, bool Attribute::*flag, bool state)
{
    Attribute* a = attr(object);
    if (!a)
        return MS::kFailure;
    a->*flag = state;
    return MS::kSuccess;
}

bool getFlag(const MObject& object, bool Attribute::*flag, MStatus* status)
{
    Attribute* a = attr(object, status);
    return a && a->*flag;
}

MObject created(MObject& target, const AttributePtr& attribute, MStatus* status)
{
    target = makeObject(attribute);
    setStatus(status, MS::kSuccess);
    return target;
}

MStatus getDefaultNumber(const MObject& object, double& value)
{
    Attribute* a = attr(object);
    if (!a)
        return MS::kFailure;
    value = a->defaultNumber();
    return MS::kSuccess;
}

MStatus setDefaultNumber(const MObject& object, double value)
{
    Attribute* a = attr(object);
    if (!a)
        return MS::kFailure;
    a->defaultValue = Value::ofNumber(value);
    return MS::kSuccess;
}

MStatus getBound(const MObject& object, const std::optional<double> Attribute::*bound, double& value)
{
    Attribute* a = attr(object);
    if (!a || !(a->*bound))
        return MS::kFailure;
    value = *(a->*bound);
    return MS::kSuccess;
}

MStatus setBound(const MObject& object, std::optional<double> Attribute::*bound, double value)
{
    Attribute* a = attr(object);
    if (!a)
        return MS::kFailure;
    a->*bound = value;
    return MS::kSuccess;
}

bool hasBound(const MObject& object, std::optional<double> Attribute::*bound, MStatus* status)
{
    Attribute* a = attr(object, status);
    return a && (a->*bound).has_value();
}

} // namespace

// --- MFnAttribute ----------------------------------------------------------------

MFnAttribute::MFnAttribute() = default;
MFnAttribute::MFnAttribute(MObject& object, MStatus* ReturnStatus) { attach(object, ReturnStatus); }
MFnAttribute::MFnAttribute(const MObject& object, MStatus* ReturnStatus) { attach(object, ReturnStatus); }
MFnAttribute::~MFnAttribute() = default;
MFn::Type MFnAttribute::type() const { return MFn::kAttribute; }

bool MFnAttribute::isReadable(MStatus* s) const { return getFlag(fObject, &Attribute::readable, s); }
bool MFnAttribute::isWritable(MStatus* s) const { return getFlag(fObject, &Attribute::writable, s); }
bool MFnAttribute::isConnectable(MStatus* s) const { return getFlag(fObject, &Attribute::connectable, s); }
bool MFnAttribute::isStorable(MStatus* s) const { return getFlag(fObject, &Attribute::storable, s); }
bool MFnAttribute::isCached(MStatus* s) const { return getFlag(fObject, &Attribute::cached, s); }
bool MFnAttribute::isArray(MStatus* s) const { return getFlag(fObject, &Attribute::array, s); }
bool MFnAttribute::indexMatters(MStatus* s) const { return getFlag(fObject, &Attribute::indexMatters, s); }
bool MFnAttribute::isKeyable(MStatus* s) const { return getFlag(fObject, &Attribute::keyable, s); }
bool MFnAttribute::isChannelBoxFlagSet(MStatus* s) const { return getFlag(fObject, &Attribute::channelBox, s); }
bool MFnAttribute::isHidden(MStatus* s) const { return getFlag(fObject, &Attribute::hidden, s); }
bool MFnAttribute::isUsedAsColor(MStatus* s) const { return getFlag(fObject, &Attribute::usedAsColor, s); }
bool MFnAttribute::isIndeterminant(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::isRenderSource(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::isDynamic(MStatus* s) const { return getFlag(fObject, &Attribute::dynamic, s); }
bool MFnAttribute::isExtension(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::isWorldSpace(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::isAffectsWorldSpace(MStatus* s) const
{
    return getFlag(fObject, &Attribute::affectsWorldSpace, s);
}
bool MFnAttribute::isUsedAsFilename(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::affectsAppearance(MStatus* s) const { return attr(fObject, s) && false; }
bool MFnAttribute::usesArrayDataBuilder(MStatus* s) const
{
    return getFlag(fObject, &Attribute::usesArrayDataBuilder, s);
}
bool MFnAttribute::internal(MStatus* s) const { return getFlag(fObject, &Attribute::internal, s); }

MFnAttribute::DisconnectBehavior MFnAttribute::disconnectBehavior(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? static_cast<DisconnectBehavior>(a->disconnectBehavior) : kNothing;
}

MStatus MFnAttribute::setReadable(bool v) { return setFlag(fObject, &Attribute::readable, v); }
MStatus MFnAttribute::setWritable(bool v) { return setFlag(fObject, &Attribute::writable, v); }
MStatus MFnAttribute::setConnectable(bool v) { return setFlag(fObject, &Attribute::connectable, v); }
MStatus MFnAttribute::setStorable(bool v) { return setFlag(fObject, &Attribute::storable, v); }
MStatus MFnAttribute::setCached(bool v) { return setFlag(fObject, &Attribute::cached, v); }
MStatus MFnAttribute::setIndexMatters(bool v) { return setFlag(fObject, &Attribute::indexMatters, v); }
MStatus MFnAttribute::setKeyable(bool v) { return setFlag(fObject, &Attribute::keyable, v); }
MStatus MFnAttribute::setChannelBox(bool v) { return setFlag(fObject, &Attribute::channelBox, v); }
MStatus MFnAttribute::setHidden(bool v) { return setFlag(fObject, &Attribute::hidden, v); }
MStatus MFnAttribute::setUsedAsColor(bool v) { return setFlag(fObject, &Attribute::usedAsColor, v); }
MStatus MFnAttribute::setIndeterminant(bool) { return attr(fObject) ? MS::kSuccess : MS::kFailure; }
MStatus MFnAttribute::setRenderSource(bool) { return attr(fObject) ? MS::kSuccess : MS::kFailure; }
MStatus MFnAttribute::setWorldSpace(bool) { return attr(fObject) ? MS::kSuccess : MS::kFailure; }
MStatus MFnAttribute::setAffectsWorldSpace(bool v) { return setFlag(fObject, &Attribute::affectsWorldSpace, v); }
MStatus MFnAttribute::setUsedAsFilename(bool) { return attr(fObject) ? MS::kSuccess : MS::kFailure; }
MStatus MFnAttribute::setUsesArrayDataBuilder(bool v)
{
    return setFlag(fObject, &Attribute::usesArrayDataBuilder, v);
}
MStatus MFnAttribute::setInternal(bool v) { return setFlag(fObject, &Attribute::internal, v); }
MStatus MFnAttribute::setAffectsAppearance(bool) { return attr(fObject) ? MS::kSuccess : MS::kFailure; }

MStatus MFnAttribute::setArray(bool state)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    a->array = state;
    return MS::kSuccess;
}

MStatus MFnAttribute::setDisconnectBehavior(DisconnectBehavior behavior)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    a->disconnectBehavior = behavior;
    return MS::kSuccess;
}

MStatus MFnAttribute::setNiceNameOverride(const MString& localizedName)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    a->niceName = localizedName.asChar();
    return MS::kSuccess;
}

MString MFnAttribute::shortName(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? MString(a->shortName.c_str()) : MString();
}

MString MFnAttribute::name(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? MString(a->longName.c_str()) : MString();
}

MObject MFnAttribute::parent(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    AttributePtr parent = a ? a->parentAttribute() : nullptr;
    if (a && !parent)
        setStatus(s, MS::kFailure);
    return parent ? makeObject(parent) : MObject();
}

const char* MFnAttribute::className() { return "MFnAttribute"; }

// --- MFnNumericAttribute -----------------------------------------------------

MFnNumericAttribute::MFnNumericAttribute() = default;
MFnNumericAttribute::MFnNumericAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnNumericAttribute::MFnNumericAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnNumericAttribute::~MFnNumericAttribute() = default;
MFn::Type MFnNumericAttribute::type() const { return MFn::kNumericAttribute; }

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName,
                                    MFnNumericData::Type unitType, double defaultValue, MStatus* s)
{
    const int count = unitType == MFnNumericData::k2Double || unitType == MFnNumericData::k2Float ||
                              unitType == MFnNumericData::k2Int || unitType == MFnNumericData::k2Short
                          ? 2
                      : unitType == MFnNumericData::k3Double || unitType == MFnNumericData::k3Float ||
                              unitType == MFnNumericData::k3Int || unitType == MFnNumericData::k3Short
                          ? 3
                      : unitType == MFnNumericData::k4Double ? 4
                                                             : 1;
    if (count == 1)
        return created(fObject, makeNumeric(fullName.asChar(), briefName.asChar(), unitType, defaultValue), s);
    // Tuples get children named after the attribute with 0, 1, 2 (Maya's
    // convention for numeric tuples created from a type).
    const MFnNumericData::Type single = unitType == MFnNumericData::k2Float || unitType == MFnNumericData::k3Float
                                            ? MFnNumericData::kFloat
                                        : unitType == MFnNumericData::k2Int || unitType == MFnNumericData::k3Int
                                            ? MFnNumericData::kInt
                                        : unitType == MFnNumericData::k2Short || unitType == MFnNumericData::k3Short
                                            ? MFnNumericData::kShort
                                            : MFnNumericData::kDouble;
    std::vector<AttributePtr> children;
    for (int i = 0; i < count; ++i)
        children.push_back(makeNumeric(std::string(fullName.asChar()) + std::to_string(i),
                                       std::string(briefName.asChar()) + std::to_string(i), single, defaultValue));
    AttributePtr compound = makeNumericCompound(fullName.asChar(), briefName.asChar(), children);
    compound->numericType = unitType;
    return created(fObject, compound, s);
}

MObject MFnNumericAttribute::createColor(const MString& fullName, const MString& briefName, MStatus* s)
{
    std::vector<AttributePtr> children;
    for (const char* channel : {"R", "G", "B"})
        children.push_back(makeNumeric(std::string(fullName.asChar()) + channel,
                                       std::string(briefName.asChar()) + channel, MFnNumericData::kFloat));
    AttributePtr color = makeNumericCompound(fullName.asChar(), briefName.asChar(), children);
    color->usedAsColor = true;
    return created(fObject, color, s);
}

MObject MFnNumericAttribute::createPoint(const MString& fullName, const MString& briefName, MStatus* s)
{
    std::vector<AttributePtr> children;
    for (const char* axis : {"X", "Y", "Z"})
        children.push_back(makeNumeric(std::string(fullName.asChar()) + axis,
                                       std::string(briefName.asChar()) + axis, MFnNumericData::kFloat));
    return created(fObject, makeNumericCompound(fullName.asChar(), briefName.asChar(), children), s);
}

// A compound of the given children; a null third child makes a pair.
MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName, const MObject& child1,
                                    const MObject& child2, const MObject& child3, MStatus* s)
{
    std::vector<AttributePtr> children{attributePtr(child1), attributePtr(child2)};
    if (!child3.isNull())
        children.push_back(attributePtr(child3));
    if (std::find(children.begin(), children.end(), nullptr) != children.end())
    {
        setStatus(s, MS::kInvalidParameter);
        return MObject();
    }
    return created(fObject, makeNumericCompound(fullName.asChar(), briefName.asChar(), children), s);
}

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName, const MObject& child1,
                                    const MObject& child2, const MObject& child3, const MObject& child4,
                                    MStatus* s)
{
    std::vector<AttributePtr> children{attributePtr(child1), attributePtr(child2), attributePtr(child3),
                                       attributePtr(child4)};
    if (std::find(children.begin(), children.end(), nullptr) != children.end())
    {
        setStatus(s, MS::kInvalidParameter);
        return MObject();
    }
    return created(fObject, makeNumericCompound(fullName.asChar(), briefName.asChar(), children), s);
}

MFnNumericData::Type MFnNumericAttribute::unitType(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? a->numericType : MFnNumericData::kInvalid;
}

MObject MFnNumericAttribute::child(unsigned int index, MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    if (!a || index >= a->children.size())
    {
        setStatus(s, MS::kFailure);
        return MObject();
    }
    return makeObject(a->children[index]);
}

bool MFnNumericAttribute::hasMin(MStatus* s) const { return hasBound(fObject, &Attribute::minimum, s); }
bool MFnNumericAttribute::hasMax(MStatus* s) const { return hasBound(fObject, &Attribute::maximum, s); }
bool MFnNumericAttribute::hasSoftMin(MStatus* s) const { return hasBound(fObject, &Attribute::softMinimum, s); }
bool MFnNumericAttribute::hasSoftMax(MStatus* s) const { return hasBound(fObject, &Attribute::softMaximum, s); }
MStatus MFnNumericAttribute::getMin(double& v) const { return getBound(fObject, &Attribute::minimum, v); }
MStatus MFnNumericAttribute::getMax(double& v) const { return getBound(fObject, &Attribute::maximum, v); }
MStatus MFnNumericAttribute::getSoftMin(double& v) const { return getBound(fObject, &Attribute::softMinimum, v); }
MStatus MFnNumericAttribute::getSoftMax(double& v) const { return getBound(fObject, &Attribute::softMaximum, v); }
MStatus MFnNumericAttribute::setMin(double v) { return setBound(fObject, &Attribute::minimum, v); }
MStatus MFnNumericAttribute::setMax(double v) { return setBound(fObject, &Attribute::maximum, v); }
MStatus MFnNumericAttribute::setSoftMin(double v) { return setBound(fObject, &Attribute::softMinimum, v); }
MStatus MFnNumericAttribute::setSoftMax(double v) { return setBound(fObject, &Attribute::softMaximum, v); }

namespace {

template <typename T>
MStatus getDefaultAs(const MObject& object, T& value)
{
    double number = 0.0;
    MStatus status = getDefaultNumber(object, number);
    value = static_cast<T>(number);
    return status;
}

} // namespace

MStatus MFnNumericAttribute::getDefault(bool& v)
{
    double number = 0.0;
    MStatus status = getDefaultNumber(fObject, number);
    v = number != 0.0;
    return status;
}
MStatus MFnNumericAttribute::getDefault(char& v) { return getDefaultAs(fObject, v); }
MStatus MFnNumericAttribute::getDefault(int& v) { return getDefaultAs(fObject, v); }
MStatus MFnNumericAttribute::getDefault(MInt64& v) { return getDefaultAs(fObject, v); }
MStatus MFnNumericAttribute::getDefault(float& v) { return getDefaultAs(fObject, v); }
MStatus MFnNumericAttribute::getDefault(double& v) { return getDefaultNumber(fObject, v); }
MStatus MFnNumericAttribute::setDefault(bool v) { return setDefaultNumber(fObject, v ? 1.0 : 0.0); }
MStatus MFnNumericAttribute::setDefault(char v) { return setDefaultNumber(fObject, v); }
MStatus MFnNumericAttribute::setDefault(int v) { return setDefaultNumber(fObject, v); }
MStatus MFnNumericAttribute::setDefault(MInt64 v) { return setDefaultNumber(fObject, static_cast<double>(v)); }
MStatus MFnNumericAttribute::setDefault(float v) { return setDefaultNumber(fObject, v); }
MStatus MFnNumericAttribute::setDefault(double v) { return setDefaultNumber(fObject, v); }

MStatus MFnNumericAttribute::setDefault(double def1, double def2)
{
    Attribute* a = attr(fObject);
    if (!a || a->children.size() != 2)
        return MS::kFailure;
    a->children[0]->defaultValue = Value::ofNumber(def1);
    a->children[1]->defaultValue = Value::ofNumber(def2);
    return MS::kSuccess;
}

MStatus MFnNumericAttribute::setDefault(double def1, double def2, double def3)
{
    Attribute* a = attr(fObject);
    if (!a || a->children.size() != 3)
        return MS::kFailure;
    a->children[0]->defaultValue = Value::ofNumber(def1);
    a->children[1]->defaultValue = Value::ofNumber(def2);
    a->children[2]->defaultValue = Value::ofNumber(def3);
    return MS::kSuccess;
}

const char* MFnNumericAttribute::className() { return "MFnNumericAttribute"; }

// --- MFnUnitAttribute -------------------------------------------------------------

MFnUnitAttribute::MFnUnitAttribute() = default;
MFnUnitAttribute::MFnUnitAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnUnitAttribute::MFnUnitAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnUnitAttribute::~MFnUnitAttribute() = default;
MFn::Type MFnUnitAttribute::type() const { return MFn::kUnitAttribute; }

MObject MFnUnitAttribute::create(const MString& fullName, const MString& briefName, Type unitType,
                                 double defaultValue, MStatus* s)
{
    return created(fObject, makeUnit(fullName.asChar(), briefName.asChar(), unitType, defaultValue), s);
}

MObject MFnUnitAttribute::create(const MString& fullName, const MString& briefName, const MTime& defaultValue,
                                 MStatus* s)
{
    return create(fullName, briefName, kTime, defaultValue.as(MTime::kSeconds), s);
}

MObject MFnUnitAttribute::create(const MString& fullName, const MString& briefName, const MAngle& defaultValue,
                                 MStatus* s)
{
    return create(fullName, briefName, kAngle, defaultValue.asRadians(), s);
}

MObject MFnUnitAttribute::create(const MString& fullName, const MString& briefName,
                                 const MDistance& defaultValue, MStatus* s)
{
    return create(fullName, briefName, kDistance, defaultValue.asCentimeters(), s);
}

MFnUnitAttribute::Type MFnUnitAttribute::unitType(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? a->unitType : kInvalid;
}

bool MFnUnitAttribute::hasMin(MStatus* s) const { return hasBound(fObject, &Attribute::minimum, s); }
bool MFnUnitAttribute::hasMax(MStatus* s) const { return hasBound(fObject, &Attribute::maximum, s); }
MStatus MFnUnitAttribute::getMin(double& v) const { return getBound(fObject, &Attribute::minimum, v); }
MStatus MFnUnitAttribute::getMax(double& v) const { return getBound(fObject, &Attribute::maximum, v); }
MStatus MFnUnitAttribute::setMin(double v) { return setBound(fObject, &Attribute::minimum, v); }
MStatus MFnUnitAttribute::setMax(double v) { return setBound(fObject, &Attribute::maximum, v); }
MStatus MFnUnitAttribute::getDefault(double& v) { return getDefaultNumber(fObject, v); }

MStatus MFnUnitAttribute::getDefault(MTime& v)
{
    double number = 0.0;
    MStatus status = getDefaultNumber(fObject, number);
    v = MTime(number, MTime::kSeconds);
    return status;
}

MStatus MFnUnitAttribute::getDefault(MAngle& v)
{
    double number = 0.0;
    MStatus status = getDefaultNumber(fObject, number);
    v = MAngle(number, MAngle::kRadians);
    return status;
}

MStatus MFnUnitAttribute::getDefault(MDistance& v)
{
    double number = 0.0;
    MStatus status = getDefaultNumber(fObject, number);
    v = MDistance(number, MDistance::kCentimeters);
    return status;
}

MStatus MFnUnitAttribute::setDefault(double v) { return setDefaultNumber(fObject, v); }
MStatus MFnUnitAttribute::setDefault(const MTime& v) { return setDefaultNumber(fObject, v.as(MTime::kSeconds)); }
MStatus MFnUnitAttribute::setDefault(const MAngle& v) { return setDefaultNumber(fObject, v.asRadians()); }
MStatus MFnUnitAttribute::setDefault(const MDistance& v) { return setDefaultNumber(fObject, v.asCentimeters()); }

const char* MFnUnitAttribute::className() { return "MFnUnitAttribute"; }

// --- MFnTypedAttribute -----------------------------------------------------------

MFnTypedAttribute::MFnTypedAttribute() = default;
MFnTypedAttribute::MFnTypedAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnTypedAttribute::MFnTypedAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnTypedAttribute::~MFnTypedAttribute() = default;
MFn::Type MFnTypedAttribute::type() const { return MFn::kTypedAttribute; }

MObject MFnTypedAttribute::create(const MString& fullName, const MString& briefName, const MTypeId&,
                                  MObject defaultData, MStatus* s)
{
    return create(fullName, briefName, MFnData::kPlugin, defaultData, s);
}

MObject MFnTypedAttribute::create(const MString& fullName, const MString& briefName, MFnData::Type dataType,
                                  MObject defaultData, MStatus* s)
{
    AttributePtr a = makeTyped(fullName.asChar(), briefName.asChar(), dataType);
    if (const DataObject* data = dataObject(defaultData))
        a->defaultValue = data->value();
    return created(fObject, a, s);
}

MFnData::Type MFnTypedAttribute::attrType(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? a->dataType : MFnData::kInvalid;
}

MStatus MFnTypedAttribute::getDefault(MObject& defaultData)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    defaultData = a->defaultValue.isEmpty() ? MObject() : makeData(a->dataType, a->defaultValue);
    return MS::kSuccess;
}

MStatus MFnTypedAttribute::setDefault(const MObject& defaultData)
{
    Attribute* a = attr(fObject);
    const DataObject* data = dataObject(defaultData);
    if (!a || !data)
        return MS::kFailure;
    a->defaultValue = data->value();
    return MS::kSuccess;
}

const char* MFnTypedAttribute::className() { return "MFnTypedAttribute"; }

// --- MFnMatrixAttribute ----------------------------------------------------------

MFnMatrixAttribute::MFnMatrixAttribute() = default;
MFnMatrixAttribute::MFnMatrixAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnMatrixAttribute::MFnMatrixAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnMatrixAttribute::~MFnMatrixAttribute() = default;
MFn::Type MFnMatrixAttribute::type() const { return MFn::kMatrixAttribute; }

MObject MFnMatrixAttribute::create(const MString& fullName, const MString& briefName, Type matrixType, MStatus* s)
{
    AttributePtr a = makeMatrix(fullName.asChar(), briefName.asChar());
    if (matrixType == kFloat)
        a->kind = Attribute::Kind::FloatMatrix;
    return created(fObject, a, s);
}

MStatus MFnMatrixAttribute::getDefault(MMatrix& defaultValue)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    defaultValue = a->defaultValue.matrix;
    return MS::kSuccess;
}

MStatus MFnMatrixAttribute::setDefault(const MMatrix& defaultValue)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    a->defaultValue = Value::ofMatrix(defaultValue);
    return MS::kSuccess;
}

const char* MFnMatrixAttribute::className() { return "MFnMatrixAttribute"; }

// --- MFnMessageAttribute ---------------------------------------------------------

MFnMessageAttribute::MFnMessageAttribute() = default;
MFnMessageAttribute::MFnMessageAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnMessageAttribute::MFnMessageAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnMessageAttribute::~MFnMessageAttribute() = default;
MFn::Type MFnMessageAttribute::type() const { return MFn::kMessageAttribute; }

MObject MFnMessageAttribute::create(const MString& fullName, const MString& briefName, MStatus* s)
{
    return created(fObject, makeMessage(fullName.asChar(), briefName.asChar()), s);
}

const char* MFnMessageAttribute::className() { return "MFnMessageAttribute"; }

// --- MFnCompoundAttribute ------------------------------------------------------

MFnCompoundAttribute::MFnCompoundAttribute() = default;
MFnCompoundAttribute::MFnCompoundAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnCompoundAttribute::MFnCompoundAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnCompoundAttribute::~MFnCompoundAttribute() = default;
MFn::Type MFnCompoundAttribute::type() const { return MFn::kCompoundAttribute; }

MObject MFnCompoundAttribute::create(const MString& fullName, const MString& briefName, MStatus* s)
{
    return created(fObject, makeCompound(fullName.asChar(), briefName.asChar(), {}), s);
}

MStatus MFnCompoundAttribute::addChild(const MObject& child)
{
    AttributePtr parent = attributePtr(fObject);
    AttributePtr added = attributePtr(child);
    if (!parent || !added || added->parentAttribute())
        return MS::kFailure;
    mayasim::addChild(parent, added);
    return MS::kSuccess;
}

MStatus MFnCompoundAttribute::removeChild(const MObject& child)
{
    Attribute* parent = attr(fObject);
    AttributePtr removed = attributePtr(child);
    if (!parent || !removed)
        return MS::kFailure;
    auto& children = parent->children;
    auto it = std::find(children.begin(), children.end(), removed);
    if (it == children.end())
        return MS::kFailure;
    children.erase(it);
    removed->parent.reset();
    return MS::kSuccess;
}

unsigned int MFnCompoundAttribute::numChildren(MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    return a ? static_cast<unsigned int>(a->children.size()) : 0;
}

MObject MFnCompoundAttribute::child(unsigned int index, MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    if (!a || index >= a->children.size())
    {
        setStatus(s, MS::kFailure);
        return MObject();
    }
    return makeObject(a->children[index]);
}

const char* MFnCompoundAttribute::className() { return "MFnCompoundAttribute"; }

// --- MFnEnumAttribute -------------------------------------------------------------

MFnEnumAttribute::MFnEnumAttribute() = default;
MFnEnumAttribute::MFnEnumAttribute(MObject& object, MStatus* s) { attach(object, s); }
MFnEnumAttribute::MFnEnumAttribute(const MObject& object, MStatus* s) { attach(object, s); }
MFnEnumAttribute::~MFnEnumAttribute() = default;
MFn::Type MFnEnumAttribute::type() const { return MFn::kEnumAttribute; }

MObject MFnEnumAttribute::create(const MString& fullName, const MString& briefName, short defaultValue, MStatus* s)
{
    return created(fObject, makeEnum(fullName.asChar(), briefName.asChar(), {}, defaultValue), s);
}

MStatus MFnEnumAttribute::addField(const MString& fieldString, short index)
{
    Attribute* a = attr(fObject);
    if (!a)
        return MS::kFailure;
    for (const auto& field : a->enumFields)
        if (field.first == fieldString.asChar() || field.second == index)
            return MS::kFailure;
    a->enumFields.emplace_back(fieldString.asChar(), index);
    return MS::kSuccess;
}

MString MFnEnumAttribute::fieldName(short index, MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    if (a)
        for (const auto& field : a->enumFields)
            if (field.second == index)
                return MString(field.first.c_str());
    setStatus(s, MS::kFailure);
    return MString();
}

short MFnEnumAttribute::fieldIndex(const MString& fieldString, MStatus* s) const
{
    Attribute* a = attr(fObject, s);
    if (a)
        for (const auto& field : a->enumFields)
            if (field.first == fieldString.asChar())
                return field.second;
    setStatus(s, MS::kFailure);
    return 0;
}

MStatus MFnEnumAttribute::getMin(short& minValue) const
{
    Attribute* a = attr(fObject);
    if (!a || a->enumFields.empty())
        return MS::kFailure;
    minValue = a->enumFields.front().second;
    for (const auto& field : a->enumFields)
        minValue = std::min(minValue, field.second);
    return MS::kSuccess;
}

MStatus MFnEnumAttribute::getMax(short& maxValue) const
{
    Attribute* a = attr(fObject);
    if (!a || a->enumFields.empty())
        return MS::kFailure;
    maxValue = a->enumFields.front().second;
    for (const auto& field : a->enumFields)
        maxValue = std::max(maxValue, field.second);
    return MS::kSuccess;
}

MStatus MFnEnumAttribute::setDefault(short index)
{
    return setDefaultNumber(fObject, index);
}

MStatus MFnEnumAttribute::setDefault(const MString& fieldString)
{
    MStatus status;
    const short index = fieldIndex(fieldString, &status);
    return status ? setDefault(index) : status;
}

MStatus MFnEnumAttribute::getDefault(short& index) const
{
    return getDefaultAs(fObject, index);
}

MString MFnEnumAttribute::defaultValue(MStatus* s) const
{
    short index = 0;
    MStatus status = getDefault(index);
    setStatus(s, status.statusCode());
    return status ? fieldName(index, s) : MString();
}

const char* MFnEnumAttribute::className() { return "MFnEnumAttribute"; }
