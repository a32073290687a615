// setAttr, getAttr, addAttr, connectAttr and disconnectAttr. Values on the
// command line are in UI units (degrees, the UI distance and time units);
// plugs hold internal units.
#include "commands/CommandSupport.h"
#include "foundation/NumberText.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"

#include <maya/MAngle.h>
#include <maya/MDGContext.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDistance.h>
#include <maya/MTime.h>

#include <cstdint>
#include <limits>
#include <map>

namespace mayasim::commands {

namespace {

// --- unit conversion -------------------------------------------------------

double toInternal(const Attribute& attribute, double value)
{
    if (attribute.kind != Attribute::Kind::Unit)
        return value;
    switch (attribute.unitType)
    {
    case MFnUnitAttribute::kAngle: return MAngle::uiToInternal(value);
    case MFnUnitAttribute::kDistance: return MDistance::uiToInternal(value);
    case MFnUnitAttribute::kTime: return MTime(value, MTime::uiUnit()).as(MTime::kSeconds);
    default: return value;
    }
}

double toUi(const Attribute& attribute, double value)
{
    if (attribute.kind != Attribute::Kind::Unit)
        return value;
    switch (attribute.unitType)
    {
    case MFnUnitAttribute::kAngle: return MAngle::internalToUI(value);
    case MFnUnitAttribute::kDistance: return MDistance::internalToUI(value);
    case MFnUnitAttribute::kTime: return MTime(value, MTime::kSeconds).as(MTime::uiUnit());
    default: return value;
    }
}

bool integral(const Attribute& attribute)
{
    if (attribute.kind == Attribute::Kind::Enum)
        return true;
    if (attribute.kind != Attribute::Kind::Numeric)
        return false;
    switch (attribute.numericType)
    {
    case MFnNumericData::kBoolean:
    case MFnNumericData::kByte:
    case MFnNumericData::kChar:
    case MFnNumericData::kShort:
    case MFnNumericData::kInt:
    case MFnNumericData::kInt64: return true;
    default: return false;
    }
}

// --- setAttr -----------------------------------------------------------------

// The leaf plugs one value each goes to: the plug itself, or its children.
std::vector<PlugKey> leaves(const PlugKey& key)
{
    if (!key.attribute->isCompound())
        return {key};
    std::vector<PlugKey> result;
    for (const PlugKey& child : childKeys(key))
        for (const PlugKey& leaf : leaves(child))
            result.push_back(leaf);
    return result;
}

double numberFor(const Attribute& attribute, const Word& word)
{
    if (attribute.kind == Attribute::Kind::Enum && !word.isNumber())
    {
        for (const auto& field : attribute.enumFields)
            if (field.first == word.text)
                return field.second;
        throw MelError("setAttr: Invalid enum value: " + word.text);
    }
    if (attribute.kind == Attribute::Kind::Numeric && attribute.numericType == MFnNumericData::kBoolean)
        return word.boolean() ? 1.0 : 0.0;
    if (!word.isNumber())
        throw MelError("setAttr: Error reading data element number 1: " + word.text);
    return toInternal(attribute, word.number());
}

std::vector<Word> countedItems(const std::string& type, const std::vector<Word>& values)
{
    // "-type stringArray 2 a b": the count comes first.
    if (values.empty())
        return values;
    const long count = values[0].integer();
    if (count < 0 || static_cast<size_t>(count) != values.size() - 1)
        throw MelError("setAttr: wrong number of values for type " + type + ".");
    return std::vector<Word>(values.begin() + 1, values.end());
}

// Sets one plug from the value words its data type takes, returning how
// many words it used.
size_t setPlug(EditList& edits, const PlugRef& plug, const std::string& type, const std::vector<Word>& values,
               size_t at)
{
    const Attribute& attribute = *plug.key.attribute;
    auto remaining = std::vector<Word>(values.begin() + static_cast<long>(at), values.end());
    if (type == "string" || (type.empty() && attribute.kind == Attribute::Kind::Typed &&
                             attribute.dataType == MFnData::kString))
    {
        if (remaining.empty())
            throw MelError("setAttr: No value given for " + ops::plugText(*plug.node, plug.key) + ".");
        ops::setValue(edits, plug.node, plug.key, Value::ofText(remaining[0].text), true);
        return 1;
    }
    if (type == "stringArray")
    {
        std::vector<std::string> texts;
        for (const Word& word : countedItems(type, remaining))
            texts.push_back(word.text);
        ops::setValue(edits, plug.node, plug.key, Value::ofTexts(texts), true);
        return remaining.size();
    }
    if (type == "doubleArray" || type == "Int32Array" || type == "floatArray")
    {
        std::vector<double> numbers;
        for (const Word& word : countedItems(type, remaining))
            numbers.push_back(word.number());
        ops::setValue(edits, plug.node, plug.key, Value::ofNumbers(numbers), true);
        return remaining.size();
    }
    if (type == "matrix" || attribute.kind == Attribute::Kind::Matrix || attribute.kind == Attribute::Kind::FloatMatrix)
    {
        if (remaining.size() < 16)
            throw MelError("setAttr: a matrix takes 16 values.");
        MMatrix m;
        for (unsigned int i = 0; i < 16; ++i)
            m[i / 4][i % 4] = remaining[i].number();
        ops::setValue(edits, plug.node, plug.key, Value::ofMatrix(m), true);
        return 16;
    }
    if (attribute.kind == Attribute::Kind::Typed && attribute.dataType == MFnData::kDoubleArray)
    {
        std::vector<double> numbers;
        for (const Word& word : remaining)
            numbers.push_back(word.number());
        ops::setValue(edits, plug.node, plug.key, Value::ofNumbers(numbers), true);
        return remaining.size();
    }
    const std::vector<PlugKey> targets = leaves(plug.key);
    if (remaining.size() < targets.size())
        throw MelError("setAttr: Not enough data was provided. The last " +
                       std::to_string(targets.size() - remaining.size()) + " items will be skipped.");
    for (size_t i = 0; i < targets.size(); ++i)
        ops::setValue(edits, plug.node, targets[i], Value::ofNumber(numberFor(*targets[i].attribute, remaining[i])),
                      true);
    return targets.size();
}

// A node of a type mayasim doesn't know takes whatever attribute a file
// sets on it, shaped after the value given.
void addGenericAttribute(EditList& edits, const NodePtr& owner, const std::string& path, const std::string& type,
                         size_t valueCount)
{
    const std::string name = path.substr(0, path.find_first_of(".["));
    if (name.empty() || owner->findAttribute(name))
        return;
    AttributePtr attribute;
    if (type == "string")
        attribute = makeTyped(name, name, MFnData::kString);
    else if (type == "stringArray")
        attribute = makeTyped(name, name, MFnData::kStringArray);
    else if (type == "matrix")
        attribute = makeMatrix(name, name);
    else if (valueCount == 1 && type.empty())
        attribute = makeNumeric(name, name, MFnNumericData::kDouble);
    else
        attribute = makeTyped(name, name, MFnData::kDoubleArray);
    attribute->array = path.find('[') != std::string::npos;
    ops::addAttribute(edits, owner, attribute);
}

MelValue setAttr(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"typ", "type", 1}, {"k", "keyable", 1}, {"l", "lock", 1}, {"cb", "channelBox", 1},
                     {"s", "size", 1}, {"c", "clamp", 0}, {"av", "alteredValue", 0}, {"ca", "caching", 1}});
    const auto& words = args.positional();
    if (words.empty())
        throw MelError("setAttr: No attribute was specified.");
    const std::string type = args.has("type") ? args.args("type")[0].text : "";
    const std::vector<Word> values(words.begin() + 1, words.end());
    undoable([&](EditList& edits) {
        std::vector<PlugRef> targets;
        try
        {
            targets = plugs(words[0].text, "setAttr: ");
        }
        catch (const MelError&)
        {
            // Generic nodes grow the attribute; anything else fails.
            const size_t dot = words[0].text.find('.');
            std::vector<NodePtr> owners = dot == 0 ? selectedNodes() : std::vector<NodePtr>();
            if (dot != std::string::npos && dot > 0)
                if (std::vector<NodePtr> found = nodes({Word{words[0].text.substr(0, dot), true}}, false);
                    found.size() == 1)
                    owners = found;
            bool grown = false;
            for (const auto& owner : owners)
                if (owner->type()->acceptsUnknownAttributes)
                {
                    addGenericAttribute(edits, owner, words[0].text.substr(dot + 1), type, values.size());
                    grown = true;
                }
            if (!grown)
                throw;
            targets = plugs(words[0].text, "setAttr: ");
        }
        size_t at = 0;
        if (!values.empty())
            for (const PlugRef& plug : targets)
                at += setPlug(edits, plug, type, values, at);
        for (const PlugRef& plug : targets)
        {
            if (args.has("keyable"))
                ops::setKeyable(edits, plug.node, plug.key, args.args("keyable")[0].boolean());
            if (args.has("channelBox"))
                ops::setChannelBox(edits, plug.node, plug.key, args.args("channelBox")[0].boolean());
            if (args.has("lock"))
                ops::setLocked(edits, plug.node, plug.key, args.args("lock")[0].boolean());
        }
    });
    return MelValue::none();
}

