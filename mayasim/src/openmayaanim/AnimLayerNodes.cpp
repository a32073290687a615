// The node types of animation layers: animLayer, which turns its settings
// and its parent's into the weights its blend nodes use, and Maya's
// animBlendNode types, which mix a lower input A with a layer's input B.
#include "openmayaanim/AnimLayers.h"

#include "scene/Evaluation.h"
#include "scene/NodeType.h"
#include "scene/Plugs.h"

#include <cmath>

namespace mayasim::layers {

namespace {

AttributePtr boolean(const std::string& longName, const std::string& shortName, bool value = false)
{
    return makeNumeric(longName, shortName, MFnNumericData::kBoolean, value ? 1.0 : 0.0);
}

AttributePtr arrayOf(AttributePtr attribute, bool indexMatters = true)
{
    attribute->array = true;
    attribute->indexMatters = indexMatters;
    return attribute;
}

// A plug the node computes on read; Maya files may still set it.
AttributePtr computed(AttributePtr attribute)
{
    attribute->storable = false;
    for (const auto& child : attribute->children)
        child->storable = false;
    return attribute;
}

AttributePtr keyable(AttributePtr attribute)
{
    attribute->keyable = true;
    for (const auto& child : attribute->children)
        child->keyable = true;
    return attribute;
}

double number(Node& node, const char* attribute)
{
    return eval::read(node, keyOf(*node.findAttribute(attribute))).number;
}

// --- animLayer ------------------------------------------------------------------

// Muted by itself, by its parent, or by a soloed sibling while not soloed.
bool muted(Node& layer)
{
    return flag(layer, "mute") || flag(layer, "parentMute") || (flag(layer, "siblingSolo") && !flag(layer, "solo"));
}

double foregroundWeight(Node& layer)
{
    return muted(layer) ? 0.0 : number(layer, "weight") * number(layer, "parentWeight");
}

// Additive layers add to what lies below; override layers replace it, in
// proportion to their weight when passthrough is on, wholly otherwise.
double backgroundWeight(Node& layer)
{
    if (muted(layer) || !flag(layer, "override"))
        return 1.0;
    return flag(layer, "passthrough") ? 1.0 - foregroundWeight(layer) : 0.0;
}

bool anyChildSoloed(Node& layer)
{
    const PlugKey solos = keyOf(*layer.findAttribute("childrenSolo"));
    for (int index : existingIndices(layer, solos))
    {
        PlugKey element = solos;
        element.indices.back() = index;
        if (eval::read(layer, element).number != 0.0)
            return true;
    }
    return false;
}

std::optional<Value> computeLayer(Node& layer, const PlugKey& key)
{
    const std::string& name = key.attribute->longName;
    if (name == "foregroundWeight")
        return Value::ofNumber(foregroundWeight(layer));
    if (name == "backgroundWeight")
        return Value::ofNumber(backgroundWeight(layer));
    if (name == "outMute")
        return Value::ofNumber(muted(layer) ? 1.0 : 0.0);
    if (name == "childsoloed")
        return Value::ofNumber(anyChildSoloed(layer) ? 1.0 : 0.0);
    if (name == "outRotationAccumulationMode")
        return Value::ofNumber(number(layer, "rotationAccumulationMode"));
    return std::nullopt;
}

void registerLayerType()
{
    // Maya's animLayer is an objectSet; the set type itself stays unknown to
    // mayasim (files that create sets keep them as generic nodes).
    NodeTypePtr set = makeNodeType("objectSet", findNodeType("node"), MFn::kSet, 0x4f424a53);
    set->addAttribute(arrayOf(makeMessage("dagSetMembers", "dsm"), false));
    set->addAttribute(arrayOf(makeMessage("dnSetMembers", "dnsm"), false));

    NodeTypePtr layer = makeNodeType("animLayer", set, MFn::kAnimLayer);
    for (AttributePtr attribute :
         {boolean("mute", "mte"), boolean("solo", "sl"), boolean("lock", "lo"), boolean("ghost", "gh"),
          makeNumeric("ghostColor", "ghc", MFnNumericData::kShort, 5), boolean("override", "ovrd"),
          boolean("passthrough", "pth", true), keyable(makeNumeric("weight", "wth", MFnNumericData::kDouble, 1.0)),
          boolean("preferred", "pref"), boolean("selected", "slct"), boolean("collapse", "coll"),
          makeEnum("rotationAccumulationMode", "ram", {{"component", 0}, {"layer", 1}}),
          makeEnum("scaleAccumulationMode", "sam", {{"multiply", 0}, {"additive", 1}}),
          makeMessage("parentLayer", "play"), arrayOf(makeMessage("childrenLayers", "cdly")),
          arrayOf(boolean("childrenSolo", "chsl")), computed(boolean("childsoloed", "csol")),
          boolean("siblingSolo", "sslo"), boolean("parentMute", "pmte"), computed(boolean("outMute", "omte")),
          makeNumeric("parentWeight", "pwth", MFnNumericData::kDouble, 1.0),
          computed(makeNumeric("foregroundWeight", "fgwt", MFnNumericData::kDouble, 1.0)),
          computed(makeNumeric("backgroundWeight", "bgwt", MFnNumericData::kDouble, 1.0)),
          computed(makeEnum("outRotationAccumulationMode", "oram", {{"component", 0}, {"layer", 1}})),
          arrayOf(makeMessage("blendNodes", "bnds"))})
        layer->addAttribute(attribute);
    layer->compute = computeLayer;
    registerNodeType(layer);
}

// --- blend nodes ------------------------------------------------------------------

enum class Mix
{
    Sum,        // a * wa + b * wb
    WholeSum,   // the sum, rounded (integer plugs)
    Scale,      // a^wa * b^wb by default; the sum in additive accumulation
    Switch      // b while its weight is above 0, else a (booleans, enums)
};

// Scale layers multiply by default; a negative scale keeps its sign.
double scaleProduct(double a, double wa, double b, double wb)
{
    const auto power = [](double base, double exponent) {
        return std::copysign(std::pow(std::fabs(base), exponent), base);
    };
    return power(a, wa) * power(b, wb);
}

double mix(Mix rule, Node& blend, double a, double b)
{
    const double wa = number(blend, "weightA");
    const double wb = number(blend, "weightB");
    switch (rule)
    {
    case Mix::Sum: break;
    case Mix::WholeSum: return std::round(a * wa + b * wb);
    case Mix::Scale:
        if (number(blend, "accumulationMode") == 0.0)
            return scaleProduct(a, wa, b, wb);
        break;
    case Mix::Switch: return wb > 0.0 ? b : a;
    }
    return a * wa + b * wb;
}

std::optional<Value> computeBlend(Mix rule, Node& blend, const PlugKey& key)
{
    const std::optional<std::pair<PlugKey, PlugKey>> inputs = blendInputs(blend, key);
    if (!inputs)
        return std::nullopt;
    const double a = eval::read(blend, inputs->first).number;
    const double b = eval::read(blend, inputs->second).number;
    return Value::ofNumber(mix(rule, blend, a, b));
}

using ValueAttribute = AttributePtr (*)(const std::string& longName, const std::string& shortName);

template <MFnUnitAttribute::Type unit>
AttributePtr unitValue(const std::string& longName, const std::string& shortName)
{
    return makeUnit(longName, shortName, unit);
}

template <MFnNumericData::Type type>
AttributePtr numericValue(const std::string& longName, const std::string& shortName)
{
    return makeNumeric(longName, shortName, type);
}

AttributePtr rotationValue(const std::string& longName, const std::string& shortName)
{
    return makeTriple(longName, shortName, MFnUnitAttribute::kAngle);
}

struct BlendKind
{
    const char* name;
    MFn::Type apiType;
    ValueAttribute value;
    Mix rule;
};

const BlendKind kBlendKinds[] = {
    {"animBlendNodeAdditive", MFn::kBlendNodeDouble, numericValue<MFnNumericData::kDouble>, Mix::Sum},
    {"animBlendNodeAdditiveDA", MFn::kBlendNodeDoubleAngle, unitValue<MFnUnitAttribute::kAngle>, Mix::Sum},
    {"animBlendNodeAdditiveDL", MFn::kBlendNodeDoubleLinear, unitValue<MFnUnitAttribute::kDistance>, Mix::Sum},
    {"animBlendNodeAdditiveF", MFn::kBlendNodeFloat, numericValue<MFnNumericData::kFloat>, Mix::Sum},
    {"animBlendNodeAdditiveFA", MFn::kBlendNodeFloatAngle, unitValue<MFnUnitAttribute::kAngle>, Mix::Sum},
    {"animBlendNodeAdditiveFL", MFn::kBlendNodeFloatLinear, unitValue<MFnUnitAttribute::kDistance>, Mix::Sum},
    {"animBlendNodeAdditiveI16", MFn::kBlendNodeInt16, numericValue<MFnNumericData::kShort>, Mix::WholeSum},
    {"animBlendNodeAdditiveI32", MFn::kBlendNodeInt32, numericValue<MFnNumericData::kInt>, Mix::WholeSum},
    {"animBlendNodeTime", MFn::kBlendNodeTime, unitValue<MFnUnitAttribute::kTime>, Mix::Sum},
    {"animBlendNodeAdditiveScale", MFn::kBlendNodeAdditiveScale, numericValue<MFnNumericData::kDouble>, Mix::Scale},
    {"animBlendNodeBoolean", MFn::kBlendNodeBoolean, numericValue<MFnNumericData::kBoolean>, Mix::Switch},
    {"animBlendNodeEnum", MFn::kBlendNodeEnum, numericValue<MFnNumericData::kShort>, Mix::Switch},
    {"animBlendNodeAdditiveRotation", MFn::kBlendNodeAdditiveRotation, rotationValue, Mix::Sum},
};

void registerBlendTypes()
{
    NodeTypePtr base = makeNodeType("animBlendNodeBase", findNodeType("node"), MFn::kBlendNodeBase);
    base->abstract = true;
    base->addAttribute(arrayOf(makeTyped("destinationPlug", "dp", MFnData::kString)));
    base->addAttribute(keyable(makeNumeric("weightA", "wa", MFnNumericData::kDouble, 1.0)));
    base->addAttribute(keyable(makeNumeric("weightB", "wb", MFnNumericData::kDouble, 1.0)));
    registerNodeType(base);
    for (const BlendKind& kind : kBlendKinds)
    {
        NodeTypePtr type = makeNodeType(kind.name, base, kind.apiType);
        type->addAttribute(keyable(kind.value("inputA", "ia")));
        type->addAttribute(keyable(kind.value("inputB", "ib")));
        type->addAttribute(computed(kind.value("output", "o")));
        if (kind.rule == Mix::Scale)
            type->addAttribute(makeEnum("accumulationMode", "acm", {{"multiply", 0}, {"additive", 1}}));
        if (kind.apiType == MFn::kBlendNodeAdditiveRotation)
        {
            type->addAttribute(makeEnum("accumulationMode", "acm", {{"component", 0}, {"layer", 1}}));
            type->addAttribute(makeEnum("rotateOrder", "ro",
                                        {{"xyz", 0}, {"yzx", 1}, {"zxy", 2}, {"xzy", 3}, {"yxz", 4}, {"zyx", 5}}));
        }
        const Mix rule = kind.rule;
        type->compute = [rule](Node& node, const PlugKey& key) { return computeBlend(rule, node, key); };
        registerNodeType(type);
    }
}

const bool registered = (registerLayerType(), registerBlendTypes(), true);

} // namespace

bool isLayer(const Node& node)
{
    return node.type()->apiType == MFn::kAnimLayer;
}

bool isBlend(const Node& node)
{
    return node.type()->hasFn(MFn::kBlendNodeBase);
}

bool flag(Node& layer, const char* attribute)
{
    return number(layer, attribute) != 0.0;
}

std::optional<std::pair<PlugKey, PlugKey>> blendInputs(const Node& blend, const PlugKey& output)
{
    if (!isBlend(blend))
        return std::nullopt;
    const AttributePtr a = blend.findAttribute("inputA");
    const AttributePtr b = blend.findAttribute("inputB");
    if (output.attribute->longName == "output" && !output.attribute->isCompound())
        return std::make_pair(keyOf(*a), keyOf(*b));
    // A rotation blend: outputX is fed by inputAX and inputBX.
    const AttributePtr parent = output.attribute->parentAttribute();
    if (!parent || parent->longName != "output")
        return std::nullopt;
    for (std::size_t i = 0; i < parent->children.size(); ++i)
        if (parent->children[i].get() == output.attribute)
            return std::make_pair(keyOf(*a->children[i]), keyOf(*b->children[i]));
    return std::nullopt;
}

} // namespace mayasim::layers
