#include "scene/Evaluation.h"

#include "engine/Output.h"
#include "scene/DataSlot.h"
#include "scene/Plugs.h"

#include <maya/MDataBlock.h>
#include <maya/MDataHandle.h>
#include <maya/MPxNode.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace mayasim::eval {

namespace {

struct Clock
{
    Context context;
    MTime current;
    long stamp = 0;
};

Clock& clock()
{
    static Clock instance;
    return instance;
}

// Index of a child attribute within its parent.
std::optional<size_t> childPosition(const Attribute& child)
{
    AttributePtr parent = child.parentAttribute();
    if (!parent)
        return std::nullopt;
    for (size_t i = 0; i < parent->children.size(); ++i)
        if (parent->children[i].get() == &child)
            return i;
    return std::nullopt;
}

// The plug below `source` that corresponds to the path from `ancestor` down
// to `key` on the destination side.
std::optional<PlugKey> mapDown(const PlugKey& key, const PlugKey& ancestor, const PlugKey& source)
{
    if (key == ancestor)
        return source;
    std::optional<PlugKey> parent = key.parentKey();
    if (!parent)
        return std::nullopt;
    std::optional<PlugKey> mappedParent = mapDown(*parent, ancestor, source);
    if (!mappedParent)
        return std::nullopt;
    if (parent->attribute == key.attribute) // key is an element of the array plug `parent`
    {
        PlugKey element = *mappedParent;
        element.indices.back() = key.indices.back();
        return element;
    }
    std::optional<size_t> position = childPosition(*key.attribute);
    if (!position || *position >= mappedParent->attribute->children.size())
        return std::nullopt;
    const Attribute* child = mappedParent->attribute->children[*position].get();
    PlugKey mapped{child, mappedParent->indices};
    if (child->array)
        mapped.indices.push_back(key.indices.back());
    return mapped;
}

bool isOutputOfPlugin(const Node& node, const Attribute* attribute)
{
    if (!node.user)
        return false;
    for (const auto& entry : node.type()->affects)
        if (entry.second == attribute)
            return true;
    return false;
}

std::optional<Value> computeByPlugin(Node& node, const PlugKey& key)
{
    auto storage = std::make_shared<DataBlockStorage>(node);
    MDataBlock block = DataAccess::block(storage);
    if (!node.user->compute(makePlug(node, key), block))
        return std::nullopt;
    auto it = storage->outputs().find(key);
    if (it == storage->outputs().end())
        return std::nullopt;
    return it->second->result();
}

std::optional<Value> internalValue(Node& node, const PlugKey& key)
{
    if (!node.user || !key.attribute->internal)
        return std::nullopt;
    MDataHandle handle = DataAccess::handle(makeSlot(key.attribute, stored(node, key)));
    if (!node.user->getInternalValue(makePlug(node, key), handle))
        return std::nullopt;
    return DataAccess::slot(handle)->result();
}

} // namespace

const Context& currentContext()
{
    return clock().context;
}

void setCurrentContext(const Context& context)
{
    clock().context = context;
}

MTime currentTime()
{
    return clock().current;
}

void setCurrentTime(const MTime& time)
{
    clock().current = time;
    ++clock().stamp;
}

long timeStamp()
{
    return clock().stamp;
}

MTime evaluationTime()
{
    return clock().context.normal ? clock().current : clock().context.time;
}

Value stored(const Node& node, const PlugKey& key)
{
    if (const PlugState* state = node.state(key); state && !state->value.isEmpty())
        return state->value;
    return key.attribute->defaultValue;
}

std::optional<PlugAddress> drivingSource(const Node& node, const PlugKey& key)
{
    for (std::optional<PlugKey> at = key; at; at = at->parentKey())
    {
        auto it = node.incoming.find(*at);
        if (it == node.incoming.end())
            continue;
        std::optional<PlugKey> mapped = mapDown(key, *at, it->second.key);
        if (!mapped)
            return std::nullopt;
        return PlugAddress{it->second.node, *mapped};
    }
    return std::nullopt;
}

namespace {

// The plugs being read, outermost first. Maya allows connection cycles,
// evaluating them once round with a warning; reading a plug again while it
// is being read gives the value it holds instead of recursing for ever. A
// chain of connections deeper than the stack takes stops the same way.
constexpr size_t kMaxReadDepth = 1000;

struct PlugBeingRead
{
    const Node* node;
    const PlugKey* key;
};

std::vector<PlugBeingRead>& plugsBeingRead()
{
    static std::vector<PlugBeingRead> plugs;
    return plugs;
}

class Reading
{
public:
    Reading(const Node& node, const PlugKey& key) { plugsBeingRead().push_back({&node, &key}); }
    ~Reading() { plugsBeingRead().pop_back(); }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;
};

// Why the plug can't be read through now, if it can't.
std::optional<std::string> unreadable(const Node& node, const PlugKey& key)
{
    const auto& plugs = plugsBeingRead();
    const bool cycle = std::any_of(plugs.begin(), plugs.end(),
                                   [&](const PlugBeingRead& p) { return p.node == &node && *p.key == key; });
    if (!cycle && plugs.size() < kMaxReadDepth)
        return std::nullopt;
    PlugNameOptions options;
    options.includeNodeName = true;
    options.useLongNames = true;
    const std::string name = plugName(node, key, options);
    if (cycle)
        return "Cycle on '" + name + "' may not evaluate as expected.  (Use 'cycleCheck -e off' to disable this warning.)";
    return "The connections into '" + name + "' run deeper than " + std::to_string(kMaxReadDepth) +
           " plugs: it gives the value it holds.";
}

} // namespace

Value read(Node& node, const PlugKey& key)
{
    if (const std::optional<std::string> why = unreadable(node, key))
    {
        writeOutput(OutputKind::Warning, *why);
        return stored(node, key);
    }
    const Reading reading(node, key);
    if (std::optional<PlugAddress> source = drivingSource(node, key))
    {
        const PlugState* state = node.state(key);
        if (clock().context.normal && state && state->heldStamp == clock().stamp)
            return state->value;
        if (NodePtr sourceNode = source->lock())
            return read(*sourceNode, source->key);
    }
    if (node.type()->compute)
        if (std::optional<Value> computed = node.type()->compute(node, key))
            return *computed;
    if (isOutputOfPlugin(node, key.attribute))
        if (std::optional<Value> computed = computeByPlugin(node, key))
            return *computed;
    if (std::optional<Value> internal = internalValue(node, key))
        return *internal;
    return stored(node, key);
}

void store(Node& node, const PlugKey& key, const Value& value)
{
    PlugState& state = node.plugs[key];
    state.value = value;
    state.heldStamp = drivingSource(node, key) ? clock().stamp : -1;
    if (node.user && key.attribute->internal)
    {
        MDataHandle handle = DataAccess::handle(makeSlot(key.attribute, value));
        node.user->setInternalValue(makePlug(node, key), handle);
    }
}

} // namespace mayasim::eval
