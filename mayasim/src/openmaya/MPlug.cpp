#include <maya/MPlug.h>

#include "foundation/NumberText.h"
#include "scene/Api.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"

#include <maya/MAngle.h>
#include <maya/MDGContextGuard.h>
#include <maya/MDistance.h>
#include <maya/MFnMatrixData.h>
#include <maya/MFnNumericData.h>
#include <maya/MIntArray.h>
#include <maya/MPlugArray.h>
#include <maya/MTime.h>
#include <maya/MString.h>

#include <cmath>

using namespace mayasim;

namespace {

struct Target
{
    NodePtr node;
    PlugKey key;
    explicit operator bool() const { return node && key.attribute; }
};

Target target(const MPlug& plug, MStatus* status = nullptr)
{
    Target t{nodePtr(plug.node()), plugKey(plug)};
    setStatus(status, t ? MS::kSuccess : MS::kFailure);
    return t;
}

MPlug withKey(const Target& t, const PlugKey& key)
{
    return makePlug(*t.node, key);
}

Value readValue(const MPlug& plug, MStatus* status)
{
    Target t = target(plug, status);
    return t ? eval::read(*t.node, t.key) : Value();
}

double readNumber(const MPlug& plug, MStatus* status)
{
    const Value value = readValue(plug, status);
    if (value.kind != Value::Kind::Number)
    {
        setStatus(status, MS::kFailure);
        return 0.0;
    }
    return value.number;
}

MStatus write(const MPlug& plug, const Value& value)
{
    Target t = target(plug);
    if (!t)
        return MS::kFailure;
    return applyDirect([&](EditList& edits) { ops::setValue(edits, t.node, t.key, value, false); });
}

// Sets the children of a compound from a list of numbers.
MStatus writeChildren(const MPlug& plug, const std::vector<double>& numbers)
{
    Target t = target(plug);
    if (!t)
        return MS::kFailure;
    const std::vector<PlugKey> children = childKeys(t.key);
    if (children.size() != numbers.size())
        return MS::kInvalidParameter;
    return applyDirect([&](EditList& edits) {
        for (size_t i = 0; i < children.size(); ++i)
            ops::setValue(edits, t.node, children[i], Value::ofNumber(numbers[i]), false);
    });
}

bool hasConnection(const Node& node, const PlugKey& key)
{
    if (node.incoming.count(key))
        return true;
    auto it = node.outgoing.find(key);
    return it != node.outgoing.end() && !it->second.empty();
}

bool connectedAtOrBelow(const Node& node, const PlugKey& key)
{
    auto below = [&](const PlugKey& other) {
        for (std::optional<PlugKey> at = other; at; at = at->parentKey())
            if (*at == key)
                return true;
        return false;
    };
    for (const auto& entry : node.incoming)
        if (below(entry.first))
            return true;
    for (const auto& entry : node.outgoing)
        if (!entry.second.empty() && below(entry.first))
            return true;
    return false;
}

bool isArrayPlug(const PlugKey& key)
{
    return key.attribute->array && !key.indices.empty() && key.indices.back() < 0;
}

bool isElementPlug(const PlugKey& key)
{
    return key.attribute->array && !key.indices.empty() && key.indices.back() >= 0;
}

// No element chosen on any array along the attribute's path.
PlugIndices* unchosenIndices(const Attribute* attribute)
{
    if (!attribute || attribute->arrayDepth() == 0)
        return nullptr;
    return new PlugIndices{std::vector<int>(static_cast<size_t>(attribute->arrayDepth()), -1)};
}

PlugIndices* copyOf(const PlugIndices* indices)
{
    return indices ? new PlugIndices(*indices) : nullptr;
}

} // namespace

MPlug::MPlug() : fIndices(nullptr) {}

MPlug::MPlug(const MPlug& in) : fNode(in.fNode), fAttribute(in.fAttribute), fIndices(copyOf(in.fIndices)) {}

MPlug::~MPlug()
{
    delete fIndices;
}

