#include "scene/Attribute.h"

#include <algorithm>

namespace mayasim {

Attribute::Attribute(Kind kind_, std::string longName_, std::string shortName_)
    : kind(kind_), longName(std::move(longName_)), shortName(std::move(shortName_))
{
}

namespace {

MFn::Type numericCompoundType(MFnNumericData::Type type)
{
    switch (type)
    {
    case MFnNumericData::k2Double: return MFn::kAttribute2Double;
    case MFnNumericData::k2Float: return MFn::kAttribute2Float;
    case MFnNumericData::k2Short: return MFn::kAttribute2Short;
    case MFnNumericData::k2Int: return MFn::kAttribute2Int;
    case MFnNumericData::k3Double: return MFn::kAttribute3Double;
    case MFnNumericData::k3Float: return MFn::kAttribute3Float;
    case MFnNumericData::k3Short: return MFn::kAttribute3Short;
    case MFnNumericData::k3Int: return MFn::kAttribute3Int;
    case MFnNumericData::k4Double: return MFn::kAttribute4Double;
    default: return MFn::kCompoundAttribute;
    }
}

} // namespace

MFn::Type Attribute::apiType() const
{
    switch (kind)
    {
    case Kind::Numeric: return children.empty() ? MFn::kNumericAttribute : numericCompoundType(numericType);
    case Kind::Unit:
        switch (unitType)
        {
        case MFnUnitAttribute::kAngle: return MFn::kDoubleAngleAttribute;
        case MFnUnitAttribute::kDistance: return MFn::kDoubleLinearAttribute;
        case MFnUnitAttribute::kTime: return MFn::kTimeAttribute;
        default: return MFn::kUnitAttribute;
        }
    case Kind::Enum: return MFn::kEnumAttribute;
    case Kind::Typed: return MFn::kTypedAttribute;
    case Kind::Matrix: return MFn::kMatrixAttribute;
    case Kind::FloatMatrix: return MFn::kFloatMatrixAttribute;
    case Kind::Message: return MFn::kMessageAttribute;
    case Kind::Compound: return MFn::kCompoundAttribute;
    }
    return MFn::kAttribute;
}

bool Attribute::hasFn(MFn::Type type) const
{
    if (type == MFn::kBase || type == MFn::kAttribute || type == apiType())
        return true;
    switch (kind)
    {
    case Kind::Numeric:
        return type == MFn::kNumericAttribute || (!children.empty() && type == MFn::kCompoundAttribute);
    case Kind::Unit: return type == MFn::kUnitAttribute;
    case Kind::FloatMatrix: return type == MFn::kMatrixAttribute;
    default: return false;
    }
}

int Attribute::arrayDepth() const
{
    int depth = 0;
    for (const Attribute* a : chain())
        depth += a->array ? 1 : 0;
    return depth;
}

std::vector<const Attribute*> Attribute::chain() const
{
    std::vector<const Attribute*> result{this};
    for (AttributePtr p = parent.lock(); p; p = p->parent.lock())
        result.push_back(p.get());
    std::reverse(result.begin(), result.end());
    return result;
}

std::string Attribute::typeName() const
{
    switch (kind)
    {
    case Kind::Numeric:
        switch (numericType)
        {
        case MFnNumericData::kBoolean: return "bool";
        case MFnNumericData::kByte: return "byte";
        case MFnNumericData::kChar: return "char";
        case MFnNumericData::kShort: return "short";
        case MFnNumericData::kInt: return "long";
        case MFnNumericData::kInt64: return "int64";
        case MFnNumericData::kFloat: return "float";
        case MFnNumericData::kDouble: return "double";
        case MFnNumericData::k2Short: return "short2";
        case MFnNumericData::k3Short: return "short3";
        case MFnNumericData::k2Int: return "long2";
        case MFnNumericData::k3Int: return "long3";
        case MFnNumericData::k2Float: return "float2";
        case MFnNumericData::k3Float: return "float3";
        case MFnNumericData::k2Double: return "double2";
        case MFnNumericData::k3Double: return "double3";
        case MFnNumericData::k4Double: return "double4";
        default: return "double";
        }
    case Kind::Unit:
        switch (unitType)
        {
        case MFnUnitAttribute::kAngle: return "doubleAngle";
        case MFnUnitAttribute::kDistance: return "doubleLinear";
        case MFnUnitAttribute::kTime: return "time";
        default: return "double";
        }
    case Kind::Enum: return "enum";
    case Kind::Typed:
        switch (dataType)
        {
        case MFnData::kString: return "string";
        case MFnData::kStringArray: return "stringArray";
        case MFnData::kDoubleArray: return "doubleArray";
        case MFnData::kIntArray: return "Int32Array";
        case MFnData::kMatrix: return "matrix";
        default: return "typed";
        }
    case Kind::Matrix: return "matrix";
    case Kind::FloatMatrix: return "fltMatrix";
    case Kind::Message: return "message";
    case Kind::Compound: return "TdataCompound";
    }
    return "";
}

bool Attribute::holdsNumber() const
{
    return children.empty() && (kind == Kind::Numeric || kind == Kind::Unit || kind == Kind::Enum);
}

AttributePtr makeNumeric(const std::string& longName, const std::string& shortName, MFnNumericData::Type type,
                         double defaultValue)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Numeric, longName, shortName);
    a->numericType = type;
    a->defaultValue = Value::ofNumber(defaultValue);
    return a;
}

