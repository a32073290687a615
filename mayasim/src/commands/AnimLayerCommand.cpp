// animLayer: creates animation layers, edits their settings, parent and
// attributes, and answers queries, among them the layer a key on a plug
// would go into (-bestLayer).
#include "commands/CommandSupport.h"
#include "openmayaanim/AnimLayers.h"
#include "scene/Evaluation.h"
#include "scene/Operations.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"

#include <string>

namespace mayasim::commands {

namespace {

// Flags that set the layer's plug of the same name, with the event a
// change of it raises (none for the editor's own state).
struct Setting
{
    const char* name;
    const char* event;
};

const Setting kSettings[] = {
    {"mute", "animLayerAnimationChanged"},     {"solo", "animLayerAnimationChanged"},
    {"override", "animLayerAnimationChanged"}, {"passthrough", "animLayerAnimationChanged"},
    {"weight", "animLayerAnimationChanged"},   {"lock", "animLayerLockChanged"},
    {"selected", nullptr},                     {"preferred", nullptr},
};

NodePtr layerNamed(const std::string& name)
{
    NodePtr found = node(name);
    if (!layers::isLayer(*found))
        throw MelError("animLayer: '" + name + "' is not an animation layer.");
    return found;
}

const std::string& layerName(const ParsedArgs& args)
{
    if (args.positional().empty())
        throw MelError("animLayer: No animation layer specified.");
    return args.positional().front().text;
}

// The leaf plugs an -attribute names ("pCube1.translate" gives its children).
void addLeaves(const PlugRef& plug, std::vector<PlugRef>& leaves)
{
    if (!plug.key.attribute->isCompound())
    {
        leaves.push_back(plug);
        return;
    }
    for (const PlugKey& child : childKeys(plug.key))
        addLeaves({plug.node, child}, leaves);
}

void applySettings(EditList& edits, const NodePtr& layer, const ParsedArgs& args)
{
    bool rebuilt = false;
    if (args.has("parent"))
    {
        const NodePtr parent = layerNamed(args.args("parent").front().text);
        rebuilt = layers::parentOf(*layer) != parent;
        layers::setParent(edits, layer, parent);
    }
    for (const Setting& setting : kSettings)
    {
        if (!args.has(setting.name))
            continue;
        const Word& word = args.args(setting.name).front();
        const double value = std::string(setting.name) == "weight" ? word.number() : (word.boolean() ? 1.0 : 0.0);
        const PlugKey key = keyOf(*layer->findAttribute(setting.name));
        if (eval::read(*layer, key).number == value)
            continue;
        ops::setValue(edits, layer, key, Value::ofNumber(value), false);
        if (setting.event)
        {
            const bool baseLock = std::string(setting.name) == "lock" && layer == layers::root();
            layers::fireEvent(edits, baseLock ? "animLayerBaseLockChanged" : setting.event);
        }
    }
    std::vector<PlugRef> leaves;
    for (const auto& use : args.uses("attribute"))
        for (const PlugRef& plug : plugs(use.front().text, "animLayer: "))
            addLeaves(plug, leaves);
    for (const PlugRef& leaf : leaves)
        layers::addMember(edits, layer, leaf.node, leaf.key);
    if (rebuilt || !leaves.empty())
        layers::fireEvent(edits, "animLayerRebuild");
}

MelValue names(const std::vector<NodePtr>& nodes)
{
    std::vector<std::string> result;
    for (const NodePtr& each : nodes)
        result.push_back(each->name);
    return MelValue::ofStrings(result);
}

MelValue query(const ParsedArgs& args)
{
    if (args.has("bestLayer"))
    {
        const auto& attributes = args.uses("attribute");
        if (attributes.empty())
            throw MelError("animLayer: -bestLayer needs -attribute.");
        const PlugRef plug = plugs(attributes.front().front().text, "animLayer: ").front();
        const NodePtr best = layers::bestLayer(*plug.node, plug.key);
        return MelValue::ofString(best ? best->name : "");
    }
    if (args.has("root"))
    {
        const NodePtr base = layers::root();
        return MelValue::ofString(base ? base->name : "");
    }
    // In query mode "-attribute <layer>" names the layer it asks about.
    const bool attributeQuery = args.has("attribute");
    const std::string& name =
        attributeQuery && args.positional().empty() ? args.args("attribute").front().text : layerName(args);
    if (args.has("exists"))
    {
        const NodePtr found = scene::find(name);
        return MelValue::ofInt(found && layers::isLayer(*found) ? 1 : 0);
    }
    const NodePtr layer = layerNamed(name);
    if (attributeQuery)
    {
        std::vector<std::string> members;
        for (const PlugAddress& member : layers::membersOf(*layer))
            members.push_back(ops::plugText(*member.lock(), member.key));
        return MelValue::ofStrings(members);
    }
    if (args.has("children"))
        return names(layers::childrenOf(*layer));
    if (args.has("parent"))
    {
        const NodePtr parent = layers::parentOf(*layer);
        return MelValue::ofString(parent ? parent->name : "");
    }
    for (const Setting& setting : kSettings)
        if (args.has(setting.name))
        {
            const double value = eval::read(*layer, keyOf(*layer->findAttribute(setting.name))).number;
            return std::string(setting.name) == "weight" ? MelValue::ofFloat(value)
                                                         : MelValue::ofInt(value != 0.0 ? 1 : 0);
        }
    throw MelError("animLayer: Nothing to query.");
}

MelValue animLayer(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"e", "edit", 0},           {"q", "query", 0},         {"p", "parent", 1},
                           {"m", "mute", 1},           {"o", "override", 1},      {"s", "solo", 1},
                           {"w", "weight", 1},         {"l", "lock", 1},          {"pth", "passthrough", 1},
                           {"sel", "selected", 1},     {"prf", "preferred", 1},   {"at", "attribute", 1, true},
                           {"bl", "bestLayer", 0},     {"c", "children", 1},      {"r", "root", 1},
                           {"ex", "exists", 0}});
    if (args.has("query"))
        return query(args);
    if (args.has("edit"))
    {
        const NodePtr layer = layerNamed(layerName(args));
        undoable([&](EditList& edits) { applySettings(edits, layer, args); });
        return MelValue::none();
    }
    const std::string name = args.positional().empty() ? "" : args.positional().front().text;
    const NodePtr parent = args.has("parent") ? layerNamed(args.args("parent").front().text) : nullptr;
    return MelValue::ofString(undoable([&](EditList& edits) {
        const NodePtr layer = layers::createLayer(edits, name, parent);
        layers::fireEvent(edits, "animLayerRebuild");
        applySettings(edits, layer, args);
        return layer->name;
    }));
}

BuiltinRegistrar animLayerCommand("animLayer", animLayer);

} // namespace

} // namespace mayasim::commands