MPlug& MPlug::operator=(const MPlug& other)
{
    if (this != &other)
    {
        PlugIndices* indices = copyOf(other.fIndices);
        delete fIndices;
        fIndices = indices;
        fNode = other.fNode;
        fAttribute = other.fAttribute;
    }
    return *this;
}

MPlug::MPlug(const MObject& node, const MObject& attribute)
    : fNode(node), fAttribute(attribute), fIndices(unchosenIndices(attributeObject(attribute)))
{
}

MStatus MPlug::setAttribute(MObject& attribute)
{
    const Attribute* a = attributeObject(attribute);
    if (!a)
        return MS::kInvalidParameter;
    fAttribute = attribute;
    delete fIndices;
    fIndices = unchosenIndices(a);
    return MS::kSuccess;
}

MObject MPlug::attribute(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, fAttribute.isNull() ? MS::kFailure : MS::kSuccess);
    return fAttribute;
}

MObject MPlug::node(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, fNode.isNull() ? MS::kFailure : MS::kSuccess);
    return fNode;
}

MString MPlug::name(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t ? MString(ops::plugText(*t.node, t.key).c_str()) : MString();
}

MString MPlug::partialName(bool includeNodeName, bool, bool, bool, bool useFullAttributePath, bool useLongNames,
                           MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return MString();
    PlugNameOptions options;
    options.includeNodeName = includeNodeName;
    options.useFullAttributePath = useFullAttributePath;
    options.useLongNames = useLongNames;
    return MString(plugName(*t.node, t.key, options).c_str());
}

MString MPlug::info(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return MString();
    PlugNameOptions options;
    options.includeNodeName = true;
    options.useFullAttributePath = true;
    options.useLongNames = true;
    return MString(plugName(*t.node, t.key, options).c_str());
}

bool MPlug::isNetworked(MStatus* ReturnStatus) const
{
    return isConnected(ReturnStatus);
}

bool MPlug::isArray(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && isArrayPlug(t.key);
}

bool MPlug::isElement(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && isElementPlug(t.key);
}

bool MPlug::isCompound(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && t.key.attribute->isCompound();
}

bool MPlug::isChild(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && t.key.attribute->parentAttribute() && !isElementPlug(t.key);
}

bool MPlug::isDynamic(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && t.key.attribute->dynamic;
}

bool MPlug::isNull(MStatus* ReturnStatus) const
{
    setStatus(ReturnStatus, MS::kSuccess);
    return fNode.isNull() || fAttribute.isNull();
}

bool MPlug::isFromReferencedFile(MStatus* ReturnStatus) const
{
    target(*this, ReturnStatus);
    return false;
}

unsigned int MPlug::logicalIndex(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t || !isElementPlug(t.key))
    {
        setStatus(ReturnStatus, MS::kFailure);
        return 0;
    }
    return static_cast<unsigned int>(t.key.indices.back());
}

MPlug MPlug::elementByLogicalIndex(unsigned int logicalIndex, MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t || !isArrayPlug(t.key))
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MPlug();
    }
    PlugKey key = t.key;
    key.indices.back() = static_cast<int>(logicalIndex);
    return withKey(t, key);
}

MPlug MPlug::elementByPhysicalIndex(unsigned int physicalIndex, MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    const std::vector<int> indices = t && isArrayPlug(t.key) ? existingIndices(*t.node, t.key) : std::vector<int>();
    if (physicalIndex >= indices.size())
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MPlug();
    }
    PlugKey key = t.key;
    key.indices.back() = indices[physicalIndex];
    return withKey(t, key);
}

MPlug MPlug::array(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t || !isElementPlug(t.key))
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MPlug();
    }
    PlugKey key = t.key;
    key.indices.back() = -1;
    return withKey(t, key);
}

MPlug MPlug::parent(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    std::optional<PlugKey> parentKey = t && !isElementPlug(t.key) ? t.key.parentKey() : std::nullopt;
    if (!parentKey)
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MPlug();
    }
    return withKey(t, *parentKey);
}