// --- getAttr -----------------------------------------------------------------

void appendValue(const Node& node, const PlugKey& key, std::vector<double>& numbers, std::vector<std::string>& texts)
{
    if (key.attribute->array && !key.indices.empty() && key.indices.back() < 0)
    {
        std::vector<int> indices = existingIndices(node, key);
        if (indices.empty() && !key.attribute->writable)
            indices.push_back(0); // computed per-instance outputs (worldMatrix) read their first element
        for (int index : indices)
        {
            PlugKey element = key;
            element.indices.back() = index;
            appendValue(node, element, numbers, texts);
        }
        return;
    }
    if (key.attribute->isCompound())
    {
        for (const PlugKey& child : childKeys(key))
            appendValue(node, child, numbers, texts);
        return;
    }
    const Value value = eval::read(const_cast<Node&>(node), key);
    switch (value.kind)
    {
    case Value::Kind::Number: numbers.push_back(toUi(*key.attribute, value.number)); break;
    case Value::Kind::Matrix:
        for (unsigned int i = 0; i < 16; ++i)
            numbers.push_back(value.matrix[i / 4][i % 4]);
        break;
    case Value::Kind::Numbers: numbers.insert(numbers.end(), value.numbers.begin(), value.numbers.end()); break;
    case Value::Kind::Text: texts.push_back(value.text); break;
    case Value::Kind::Texts: texts.insert(texts.end(), value.texts.begin(), value.texts.end()); break;
    default: break;
    }
}

