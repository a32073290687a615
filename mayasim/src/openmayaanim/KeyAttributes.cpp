#include "openmayaanim/KeyAttributes.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "openmayaanim/AnimCurveNodes.h"
#include "openmayaanim/ChangeLog.h"
#include "scene/Edits.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <maya/MNodeMessage.h>

#include <cmath>
#include <functional>
#include <map>

namespace mayasim::anim {

namespace {

// The attributes whose values are the curve's own.
enum class Field
{
    KeyTime,
    KeyValue,
    InType,
    OutType,
    InX,
    InY,
    OutX,
    OutY,
    TangentsLocked,
    WeightsLocked,
    Weighted,
    PreInfinity,
    PostInfinity
};

std::optional<Field> fieldOf(const Attribute& attribute)
{
    static const std::map<std::string, Field> fields = {
        {"kt", Field::KeyTime},        {"kv", Field::KeyValue},  {"kit", Field::InType},
        {"kot", Field::OutType},       {"kix", Field::InX},      {"kiy", Field::InY},
        {"kox", Field::OutX},          {"koy", Field::OutY},     {"ktl", Field::TangentsLocked},
        {"kwl", Field::WeightsLocked}, {"wgt", Field::Weighted}, {"pre", Field::PreInfinity},
        {"pst", Field::PostInfinity}};
    const auto found = attribute.dynamic ? fields.end() : fields.find(attribute.shortName);
    return found == fields.end() ? std::nullopt : std::optional<Field>(found->second);
}

Side sideOf(Field field)
{
    return field == Field::InType || field == Field::InX || field == Field::InY ? Side::In : Side::Out;
}

// Files number tangent types their own way: Maya's internal numbers, which
// MFnAnimCurve::TangentType renumbers. The shared and plug-in types keep
// their numbers; any other number (4, the attribute's default) stands for
// the host's default type.
struct FileCode
{
    const char* name;
    short code;
    TangentType type;
};

constexpr FileCode kFileCodes[] = {{"Fixed", 1, TangentType::Fixed},      {"Linear", 2, TangentType::Linear},
                                   {"Flat", 3, TangentType::Flat},        {"Step", 5, TangentType::Step},
                                   {"Slow", 6, TangentType::Slow},        {"Fast", 7, TangentType::Fast},
                                   {"Spline", 9, TangentType::Smooth},    {"Clamped", 10, TangentType::Clamped},
                                   {"Plateau", 16, TangentType::Plateau}, {"StepNext", 17, TangentType::StepNext},
                                   {"Auto", 18, TangentType::Auto}};

constexpr short kDefaultTypeCode = 4;

double codeOf(TangentType type)
{
    for (const FileCode& entry : kFileCodes)
        if (entry.type == type)
            return entry.code;
    return static_cast<double>(type);
}

TangentType typeOfCode(double code)
{
    const long number = std::lround(code);
    for (const FileCode& entry : kFileCodes)
        if (entry.code == number)
            return entry.type;
    const bool ownNumber = number >= static_cast<long>(TangentType::Shared1) && isTangentType(static_cast<int>(number));
    return ownNumber ? static_cast<TangentType>(number) : TangentType::Global;
}

std::vector<std::pair<std::string, short>> tangentFields()
{
    std::vector<std::pair<std::string, short>> fields;
    for (const FileCode& entry : kFileCodes)
        fields.emplace_back(entry.name, entry.code);
    return fields;
}

// The type of the keys keyTimeValue adds: the node's tangentType.
TangentType addedKeyType(const Node& node)
{
    return typeOfCode(eval::stored(node, keyOf(*node.findAttribute("tan"))).number);
}

double keyNumber(const Key& key, Field field)
{
    switch (field)
    {
    case Field::KeyTime: return key.input;
    case Field::KeyValue: return key.value;
    case Field::InType: return codeOf(key.inType);
    case Field::OutType: return codeOf(key.outType);
    case Field::InX: return key.in.x;
    case Field::InY: return key.in.y;
    case Field::OutX: return key.out.x;
    case Field::OutY: return key.out.y;
    case Field::TangentsLocked: return key.tangentsLocked ? 1.0 : 0.0;
    case Field::WeightsLocked: return key.weightsLocked ? 1.0 : 0.0;
    default: return 0.0;
    }
}

// --- reading ---

std::optional<Value> keptValue(Node& node, const PlugKey& key)
{
    const std::optional<Field> field = fieldOf(*key.attribute);
    if (!field)
        return std::nullopt;
    const AnimCurveData& curve = *curveData(node);
    const CurveSettings& settings = curve.settings();
    switch (*field)
    {
    case Field::Weighted: return Value::ofNumber(settings.weighted ? 1.0 : 0.0);
    case Field::PreInfinity: return Value::ofNumber(static_cast<int>(settings.preInfinity));
    case Field::PostInfinity: return Value::ofNumber(static_cast<int>(settings.postInfinity));
    default: break;
    }
    const int element = key.indices.empty() ? -1 : key.indices.front();
    if (element < 0 || static_cast<std::size_t>(element) >= curve.size())
        return std::nullopt; // no such key: the attribute's default
    return Value::ofNumber(keyNumber(curve.key(static_cast<std::size_t>(element)), *field));
}

// Every key is an element of the per-key arrays.
std::vector<int> keptIndices(const Node& node, const PlugKey& arrayKey)
{
    const Attribute& array = *arrayKey.attribute;
    if (!array.array || array.dynamic || (array.shortName != "ktv" && !fieldOf(array)))
        return {};
    std::vector<int> indices(curveData(const_cast<Node&>(node))->size()); // made on first use
    for (std::size_t i = 0; i < indices.size(); ++i)
        indices[i] = static_cast<int>(i);
    return indices;
}

// --- writing ---

// The key a keyTimeValue element added last: its value may come next, and
// the key need not sit at the element's index when a file lists keys out of
// time order.
struct AddedKey
{
    std::weak_ptr<AnimCurveData> curve;
    int element = -1;
    double input = 0.0;
};

AddedKey& lastAdded()
{
    static AddedKey added;
    return added;
}

// One write to a key attribute. Done once through a log of the curve edits
// it made, which undo and redo replay.
class KeyEdit : public Edit
{
public:
    KeyEdit(NodePtr node, PlugKey key, Field field, double number)
        : fNode(std::move(node)), fKey(std::move(key)), fField(field), fNumber(number)
    {
    }