MPlug MPlug::child(MObject& attr, MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (t)
        for (const PlugKey& key : childKeys(t.key))
            if (objectOf(key.attribute) == attr)
                return withKey(t, key);
    setStatus(ReturnStatus, MS::kFailure);
    return MPlug();
}

MPlug MPlug::child(unsigned int index, MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    const std::vector<PlugKey> children = t ? childKeys(t.key) : std::vector<PlugKey>();
    if (index >= children.size())
    {
        setStatus(ReturnStatus, MS::kFailure);
        return MPlug();
    }
    return withKey(t, children[index]);
}

unsigned int MPlug::numElements(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t || !isArrayPlug(t.key))
    {
        setStatus(ReturnStatus, MS::kFailure);
        return 0;
    }
    return static_cast<unsigned int>(existingIndices(*t.node, t.key).size());
}

unsigned int MPlug::evaluateNumElements(MStatus* ReturnStatus)
{
    return numElements(ReturnStatus);
}

unsigned int MPlug::numChildren(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t ? static_cast<unsigned int>(t.key.attribute->children.size()) : 0;
}

unsigned int MPlug::numConnectedElements(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t || !isArrayPlug(t.key))
        return 0;
    unsigned int count = 0;
    for (int index : existingIndices(*t.node, t.key))
    {
        PlugKey element = t.key;
        element.indices.back() = index;
        count += connectedAtOrBelow(*t.node, element) ? 1 : 0;
    }
    return count;
}

unsigned int MPlug::numConnectedChildren(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    unsigned int count = 0;
    if (t)
        for (const PlugKey& key : childKeys(t.key))
            count += connectedAtOrBelow(*t.node, key) ? 1 : 0;
    return count;
}

unsigned int MPlug::getExistingArrayAttributeIndices(MIntArray& indices, MStatus* ReturnStatus)
{
    indices.clear();
    Target t = target(*this, ReturnStatus);
    if (!t || !isArrayPlug(t.key))
    {
        setStatus(ReturnStatus, MS::kFailure);
        return 0;
    }
    for (int index : existingIndices(*t.node, t.key))
        indices.append(index);
    return indices.length();
}

MStatus MPlug::setNumElements(unsigned int)
{
    Target t = target(*this);
    return t && isArrayPlug(t.key) ? MS::kSuccess : MS::kFailure;
}

bool MPlug::connectedTo(MPlugArray& array, bool asDst, bool asSrc, MStatus* ReturnStatus) const
{
    array.clear();
    Target t = target(*this, ReturnStatus);
    if (!t)
        return false;
    if (asDst)
        if (auto it = t.node->incoming.find(t.key); it != t.node->incoming.end())
            if (NodePtr source = it->second.lock())
                array.append(makePlug(*source, it->second.key));
    if (asSrc)
        if (auto it = t.node->outgoing.find(t.key); it != t.node->outgoing.end())
            for (const auto& destination : it->second)
                if (NodePtr node = destination.lock())
                    array.append(makePlug(*node, destination.key));
    return array.length() > 0;
}

bool MPlug::isConnected(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && hasConnection(*t.node, t.key);
}

bool MPlug::isSource(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return false;
    auto it = t.node->outgoing.find(t.key);
    return it != t.node->outgoing.end() && !it->second.empty();
}

bool MPlug::isDestination(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && t.node->incoming.count(t.key) > 0;
}

MPlug MPlug::source(MStatus* ReturnStatus) const
{
    MPlugArray sources;
    connectedTo(sources, true, false, ReturnStatus);
    return sources.length() ? sources[0] : MPlug();
}

bool MPlug::destinations(MPlugArray& theDestinations, MStatus* ReturnStatus) const
{
    return connectedTo(theDestinations, false, true, ReturnStatus);
}

bool MPlug::isKeyable(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return false;
    const PlugState* state = t.node->state(t.key);
    return state && state->keyable ? *state->keyable : t.key.attribute->keyable;
}