MelValue valueOf(const PlugRef& plug, bool asString)
{
    const Attribute& attribute = *plug.key.attribute;
    std::vector<double> numbers;
    std::vector<std::string> texts;
    appendValue(*plug.node, plug.key, numbers, texts);
    const bool single = !attribute.isCompound() && !(attribute.array && plug.key.indices.back() < 0);
    if (!texts.empty())
        return single && attribute.kind == Attribute::Kind::Typed && attribute.dataType == MFnData::kString
                   ? MelValue::ofString(texts.front())
                   : MelValue::ofStrings(texts);
    if (single && numbers.size() == 1)
    {
        if (asString && attribute.kind == Attribute::Kind::Enum)
            for (const auto& field : attribute.enumFields)
                if (field.second == truncatedTo<short>(numbers[0]))
                    return MelValue::ofString(field.first);
        return integral(attribute) ? MelValue::ofInt(truncatedTo<std::int32_t>(numbers[0])) : MelValue::ofFloat(numbers[0]);
    }
    if (single && attribute.kind == Attribute::Kind::Typed && numbers.empty())
        return MelValue::ofString("");
    return MelValue::ofFloats(numbers);
}

MelValue getAttr(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"typ", "type", 0}, {"k", "keyable", 0}, {"l", "lock", 0}, {"cb", "channelBox", 0},
                     {"s", "size", 0}, {"t", "time", 1}, {"as", "asString", 0}, {"sl", "silent", 0},
                     {"se", "settable", 0}});
    if (args.positional().size() != 1)
        throw MelError("getAttr: give one attribute.");
    const PlugRef plug = plugs(args.positional()[0].text).front();
    const Attribute& attribute = *plug.key.attribute;
    if (args.has("type"))
        return MelValue::ofString(attribute.typeName());
    if (args.has("keyable"))
        return MelValue::ofInt(makePlug(*plug.node, plug.key).isKeyable() ? 1 : 0);
    if (args.has("lock"))
        return MelValue::ofInt(ops::locked(*plug.node, plug.key) ? 1 : 0);
    if (args.has("channelBox"))
        return MelValue::ofInt(makePlug(*plug.node, plug.key).isChannelBoxFlagSet() ? 1 : 0);
    if (args.has("settable"))
        return MelValue::ofInt(attribute.writable && !ops::locked(*plug.node, plug.key) &&
                                       !eval::drivingSource(*plug.node, plug.key)
                                   ? 1
                                   : 0);
    if (args.has("size"))
    {
        const bool arrayPlug = attribute.array && plug.key.indices.back() < 0;
        return MelValue::ofInt(arrayPlug ? static_cast<long>(existingIndices(*plug.node, plug.key).size()) : 1);
    }
    if (args.has("time"))
    {
        MDGContextGuard guard(MDGContext(MTime(args.args("time")[0].number(), MTime::uiUnit())));
        return valueOf(plug, args.has("asString"));
    }
    return valueOf(plug, args.has("asString"));
}

