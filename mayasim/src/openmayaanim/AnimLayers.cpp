// The layer tree, the blend chains of layered plugs, and the edits that
// build them, as Maya's animLayer command leaves the graph.
#include "openmayaanim/AnimLayers.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "scene/Evaluation.h"
#include "scene/Namespaces.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"

#include <maya/MObjectArray.h>
#include <maya/MPlugArray.h>

#include <algorithm>

namespace mayasim::layers {

namespace {

PlugKey keyNamed(const Node& node, const char* attribute, int index = -1)
{
    PlugKey key = keyOf(*node.findAttribute(attribute));
    if (index >= 0)
        key.indices.back() = index;
    return key;
}

PlugAddress plugOf(const NodePtr& node, const char* attribute, int index = -1)
{
    return PlugAddress{node, keyNamed(*node, attribute, index)};
}

int nextIndex(const Node& node, const char* arrayAttribute)
{
    const std::vector<int> used = existingIndices(node, keyNamed(node, arrayAttribute));
    return used.empty() ? 0 : used.back() + 1;
}

// The sources of an array plug's connected elements, in index order.
std::vector<PlugAddress> elementSources(const Node& node, const char* arrayAttribute)
{
    std::vector<PlugAddress> sources;
    for (int index : existingIndices(node, keyNamed(node, arrayAttribute)))
    {
        auto found = node.incoming.find(keyNamed(node, arrayAttribute, index));
        if (found != node.incoming.end() && found->second.lock())
            sources.push_back(found->second);
    }
    return sources;
}

// The plugs an output feeds, live nodes only.
std::vector<PlugAddress> destinations(const Node& node, const PlugKey& key)
{
    std::vector<PlugAddress> found;
    auto out = node.outgoing.find(key);
    if (out != node.outgoing.end())
        for (const PlugAddress& destination : out->second)
            if (NodePtr to = destination.lock(); to && to->alive)
                found.push_back(destination);
    return found;
}

NodePtr layerOfBlend(const Node& blend)
{
    for (const PlugAddress& destination : destinations(blend, keyNamed(blend, "message")))
        if (NodePtr layer = destination.lock(); isLayer(*layer) && destination.key.attribute->longName == "blendNodes")
            return layer;
    return nullptr;
}

// One blend node of a plug's chain.
struct Link
{
    NodePtr blend;
    NodePtr layer;
    PlugKey lower;      // input A: what lies below
    PlugKey layerInput; // input B: the layer's own value
};

// The blend nodes that drive a plug, top (nearest the plug) to bottom.
std::vector<Link> chainOf(const Node& node, const PlugKey& key)
{
    std::vector<Link> chain;
    const Node* at = &node;
    PlugKey atKey = key;
    for (std::optional<PlugAddress> source = eval::drivingSource(*at, atKey); source;
         source = eval::drivingSource(*at, atKey))
    {
        NodePtr blend = source->lock();
        const auto inputs = blend ? blendInputs(*blend, source->key) : std::nullopt;
        if (!inputs || std::any_of(chain.begin(), chain.end(), [&](const Link& l) { return l.blend == blend; }))
            break;
        chain.push_back({blend, layerOfBlend(*blend), inputs->first, inputs->second});
        at = blend.get();
        atKey = inputs->first;
    }
    return chain;
}

std::size_t rank(const std::vector<NodePtr>& order, const NodePtr& layer)
{
    return static_cast<std::size_t>(std::find(order.begin(), order.end(), layer) - order.begin());
}

const char* const kRotationBlend = "animBlendNodeAdditiveRotation";
const char* const kScaleBlend = "animBlendNodeAdditiveScale";

// Maya's blend node type for an attribute it layers.
std::string blendTypeFor(const Node& node, const Attribute& attribute)
{
    if (const AttributePtr parent = attribute.parentAttribute())
    {
        if (parent->longName == "rotate" && node.findAttribute("rotateOrder"))
            return kRotationBlend;
        if (parent->longName == "scale")
            return kScaleBlend;
    }
    switch (attribute.kind)
    {
    case Attribute::Kind::Unit:
        switch (attribute.unitType)
        {
        case MFnUnitAttribute::kAngle: return "animBlendNodeAdditiveDA";
        case MFnUnitAttribute::kDistance: return "animBlendNodeAdditiveDL";
        case MFnUnitAttribute::kTime: return "animBlendNodeTime";
        default: break;
        }
        break;
    case Attribute::Kind::Enum: return "animBlendNodeEnum";
    case Attribute::Kind::Numeric:
        switch (attribute.numericType)
        {
        case MFnNumericData::kBoolean: return "animBlendNodeBoolean";
        case MFnNumericData::kByte:
        case MFnNumericData::kChar:
        case MFnNumericData::kShort: return "animBlendNodeAdditiveI16";
        case MFnNumericData::kInt:
        case MFnNumericData::kInt64: return "animBlendNodeAdditiveI32";
        case MFnNumericData::kFloat: return "animBlendNodeAdditiveF";
        case MFnNumericData::kDouble: return "animBlendNodeAdditive";
        default: break;
        }
        break;
    default: break;
    }
    throw MelError("animLayer: Cannot add '" + ops::plugText(node, keyOf(attribute)) + "' to a layer.");
}

// The rotation blend a layer already has for a sibling of the plug
// (rotateY joins the blend rotateX made).
NodePtr sharedRotationBlend(const Node& node, const PlugKey& key, const NodePtr& layer)
{
    for (const AttributePtr& sibling : key.attribute->parentAttribute()->children)
        for (const Link& link : chainOf(node, keyOf(*sibling)))
            if (link.layer == layer && link.blend->type()->name == kRotationBlend)
                return link.blend;
    return nullptr;
}

NodePtr makeBlend(EditList& edits, const NodePtr& layer, const NodePtr& node, const Attribute& attribute,
                  const std::string& typeName)
{
    const bool rotation = typeName == kRotationBlend;
    const Attribute& named = rotation ? *attribute.parentAttribute() : attribute;
    NodePtr blend = ops::createNode(edits, typeName,
                                    ns::baseName(node->name) + "_" + named.longName + "_" + layer->name, nullptr);
    ops::connect(edits, plugOf(layer, "foregroundWeight"), plugOf(blend, "weightB"), false);
    ops::connect(edits, plugOf(layer, "backgroundWeight"), plugOf(blend, "weightA"), false);
    if (typeName == kScaleBlend)
        ops::connect(edits, plugOf(layer, "scaleAccumulationMode"), plugOf(blend, "accumulationMode"), false);
    if (rotation)
    {
        ops::connect(edits, plugOf(layer, "outRotationAccumulationMode"), plugOf(blend, "accumulationMode"), false);
        ops::connect(edits, plugOf(node, "rotateOrder"), plugOf(blend, "rotateOrder"), false);
    }
    ops::connect(edits, plugOf(blend, "message"), plugOf(layer, "blendNodes", nextIndex(*layer, "blendNodes")), false);
    return blend;
}

// The blend's plugs for one leaf attribute: output, input A, input B.
struct BlendSide
{
    PlugKey output, lower, layerInput;
};

BlendSide sideFor(const Node& blend, const Attribute& attribute)
{
    const AttributePtr output = blend.findAttribute("output");
    std::size_t child = 0;
    if (output->isCompound())
    {
        const auto& siblings = attribute.parentAttribute()->children;
        child = static_cast<std::size_t>(
            std::find_if(siblings.begin(), siblings.end(), [&](const AttributePtr& a) { return a.get() == &attribute; }) -
            siblings.begin());
    }
    const auto leaf = [&](const char* name) {
        const AttributePtr a = blend.findAttribute(name);
        return keyOf(a->isCompound() ? *a->children[child] : *a);
    };
    return {leaf("output"), leaf("inputA"), leaf("inputB")};
}

// What a layer's input starts at: additive layers add nothing (scale layers
// multiply by 1); override layers and switched values hold the present one.
Value startingLayerValue(Node& layer, const Node& blend, const Value& present)
{
    if (flag(layer, "override") || blend.type()->hasFn(MFn::kBlendNodeBoolean) ||
        blend.type()->hasFn(MFn::kBlendNodeEnum))
        return present;
    const bool multiplies = blend.type()->name == kScaleBlend &&
                            eval::read(layer, keyNamed(layer, "scaleAccumulationMode")).number == 0.0;
    return Value::ofNumber(multiplies ? 1.0 : 0.0);
}

void link(EditList& edits, const NodePtr& layer, const NodePtr& parent)
{
    const int index = nextIndex(*parent, "childrenLayers");
    ops::connect(edits, plugOf(layer, "parentLayer"), plugOf(parent, "childrenLayers", index), false);
    ops::connect(edits, plugOf(layer, "solo"), plugOf(parent, "childrenSolo", index), false);
    ops::connect(edits, plugOf(parent, "childsoloed"), plugOf(layer, "siblingSolo"), false);
    ops::connect(edits, plugOf(parent, "foregroundWeight"), plugOf(layer, "parentWeight"), false);
    ops::connect(edits, plugOf(parent, "outMute"), plugOf(layer, "parentMute"), false);
}

// Breaks every connection between a layer and its parent.
void unlink(EditList& edits, const NodePtr& layer, const NodePtr& parent)
{
    for (const NodePtr& from : {layer, parent})
        for (const auto& [key, targets] : std::map<PlugKey, std::vector<PlugAddress>>(from->outgoing))
            for (const PlugAddress& target : targets)
                if (target.lock() == (from == layer ? parent : layer))
                    ops::disconnect(edits, PlugAddress{from, key}, target);
}

class EventEdit : public Edit
{
public:
    explicit EventEdit(std::string event) : fEvent(std::move(event)) {}
    void apply() override { events::fireEvent(fEvent); }
    void revert() override { events::fireEvent(fEvent); }

private:
    std::string fEvent;
};

} // namespace

NodePtr root()
{
    for (const NodePtr& node : scene::nodes())
        if (isLayer(*node) && !parentOf(*node))
            return node;
    return nullptr;
}

NodePtr parentOf(const Node& layer)
{
    for (const PlugAddress& destination : destinations(layer, keyNamed(layer, "parentLayer")))
        if (NodePtr parent = destination.lock(); isLayer(*parent))
            return parent;
    return nullptr;
}

std::vector<NodePtr> childrenOf(const Node& layer)
{
    std::vector<NodePtr> children;
    for (const PlugAddress& source : elementSources(layer, "childrenLayers"))
        if (NodePtr child = source.lock(); child->alive && isLayer(*child))
            children.push_back(child);
    return children;
}

namespace {

// Every layer in stack order, bottom to top: the root, then each layer
// followed by its children.
std::vector<NodePtr> stack()
{
    std::vector<NodePtr> order;
    const auto visit = [&order](const NodePtr& layer, auto& self) -> void {
        if (std::find(order.begin(), order.end(), layer) != order.end())
            return;
        order.push_back(layer);
        for (const NodePtr& child : childrenOf(*layer))
            self(child, self);
    };
    if (NodePtr base = root())
        visit(base, visit);
    return order;
}

} // namespace

std::vector<PlugAddress> membersOf(const Node& layer)
{
    std::vector<PlugAddress> members;
    for (const PlugAddress& source : elementSources(layer, "dagSetMembers"))
        if (source.lock()->alive)
            members.push_back(source);
    return members;
}

std::vector<Holder> holdersOf(const Node& node, const PlugKey& key)
{
    const std::vector<Link> chain = chainOf(node, key);
    const NodePtr base = root();
    if (chain.empty() || !base)
        return {};
    std::vector<Holder> holders{{base, PlugAddress{chain.back().blend, chain.back().lower}}};
    for (auto link = chain.rbegin(); link != chain.rend(); ++link)
        if (link->layer)
            holders.push_back({link->layer, PlugAddress{link->blend, link->layerInput}});
    return holders;
}

namespace {

// The best of a plug's holders (see bestLayer).
NodePtr bestOf(const std::vector<Holder>& holders)
{
    const NodePtr base = root();
    for (auto holder = holders.rbegin(); holder != holders.rend(); ++holder)
        if (flag(*holder->layer, "selected") && !flag(*holder->layer, "lock"))
            return holder->layer;
    for (auto holder = holders.rbegin(); holder != holders.rend(); ++holder)
        if (holder->layer != base && !flag(*holder->layer, "lock"))
            return holder->layer;
    return base;
}

} // namespace

NodePtr bestLayer(const Node& node, const PlugKey& key)
{
    return bestOf(holdersOf(node, key));
}

NodePtr createLayer(EditList& edits, const std::string& name, const NodePtr& parent)
{
    NodePtr base = root();
    if (!base)
    {
        base = ops::createNode(edits, "animLayer", "BaseAnimation", nullptr);
        ops::setValue(edits, base, keyNamed(*base, "override"), Value::ofNumber(1.0), false);
    }
    NodePtr layer = ops::createNode(edits, "animLayer", name.empty() ? "AnimLayer1" : name, nullptr);
    link(edits, layer, parent ? parent : base);
    return layer;
}

void setParent(EditList& edits, const NodePtr& layer, const NodePtr& parent)
{
    const NodePtr previous = parentOf(*layer);
    if (previous == parent)
        return;
    for (NodePtr above = parent; above; above = parentOf(*above))
        if (above == layer)
            throw MelError("animLayer: Cannot parent '" + layer->name + "' under itself or its children.");
    if (previous)
        unlink(edits, layer, previous);
    link(edits, layer, parent);
}

void addMember(EditList& edits, const NodePtr& layer, const NodePtr& node, const PlugKey& key)
{
    const std::vector<Link> chain = chainOf(*node, key);
    if (layer == root() ||
        std::any_of(chain.begin(), chain.end(), [&](const Link& link) { return link.layer == layer; }))
        return;
    const std::string typeName = blendTypeFor(*node, *key.attribute);
    NodePtr blend = typeName == kRotationBlend ? sharedRotationBlend(*node, key, layer) : nullptr;
    if (!blend)
        blend = makeBlend(edits, layer, node, *key.attribute, typeName);
    const BlendSide side = sideFor(*blend, *key.attribute);

    // The blend goes above the layers below this one in the stack.
    const std::vector<NodePtr> order = stack();
    PlugAddress destination{node, key};
    for (const Link& link : chain)
    {
        if (rank(order, link.layer) < rank(order, layer))
            break;
        destination = PlugAddress{link.blend, link.lower};
    }
    NodePtr target = destination.lock();
    const Value present = eval::read(*target, destination.key);
    const auto source = target->incoming.find(destination.key);
    if (source != target->incoming.end())
    {
        const PlugAddress from = source->second;
        ops::disconnect(edits, from, destination);
        ops::connect(edits, from, PlugAddress{blend, side.lower}, false);
    }
    else
        ops::setValue(edits, blend, side.lower, present, false);
    ops::setValue(edits, blend, side.layerInput, startingLayerValue(*layer, *blend, present), false);
    ops::connect(edits, PlugAddress{blend, side.output}, destination, false);
    ops::connect(edits, PlugAddress{node, key}, plugOf(layer, "dagSetMembers", nextIndex(*layer, "dagSetMembers")),
                 false);
}

void fireEvent(EditList& edits, const std::string& event)
{
    edits.run(std::make_unique<EventEdit>(event));
}

bool findAnimationLayers(const MPlug& plug, MObjectArray& layers, MPlugArray& plugs)
{
    const Node* node = plug.isNull() ? nullptr : plugNode(plug);
    if (!node)
        return false;
    const std::vector<Holder> holders = holdersOf(*node, plugKey(plug));
    for (const Holder& holder : holders)
    {
        layers.append(objectOf(holder.layer.get()));
        plugs.append(makePlug(*holder.input.lock(), holder.input.key));
    }
    return !holders.empty();
}

MPlug keyTarget(const MPlug& plug)
{
    const Node* node = plug.isNull() ? nullptr : plugNode(plug);
    if (!node)
        return plug;
    const std::vector<Holder> holders = holdersOf(*node, plugKey(plug));
    const NodePtr best = bestOf(holders);
    for (const Holder& holder : holders)
        if (holder.layer == best)
            return makePlug(*holder.input.lock(), holder.input.key);
    return plug;
}

} // namespace mayasim::layers