MStatus MPlug::setKeyable(bool keyable)
{
    Target t = target(*this);
    if (!t)
        return MS::kFailure;
    return applyDirect([&](EditList& edits) { ops::setKeyable(edits, t.node, t.key, keyable); });
}

bool MPlug::isLocked(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    return t && ops::locked(*t.node, t.key);
}

MStatus MPlug::setLocked(bool locked)
{
    Target t = target(*this);
    if (!t)
        return MS::kFailure;
    return applyDirect([&](EditList& edits) { ops::setLocked(edits, t.node, t.key, locked); });
}

bool MPlug::isChannelBoxFlagSet(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return false;
    const PlugState* state = t.node->state(t.key);
    return state && state->channelBox ? *state->channelBox : t.key.attribute->channelBox;
}

MStatus MPlug::setChannelBox(bool channelBox)
{
    Target t = target(*this);
    if (!t)
        return MS::kFailure;
    return applyDirect([&](EditList& edits) { ops::setChannelBox(edits, t.node, t.key, channelBox); });
}

// --- values ------------------------------------------------------------------

MObject MPlug::asMObject(MStatus* ReturnStatus) const
{
    Target t = target(*this, ReturnStatus);
    if (!t)
        return MObject();
    if (t.key.attribute->isCompound())
    {
        std::vector<double> numbers;
        for (const PlugKey& key : childKeys(t.key))
        {
            const Value value = eval::read(*t.node, key);
            numbers.push_back(value.kind == Value::Kind::Number ? value.number : 0.0);
        }
        return makeData(MFnData::kNumeric, Value::ofNumbers(numbers));
    }
    const Value value = eval::read(*t.node, t.key);
    switch (value.kind)
    {
    case Value::Kind::Matrix: return makeData(MFnData::kMatrix, value);
    case Value::Kind::Text: return makeData(MFnData::kString, value);
    case Value::Kind::Texts: return makeData(MFnData::kStringArray, value);
    case Value::Kind::Numbers: return makeData(MFnData::kDoubleArray, value);
    case Value::Kind::Data: return value.data;
    default: setStatus(ReturnStatus, MS::kFailure); return MObject();
    }
}

double MPlug::asDouble(MStatus* ReturnStatus) const
{
    return readNumber(*this, ReturnStatus);
}

float MPlug::asFloat(MStatus* ReturnStatus) const
{
    return static_cast<float>(readNumber(*this, ReturnStatus));
}

MInt64 MPlug::asInt64(MStatus* ReturnStatus) const
{
    return truncatedTo<MInt64>(readNumber(*this, ReturnStatus));
}

int MPlug::asInt(MStatus* ReturnStatus) const
{
    return truncatedTo<int>(readNumber(*this, ReturnStatus));
}

short MPlug::asShort(MStatus* ReturnStatus) const
{
    return truncatedTo<short>(readNumber(*this, ReturnStatus));
}

bool MPlug::asBool(MStatus* ReturnStatus) const
{
    return readNumber(*this, ReturnStatus) != 0.0;
}

char MPlug::asChar(MStatus* ReturnStatus) const
{
    return truncatedTo<char>(readNumber(*this, ReturnStatus));
}

MDistance MPlug::asMDistance(MStatus* ReturnStatus) const
{
    return MDistance(readNumber(*this, ReturnStatus), MDistance::kCentimeters);
}

MAngle MPlug::asMAngle(MStatus* ReturnStatus) const
{
    return MAngle(readNumber(*this, ReturnStatus), MAngle::kRadians);
}

MTime MPlug::asMTime(MStatus* ReturnStatus) const
{
    return MTime(readNumber(*this, ReturnStatus), MTime::kSeconds);
}

MString MPlug::asString(MStatus* ReturnStatus) const
{
    const Value value = readValue(*this, ReturnStatus);
    if (value.kind == Value::Kind::Text)
        return MString(value.text.c_str());
    if (value.kind != Value::Kind::Empty)
        setStatus(ReturnStatus, MS::kFailure);
    return MString();
}