// --- addAttr -----------------------------------------------------------------

// Compound attributes wait for their children (-numberOfChildren, or the
// tuple size of double3 and the like) before they join the node.
struct PendingCompound
{
    AttributePtr attribute;
    size_t expected = 0;
    // A node's address names it only while it lives: a new node may take
    // the address of one that is gone.
    std::weak_ptr<Node> node;
};

std::map<std::pair<const Node*, std::string>, PendingCompound>& pending()
{
    static std::map<std::pair<const Node*, std::string>, PendingCompound> compounds;
    return compounds;
}

size_t tupleSize(const std::string& type)
{
    if (type == "double2" || type == "float2" || type == "long2" || type == "short2")
        return 2;
    if (type == "double3" || type == "float3" || type == "long3" || type == "short3" || type == "reflectance" ||
        type == "spectrum")
        return 3;
    if (type == "double4")
        return 4;
    return 0;
}

AttributePtr makeAttribute(const std::string& longName, const std::string& shortName, const std::string& at,
                           const std::string& dt, const ParsedArgs& args)
{
    if (!dt.empty())
    {
        static const std::map<std::string, MFnData::Type> dataTypes = {
            {"string", MFnData::kString},           {"stringArray", MFnData::kStringArray},
            {"doubleArray", MFnData::kDoubleArray}, {"floatArray", MFnData::kFloatArray},
            {"Int32Array", MFnData::kIntArray},     {"matrix", MFnData::kMatrix},
            {"vectorArray", MFnData::kVectorArray}, {"pointArray", MFnData::kPointArray}};
        auto found = dataTypes.find(dt);
        if (found == dataTypes.end())
            throw MelError("addAttr: Unknown data type: " + dt);
        return makeTyped(longName, shortName, found->second);
    }
    static const std::map<std::string, MFnNumericData::Type> numericTypes = {
        {"double", MFnNumericData::kDouble}, {"float", MFnNumericData::kFloat}, {"long", MFnNumericData::kInt},
        {"short", MFnNumericData::kShort},   {"byte", MFnNumericData::kByte},   {"char", MFnNumericData::kChar},
        {"bool", MFnNumericData::kBoolean},  {"int64", MFnNumericData::kInt64}};
    const double defaultValue = args.has("defaultValue") ? args.args("defaultValue")[0].number() : 0.0;
    const std::string type = at.empty() ? "double" : at;
    if (auto found = numericTypes.find(type); found != numericTypes.end())
        return makeNumeric(longName, shortName, found->second, defaultValue);
    if (type == "doubleAngle" || type == "floatAngle")
        return makeUnit(longName, shortName, MFnUnitAttribute::kAngle, MAngle::uiToInternal(defaultValue));
    if (type == "doubleLinear" || type == "floatLinear")
        return makeUnit(longName, shortName, MFnUnitAttribute::kDistance, MDistance::uiToInternal(defaultValue));
    if (type == "time")
        return makeUnit(longName, shortName, MFnUnitAttribute::kTime,
                        MTime(defaultValue, MTime::uiUnit()).as(MTime::kSeconds));
    if (type == "enum")
    {
        std::vector<std::pair<std::string, short>> fields;
        if (args.has("enumName"))
        {
            short next = 0;
            std::string names = args.args("enumName")[0].text;
            size_t start = 0;
            while (start <= names.size())
            {
                const size_t end = std::min(names.find(':', start), names.size());
                std::string field = names.substr(start, end - start);
                if (const size_t equals = field.find('='); equals != std::string::npos)
                {
                    const std::string number = field.substr(equals + 1);
                    long value = 0;
                    if (!parseInteger(number, value) || value < std::numeric_limits<short>::min() ||
                        value > std::numeric_limits<short>::max())
                        throw MelError("addAttr: The value '" + number + "' of enum field '" + field.substr(0, equals) +
                                       "' is not a whole number from -32768 to 32767.");
                    next = static_cast<short>(value);
                    field = field.substr(0, equals);
                }
                if (!field.empty())
                    fields.emplace_back(field, next++);
                start = end + 1;
            }
        }
        return makeEnum(longName, shortName, fields, truncatedTo<short>(defaultValue));
    }
    if (type == "message")
        return makeMessage(longName, shortName);
    if (type == "matrix")
        return makeMatrix(longName, shortName);
    if (type == "fltMatrix")
    {
        AttributePtr attribute = makeMatrix(longName, shortName);
        attribute->kind = Attribute::Kind::FloatMatrix;
        return attribute;
    }
    if (type == "compound" || tupleSize(type) > 0)
    {
        AttributePtr attribute = type == "compound" ? makeCompound(longName, shortName, {})
                                                    : std::make_shared<Attribute>(Attribute::Kind::Numeric, longName,
                                                                                  shortName);
        if (type != "compound")
        {
            static const std::map<std::string, MFnNumericData::Type> tuples = {
                {"double2", MFnNumericData::k2Double}, {"double3", MFnNumericData::k3Double},
                {"double4", MFnNumericData::k4Double}, {"float2", MFnNumericData::k2Float},
                {"float3", MFnNumericData::k3Float},   {"reflectance", MFnNumericData::k3Float},
                {"spectrum", MFnNumericData::k3Float}, {"long2", MFnNumericData::k2Int},
                {"long3", MFnNumericData::k3Int},      {"short2", MFnNumericData::k2Short},
                {"short3", MFnNumericData::k3Short}};
            attribute->numericType = tuples.at(type);
            attribute->usedAsColor = type == "reflectance" || type == "spectrum";
        }
        return attribute;
    }
    throw MelError("addAttr: Unknown attribute type: " + type);
}