    void apply() override
    {
        if (fDone)
            fLog.redo();
        else
            write();
        fDone = true;
        announce();
    }

    void revert() override
    {
        fLog.undo();
        announce();
    }

private:
    void write()
    {
        const std::shared_ptr<AnimCurveData> curve = curveData(*fNode);
        switch (fField)
        {
        case Field::Weighted: return curve->setWeighted(fNumber != 0.0, &fLog);
        case Field::PreInfinity:
        case Field::PostInfinity:
        {
            const long type = std::lround(fNumber);
            if (!isInfinityType(static_cast<int>(type)))
                throw MelError("setAttr: " + std::to_string(type) + " is not an infinity type.");
            return curve->setInfinity(fField == Field::PreInfinity ? Side::In : Side::Out,
                                      static_cast<InfinityType>(type), &fLog);
        }
        case Field::KeyTime: return writeTime(curve);
        default: break;
        }
        const std::size_t index = keyIndex(*curve);
        switch (fField)
        {
        case Field::KeyValue: curve->setValue(index, fNumber, &fLog); break;
        case Field::InType:
        case Field::OutType: curve->setTangentType(index, sideOf(fField), typeOfCode(fNumber), &fLog); break;
        case Field::TangentsLocked: curve->setTangentsLocked(index, fNumber != 0.0, &fLog); break;
        case Field::WeightsLocked: curve->setWeightsLocked(index, fNumber != 0.0, &fLog); break;
        default: writeTangent(*curve, index); break;
        }
    }

    int element() const { return fKey.indices.front(); }

    // An element past the last key adds a key, of the node's tangentType;
    // an existing key moves, but not onto or past a neighbour.
    void writeTime(const std::shared_ptr<AnimCurveData>& curve)
    {
        const double input = curve->timeInput() ? wholeTicks(fNumber) : fNumber;
        const auto index = static_cast<std::size_t>(element());
        if (index >= curve->size())
        {
            const TangentType type = addedKeyType(*fNode);
            curve->addKey(input, 0.0, type, type, &fLog);
            lastAdded() = {curve, element(), input};
        }
        else if (curve->key(index).input != input && !curve->setInput(index, input, &fLog))
            throw MelError("setAttr: " + ops::plugText(*fNode, fKey) + " can't move onto or past another key.");
    }

    std::size_t keyIndex(const AnimCurveData& curve) const
    {
        std::size_t index = static_cast<std::size_t>(element());
        const AddedKey& added = lastAdded();
        if (added.curve.lock().get() == &curve && added.element == element())
            curve.find(added.input, index);
        if (index >= curve.size())
            throw MelError("setAttr: " + ops::plugText(*fNode, fKey) + " has no key.");
        return index;
    }