// The context variants read inside a guard for the given context.
#define MAYASIM_PLUG_READ_IN_CONTEXT(Type, method)                         \
    Type MPlug::method(const MDGContext& ctx, MStatus* ReturnStatus) const \
    {                                                                      \
        MDGContextGuard guard(ctx);                                        \
        return method(ReturnStatus);                                       \
    }
MAYASIM_PLUG_READ_IN_CONTEXT(MObject, asMObject)
MAYASIM_PLUG_READ_IN_CONTEXT(double, asDouble)
MAYASIM_PLUG_READ_IN_CONTEXT(float, asFloat)
MAYASIM_PLUG_READ_IN_CONTEXT(MInt64, asInt64)
MAYASIM_PLUG_READ_IN_CONTEXT(int, asInt)
MAYASIM_PLUG_READ_IN_CONTEXT(short, asShort)
MAYASIM_PLUG_READ_IN_CONTEXT(bool, asBool)
MAYASIM_PLUG_READ_IN_CONTEXT(MDistance, asMDistance)
MAYASIM_PLUG_READ_IN_CONTEXT(MAngle, asMAngle)
MAYASIM_PLUG_READ_IN_CONTEXT(MTime, asMTime)
MAYASIM_PLUG_READ_IN_CONTEXT(char, asChar)
MAYASIM_PLUG_READ_IN_CONTEXT(MString, asString)
#undef MAYASIM_PLUG_READ_IN_CONTEXT

MStatus MPlug::setMObject(const MObject& val)
{
    const DataObject* data = dataObject(val);
    if (!data)
        return MS::kInvalidParameter;
    if (data->dataType() == MFnData::kNumeric)
        return writeChildren(*this, data->value().numbers);
    return write(*this, data->value());
}

MStatus MPlug::setDouble(double val)
{
    return write(*this, Value::ofNumber(val));
}

MStatus MPlug::setFloat(float val)
{
    return write(*this, Value::ofNumber(val));
}

MStatus MPlug::setInt(int val)
{
    return write(*this, Value::ofNumber(val));
}

MStatus MPlug::setInt64(MInt64 val)
{
    return write(*this, Value::ofNumber(static_cast<double>(val)));
}

MStatus MPlug::setShort(short val)
{
    return write(*this, Value::ofNumber(val));
}

MStatus MPlug::setBool(bool val)
{
    return write(*this, Value::ofNumber(val ? 1.0 : 0.0));
}

MStatus MPlug::setMDistance(const MDistance& val)
{
    return write(*this, Value::ofNumber(val.asCentimeters()));
}

MStatus MPlug::setMAngle(const MAngle& val)
{
    return write(*this, Value::ofNumber(val.asRadians()));
}

MStatus MPlug::setMTime(const MTime& val)
{
    return write(*this, Value::ofNumber(val.as(MTime::kSeconds)));
}

MStatus MPlug::setChar(char val)
{
    return write(*this, Value::ofNumber(val));
}

MStatus MPlug::setString(const MString& val)
{
    return write(*this, Value::ofText(val.asChar()));
}

MPlug MPlug::operator[](MObject& attr) const
{
    return child(attr);
}

MPlug MPlug::operator[](unsigned int physicalIndex) const
{
    return elementByPhysicalIndex(physicalIndex);
}

bool MPlug::operator==(const MPlug& other) const
{
    if (fNode != other.fNode || fAttribute != other.fAttribute)
        return false;
    if (!fIndices || !other.fIndices)
        return fIndices == other.fIndices;
    return fIndices->values == other.fIndices->values;
}

bool MPlug::operator==(const MObject& other) const
{
    return fAttribute == other;
}

bool MPlug::operator!=(const MPlug& other) const
{
    return !(*this == other);
}

bool MPlug::operator!=(const MObject& other) const
{
    return !(*this == other);
}

MPlug::operator MObject() const
{
    return fAttribute;
}

const char* MPlug::className()
{
    return "MPlug";
}