void applyOptions(Attribute& attribute, const ParsedArgs& args)
{
    auto flag = [&](const char* name, bool& target) {
        if (args.has(name))
            target = args.args(name)[0].boolean();
    };
    flag("keyable", attribute.keyable);
    flag("hidden", attribute.hidden);
    flag("storable", attribute.storable);
    flag("readable", attribute.readable);
    flag("writable", attribute.writable);
    flag("cachedInternally", attribute.cached);
    flag("usedAsColor", attribute.usedAsColor);
    flag("internalSet", attribute.internal);
    if (args.has("multi"))
        attribute.array = true;
    if (args.has("niceName"))
        attribute.niceName = args.args("niceName")[0].text;
    if (args.has("minValue"))
        attribute.minimum = args.args("minValue")[0].number();
    if (args.has("maxValue"))
        attribute.maximum = args.args("maxValue")[0].number();
    if (args.has("softMinValue"))
        attribute.softMinimum = args.args("softMinValue")[0].number();
    if (args.has("softMaxValue"))
        attribute.softMaximum = args.args("softMaxValue")[0].number();
}

MelValue addAttr(const Invocation& call)
{
    ParsedArgs args(call.name, call.words,
                    {{"ln", "longName", 1},      {"sn", "shortName", 1},      {"nn", "niceName", 1},
                     {"at", "attributeType", 1}, {"dt", "dataType", 1},       {"k", "keyable", 1},
                     {"dv", "defaultValue", 1},  {"min", "minValue", 1},      {"max", "maxValue", 1},
                     {"smn", "softMinValue", 1}, {"smx", "softMaxValue", 1},  {"p", "parent", 1},
                     {"nc", "numberOfChildren", 1}, {"m", "multi", 0},        {"en", "enumName", 1},
                     {"h", "hidden", 1},         {"s", "storable", 1},        {"r", "readable", 1},
                     {"w", "writable", 1},       {"ci", "cachedInternally", 1}, {"uac", "usedAsColor", 0},
                     {"is", "internalSet", 1},   {"im", "indexMatters", 1}});
    if (!args.has("longName") && !args.has("shortName"))
        throw MelError("addAttr: A long or short name must be given.");
    const std::string longName = args.has("longName") ? args.args("longName")[0].text : args.args("shortName")[0].text;
    const std::string shortName = args.has("shortName") ? args.args("shortName")[0].text : longName;
    const std::string at = args.has("attributeType") ? args.args("attributeType")[0].text : "";
    const std::string dt = args.has("dataType") ? args.args("dataType")[0].text : "";
    std::vector<NodePtr> targets = nodes(args.positional(), true);
    if (targets.empty())
        throw MelError("addAttr: No object was specified.");
    undoable([&](EditList& edits) {
        for (const auto& target : targets)
        {
            AttributePtr attribute = makeAttribute(longName, shortName, at, dt, args);
            applyOptions(*attribute, args);
            const size_t children =
                args.has("numberOfChildren") ? static_cast<size_t>(args.args("numberOfChildren")[0].integer()) : tupleSize(at);
            if (attribute->isCompound() || children > 0)
            {
                pending()[{target.get(), longName}] = {attribute, children, target};
                continue;
            }
            if (!args.has("parent"))
            {
                ops::addAttribute(edits, target, attribute);
                continue;
            }
            auto parent = pending().find({target.get(), args.args("parent")[0].text});
            if (parent != pending().end() && parent->second.node.lock() != target)
            {
                pending().erase(parent);
                parent = pending().end();
            }
            if (parent == pending().end())
                throw MelError("addAttr: The parent attribute '" + args.args("parent")[0].text +
                               "' was not found or is complete.");
            mayasim::addChild(parent->second.attribute, attribute);
            if (parent->second.attribute->children.size() == parent->second.expected)
            {
                AttributePtr complete = parent->second.attribute;
                pending().erase(parent);
                ops::addAttribute(edits, target, complete);
            }
        }
    });
    return MelValue::none();
}