    // A tangent's x or y as given: a file's numbers are the tangent, not a
    // direction to normalise, and the key keeps its tangent type.
    void writeTangent(AnimCurveData& curve, std::size_t index)
    {
        Key key = curve.key(index);
        Tangent& tangent = sideOf(fField) == Side::In ? key.in : key.out;
        (fField == Field::InX || fField == Field::OutX ? tangent.x : tangent.y) = fNumber;
        CurveEdit edit{index, {curve.key(index)}, {key}, curve.settings(), curve.settings()};
        curve.apply(edit, true);
        fLog.record(curve, edit);
    }

    void announce()
    {
        MObject node = objectOf(fNode.get());
        MPlug plug = makePlug(*fNode, fKey);
        MPlug none;
        events::fireAttributeChanged(node, MNodeMessage::kAttributeSet, plug, none);
    }

    NodePtr fNode;
    PlugKey fKey;
    Field fField;
    double fNumber;
    ChangeLog fLog;
    bool fDone = false;
};

std::unique_ptr<Edit> keyAttributeEdit(const NodePtr& node, const PlugKey& key, const Value& value)
{
    const std::optional<Field> field = fieldOf(*key.attribute);
    if (!field)
        return nullptr;
    if (value.kind != Value::Kind::Number)
        throw MelError("setAttr: " + ops::plugText(*node, key) + " takes a number.");
    return std::make_unique<KeyEdit>(node, key, *field, value.number);
}

// --- saving ---

// A curve's setAttr lines in Maya's order: tangentType, weightedTangents,
// keyTimeValue, then the per-key attributes from the first key that
// differs from what loading the lines before gives it, and infinity.
class CurveLines
{
public:
    CurveLines(Node& node, const NodeType::NumberText& numberText)
        : fNode(node), fCurve(*curveData(node)), fNumberText(numberText)
    {
    }

    std::string text()
    {
        const TangentType type = baseType();
        if (!fCurve.settings().weighted)
            setting("wgt", 0.0);
        column("ktv", 0, [](const Key& key) { return std::vector<double>{key.input, key.value}; });
        column("kit", first([type](std::size_t, const Key& key) { return key.inType != type; }), field(Field::InType));
        column("kot", first([type](std::size_t, const Key& key) { return key.outType != type; }),
               field(Field::OutType));
        column("ktl", first([](std::size_t, const Key& key) { return !key.tangentsLocked; }),
               field(Field::TangentsLocked));
        column("kwl", first([](std::size_t, const Key& key) { return !key.weightsLocked; }),
               field(Field::WeightsLocked));
        // Loading computes the tangents of all but fixed sides; those that
        // differ from that (set as numbers) are written too.
        // Making a curve weighted or not recomputes every non-fixed tangent.
        AnimCurveData loaded(fCurve);
        loaded.setWeighted(!fCurve.settings().weighted, nullptr);
        loaded.setWeighted(fCurve.settings().weighted, nullptr);
        for (Side side : {Side::In, Side::Out})
        {
            const std::size_t from = first([&](std::size_t i, const Key& key) {
                return key.type(side) == TangentType::Fixed || !(key.tangent(side) == loaded.key(i).tangent(side));
            });
            const bool in = side == Side::In;
            column(in ? "kix" : "kox", from, field(in ? Field::InX : Field::OutX));
            column(in ? "kiy" : "koy", from, field(in ? Field::InY : Field::OutY));
        }
        if (fCurve.settings().preInfinity != InfinityType::Constant)
            setting("pre", static_cast<int>(fCurve.settings().preInfinity));
        if (fCurve.settings().postInfinity != InfinityType::Constant)
            setting("pst", static_cast<int>(fCurve.settings().postInfinity));
        return fText;
    }

private:
    using Numbers = std::function<std::vector<double>(const Key&)>;

    static Numbers field(Field which)
    {
        return [which](const Key& key) { return std::vector<double>{keyNumber(key, which)}; };
    }

    // The type the file's tangentType gives new keys: the node's, or when
    // it has none, the commonest type of the keys, written here.
    TangentType baseType()
    {
        const TangentType own = addedKeyType(fNode);
        if (own != TangentType::Global || fCurve.size() == 0)
            return own;
        std::map<TangentType, std::size_t> counts;
        TangentType commonest = fCurve.key(0).inType;
        for (std::size_t i = 0; i < fCurve.size(); ++i)
            for (Side side : {Side::In, Side::Out})
            {
                const TangentType type = fCurve.key(i).type(side);
                if (++counts[type] > counts[commonest])
                    commonest = type;
            }
        setting("tan", codeOf(commonest));
        return commonest;
    }