AttributePtr makeUnit(const std::string& longName, const std::string& shortName, MFnUnitAttribute::Type type,
                      double defaultValue)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Unit, longName, shortName);
    a->unitType = type;
    a->defaultValue = Value::ofNumber(defaultValue);
    return a;
}

AttributePtr makeEnum(const std::string& longName, const std::string& shortName,
                      std::vector<std::pair<std::string, short>> fields, short defaultValue)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Enum, longName, shortName);
    a->enumFields = std::move(fields);
    a->defaultValue = Value::ofNumber(defaultValue);
    return a;
}

AttributePtr makeTyped(const std::string& longName, const std::string& shortName, MFnData::Type type)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Typed, longName, shortName);
    a->dataType = type;
    return a;
}

AttributePtr makeMatrix(const std::string& longName, const std::string& shortName)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Matrix, longName, shortName);
    a->defaultValue = Value::ofMatrix(MMatrix());
    return a;
}

AttributePtr makeMessage(const std::string& longName, const std::string& shortName)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Message, longName, shortName);
    a->storable = false;
    return a;
}

void addChild(const AttributePtr& parent, const AttributePtr& child)
{
    child->parent = parent;
    parent->children.push_back(child);
}

AttributePtr makeCompound(const std::string& longName, const std::string& shortName,
                          std::vector<AttributePtr> children)
{
    auto a = std::make_shared<Attribute>(Attribute::Kind::Compound, longName, shortName);
    for (auto& child : children)
        addChild(a, child);
    return a;
}

AttributePtr makeNumericCompound(const std::string& longName, const std::string& shortName,
                                 std::vector<AttributePtr> children)
{
    static const MFnNumericData::Type doubles[] = {MFnNumericData::k2Double, MFnNumericData::k3Double,
                                                    MFnNumericData::k4Double};
    static const MFnNumericData::Type floats[] = {MFnNumericData::k2Float, MFnNumericData::k3Float,
                                                   MFnNumericData::k4Double};
    static const MFnNumericData::Type ints[] = {MFnNumericData::k2Int, MFnNumericData::k3Int,
                                                 MFnNumericData::k4Double};
    static const MFnNumericData::Type shorts[] = {MFnNumericData::k2Short, MFnNumericData::k3Short,
                                                   MFnNumericData::k4Double};
    auto a = std::make_shared<Attribute>(Attribute::Kind::Numeric, longName, shortName);
    const size_t slot = std::clamp<size_t>(children.size(), 2, 4) - 2;
    switch (children.front()->numericType)
    {
    case MFnNumericData::kFloat: a->numericType = floats[slot]; break;
    case MFnNumericData::kInt: a->numericType = ints[slot]; break;
    case MFnNumericData::kShort: a->numericType = shorts[slot]; break;
    default: a->numericType = doubles[slot]; break;
    }
    for (auto& child : children)
        addChild(a, child);
    return a;
}

AttributePtr makeTriple(const std::string& longName, const std::string& shortName, MFnUnitAttribute::Type unit,
                        double defaultValue)
{
    std::vector<AttributePtr> children;
    for (const char* axis : {"X", "Y", "Z"})
    {
        const std::string lower = std::string(1, static_cast<char>(axis[0] - 'A' + 'a'));
        children.push_back(unit == MFnUnitAttribute::kInvalid
                               ? makeNumeric(longName + axis, shortName + lower, MFnNumericData::kDouble, defaultValue)
                               : makeUnit(longName + axis, shortName + lower, unit, defaultValue));
    }
    return makeNumericCompound(longName, shortName, std::move(children));
}

Attribute* attributeObject(const MObject& object)
{
    return dynamic_cast<Attribute*>(sharedObject(object).get());
}

AttributePtr attributePtr(const MObject& object)
{
    return std::dynamic_pointer_cast<Attribute>(sharedObject(object));
}

} // namespace mayasim