// --- connectAttr / disconnectAttr ------------------------------------------

PlugAddress single(const std::string& text)
{
    const std::vector<PlugRef> found = plugs(text);
    return PlugAddress{found.front().node, found.front().key};
}

// -nextAvailable: an array plug named without an index takes the element
// after the last one in use (how files connect set members).
PlugAddress nextAvailable(PlugAddress plug)
{
    if (!plug.key.attribute->array || plug.key.indices.empty() || plug.key.indices.back() >= 0)
        return plug;
    const std::vector<int> used = existingIndices(*plug.lock(), plug.key);
    plug.key.indices.back() = used.empty() ? 0 : used.back() + 1;
    return plug;
}

std::string phrase(const PlugAddress& plug)
{
    return ops::plugText(*plug.lock(), plug.key);
}

MelValue connectAttr(const Invocation& call)
{
    ParsedArgs args(call.name, call.words, {{"f", "force", 0}, {"l", "lock", 1}, {"na", "nextAvailable", 0}});
    if (args.positional().size() != 2)
        throw MelError("connectAttr: give a source and a destination attribute.");
    const PlugAddress source = single(args.positional()[0].text);
    PlugAddress destination = single(args.positional()[1].text);
    if (args.has("nextAvailable"))
        destination = nextAvailable(destination);
    undoable([&](EditList& edits) { ops::connect(edits, source, destination, args.has("force")); });
    return MelValue::ofString("Connected " + phrase(source) + " to " + phrase(destination) + ".");
}

MelValue disconnectAttr(const Invocation& call)
{
    ParsedArgs args(call.name, call.words, {{"na", "nextAvailable", 0}});
    if (args.positional().size() != 2)
        throw MelError("disconnectAttr: give a source and a destination attribute.");
    const PlugAddress source = single(args.positional()[0].text);
    const PlugAddress destination = single(args.positional()[1].text);
    undoable([&](EditList& edits) { ops::disconnect(edits, source, destination); });
    return MelValue::ofString("Disconnect " + phrase(source) + " from " + phrase(destination) + ".");
}

BuiltinRegistrar setAttrCommand("setAttr", setAttr);
BuiltinRegistrar getAttrCommand("getAttr", getAttr);
BuiltinRegistrar addAttrCommand("addAttr", addAttr);
BuiltinRegistrar connectAttrCommand("connectAttr", connectAttr);
BuiltinRegistrar disconnectAttrCommand("disconnectAttr", disconnectAttr);

} // namespace

} // namespace mayasim::commands