    template <typename Test> std::size_t first(Test&& differs) const
    {
        for (std::size_t i = 0; i < fCurve.size(); ++i)
            if (differs(i, fCurve.key(i)))
                return i;
        return fCurve.size();
    }

    const Attribute& attribute(const std::string& name) const { return *fNode.findAttribute(name); }

    void setting(const std::string& name, double value)
    {
        fText += "\tsetAttr \"." + name + "\" " + fNumberText(attribute(name), value) + ";\n";
    }

    // One setAttr for the elements [from, last key] of a per-key attribute.
    void column(const std::string& name, std::size_t from, const Numbers& numbers)
    {
        const std::size_t count = fCurve.size();
        if (from >= count)
            return;
        const Attribute& array = attribute(name);
        std::vector<const Attribute*> leaves;
        for (const AttributePtr& child : array.children)
            leaves.push_back(child.get());
        if (leaves.empty())
            leaves.push_back(&array);
        const bool booleans = array.kind == Attribute::Kind::Numeric && array.numericType == MFnNumericData::kBoolean;
        std::string values;
        for (std::size_t i = from; i < count; ++i)
        {
            const std::vector<double> element = numbers(fCurve.key(i));
            for (std::size_t leaf = 0; leaf < leaves.size(); ++leaf)
                values += " " + fNumberText(*leaves[leaf], element[leaf]);
        }
        const std::string range = std::to_string(from) + (from + 1 < count ? ":" + std::to_string(count - 1) : "");
        fText += "\tsetAttr" + (count > 1 ? " -s " + std::to_string(count) : std::string()) + " \"." + name + "[" +
                 range + "]\"" + (booleans ? "" : " ") + values + ";\n";
    }

    Node& fNode;
    const AnimCurveData& fCurve;
    const NodeType::NumberText& fNumberText;
    std::string fText;
};

std::string curveFileLines(const Node& node, const NodeType::NumberText& numberText)
{
    // The keys are made on first use, so reading them may create them.
    return CurveLines(const_cast<Node&>(node), numberText).text();
}

AttributePtr perKey(AttributePtr attribute)
{
    attribute->array = true;
    return attribute;
}

AttributePtr boolean(const std::string& longName, const std::string& shortName, bool value)
{
    return makeNumeric(longName, shortName, MFnNumericData::kBoolean, value ? 1.0 : 0.0);
}

} // namespace

void declareKeyAttributes(NodeType& type, const AttributePtr& keyTime, const AttributePtr& keyValue)
{
    const std::vector<std::pair<std::string, short>> infinities = {
        {"Constant", 0}, {"Linear", 1}, {"Cycle", 3}, {"Cycle with Offset", 4}, {"Oscillate", 5}};
    type.addAttribute(makeEnum("tangentType", "tan", tangentFields(), kDefaultTypeCode));
    type.addAttribute(boolean("weightedTangents", "wgt", true));
    type.addAttribute(makeEnum("preInfinity", "pre", infinities));
    type.addAttribute(makeEnum("postInfinity", "pst", infinities));
    type.addAttribute(perKey(makeCompound("keyTimeValue", "ktv", {keyTime, keyValue})));
    type.addAttribute(perKey(makeEnum("keyTanInType", "kit", tangentFields(), kDefaultTypeCode)));
    type.addAttribute(perKey(makeEnum("keyTanOutType", "kot", tangentFields(), kDefaultTypeCode)));
    for (const auto& [longName, shortName] : {std::pair{"keyTanInX", "kix"}, std::pair{"keyTanInY", "kiy"},
                                              std::pair{"keyTanOutX", "kox"}, std::pair{"keyTanOutY", "koy"}})
        type.addAttribute(perKey(makeNumeric(longName, shortName, MFnNumericData::kDouble)));
    type.addAttribute(perKey(boolean("keyTanLocked", "ktl", true)));
    type.addAttribute(perKey(boolean("keyWeightLocked", "kwl", true)));
    type.addAttribute(perKey(boolean("keyBreakdown", "kbd", false)));

    type.compute = [output = std::move(type.compute)](Node& node, const PlugKey& key) -> std::optional<Value> {
        if (std::optional<Value> kept = keptValue(node, key))
            return kept;
        return output(node, key);
    };
    type.keptValueEdit = keyAttributeEdit;
    type.keptIndices = keptIndices;
    type.fileLines = curveFileLines;
}

} // namespace mayasim::anim
