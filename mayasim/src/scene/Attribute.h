#pragma once
// Attribute definitions: what a node type (or a dynamic addAttr) declares.
// Plugs are attribute + node + element indices; values live in the node.
#include "scene/Value.h"

#include <maya/MFnData.h>
#include <maya/MFnNumericData.h>
#include <maya/MFnUnitAttribute.h>
#include <mayasim/Object.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mayasim {

class Attribute : public Object
{
public:
    enum class Kind { Numeric, Unit, Enum, Typed, Matrix, FloatMatrix, Message, Compound };

    Attribute(Kind kind, std::string longName, std::string shortName);

    MFn::Type apiType() const override;
    bool hasFn(MFn::Type type) const override;

    Kind kind;
    std::string longName;
    std::string shortName;
    std::string niceName;
    MFnNumericData::Type numericType = MFnNumericData::kInvalid; // Numeric; also numeric compounds
    MFnUnitAttribute::Type unitType = MFnUnitAttribute::kInvalid;
    MFnData::Type dataType = MFnData::kInvalid;
    Value defaultValue;
    std::optional<double> minimum, maximum, softMinimum, softMaximum;
    std::vector<std::pair<std::string, short>> enumFields;

    bool readable = true;
    bool writable = true;
    bool connectable = true;
    bool storable = true;
    bool cached = true;
    bool array = false;
    bool indexMatters = true;
    bool keyable = false;
    bool channelBox = false;
    bool hidden = false;
    bool internal = false;
    bool dynamic = false;
    bool usedAsColor = false;
    bool affectsWorldSpace = false;
    bool usesArrayDataBuilder = false;
    int disconnectBehavior = 1; // MFnAttribute::kReset

    std::weak_ptr<Attribute> parent;
    std::vector<std::shared_ptr<Attribute>> children;

    bool isCompound() const { return !children.empty() || kind == Kind::Compound; }
    std::shared_ptr<Attribute> parentAttribute() const { return parent.lock(); }
    // Number of array attributes from the root attribute down to this one.
    int arrayDepth() const;
    // The chain from the root attribute down to this one.
    std::vector<const Attribute*> chain() const;
    // The MEL name of the value type, as addAttr -at / getAttr -type use it.
    std::string typeName() const;
    bool holdsNumber() const;
    double defaultNumber() const { return defaultValue.kind == Value::Kind::Number ? defaultValue.number : 0.0; }
};

using AttributePtr = std::shared_ptr<Attribute>;

// Builders for the common shapes, used by built-in node types and the
// attribute function sets.
AttributePtr makeNumeric(const std::string& longName, const std::string& shortName, MFnNumericData::Type type,
                         double defaultValue = 0.0);
AttributePtr makeUnit(const std::string& longName, const std::string& shortName, MFnUnitAttribute::Type type,
                      double defaultValue = 0.0);
AttributePtr makeEnum(const std::string& longName, const std::string& shortName,
                      std::vector<std::pair<std::string, short>> fields, short defaultValue = 0);
AttributePtr makeTyped(const std::string& longName, const std::string& shortName, MFnData::Type type);
AttributePtr makeMatrix(const std::string& longName, const std::string& shortName);
AttributePtr makeMessage(const std::string& longName, const std::string& shortName);
AttributePtr makeCompound(const std::string& longName, const std::string& shortName,
                          std::vector<AttributePtr> children);
// A compound of 2-4 numeric or unit children ("translate" of tx, ty, tz).
AttributePtr makeNumericCompound(const std::string& longName, const std::string& shortName,
                                 std::vector<AttributePtr> children);
// "translate"/"t" with "translateX"/"tx", ... of the given child kind.
AttributePtr makeTriple(const std::string& longName, const std::string& shortName, MFnUnitAttribute::Type unit,
                        double defaultValue = 0.0);
void addChild(const AttributePtr& parent, const AttributePtr& child);

// The attribute behind an MObject, or null.
Attribute* attributeObject(const MObject& object);
AttributePtr attributePtr(const MObject& object);

} // namespace mayasim
