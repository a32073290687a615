#include "scene/Operations.h"

#include "engine/Command.h"
#include "engine/Events.h"
#include "scene/Evaluation.h"
#include "scene/Modifier.h"
#include "scene/Namespaces.h"
#include "scene/Plugs.h"
#include "scene/References.h"
#include "scene/Scene.h"
#include "scene/Selection.h"
#include "scene/Transform.h"

#include <maya/MDGModifier.h>
#include <maya/MFileIO.h>
#include <maya/MPxNode.h>

#include <algorithm>

namespace mayasim::ops {

namespace {

unsigned long nextSerial()
{
    static unsigned long serial = 0;
    return ++serial;
}

void checkAlive(const NodePtr& node)
{
    if (!node || !node->alive)
        throw MelError("Object is no longer valid.");
}

// What Maya refuses on a node read from a referenced file.
void requireNotReferenced(const Node& node, const std::string& action)
{
    if (node.origin)
        throw MelError("Cannot " + action + " '" + node.name + "' because it is from a referenced file.");
}

// What Maya refuses on a locked node (lockNode). Files lock a node after
// its own lines, so reading one isn't held up.
void requireNotLocked(const Node& node, const std::string& action)
{
    if (node.locked && !MFileIO::isReadingFile())
        throw MelError("Cannot " + action + " locked node '" + node.name + "'.");
}

void copyNodeState(const NodePtr& from, const NodePtr& to)
{
    to->dynamicAttributes = from->dynamicAttributes;
    to->plugs = from->plugs;
    for (auto& entry : to->plugs)
        entry.second.heldStamp = -1;
    to->locked = from->locked;
}

void addNode(EditList& edits, const NodePtr& node, const NodePtr& parent);

bool onAttribute(const PlugKey& key, const Attribute* attribute)
{
    const std::vector<const Attribute*> chain = key.attribute->chain();
    return !attribute || std::find(chain.begin(), chain.end(), attribute) != chain.end();
}

// Disconnects the node's plugs of an attribute (with its children), or all
// of them for null.
void breakConnections(EditList& edits, const NodePtr& node, const Attribute* attribute)
{
    for (const auto& entry : std::map<PlugKey, PlugAddress>(node->incoming))
        if (onAttribute(entry.first, attribute))
            edits.run(editing::disconnect(entry.second, PlugAddress{node, entry.first}));
    for (const auto& entry : std::map<PlugKey, std::vector<PlugAddress>>(node->outgoing))
        if (onAttribute(entry.first, attribute))
            for (const auto& destination : entry.second)
                edits.run(editing::disconnect(PlugAddress{node, entry.first}, destination));
}

NodePtr duplicateUnder(EditList& edits, const NodePtr& node, const NodePtr& parent)
{
    // Copies take names no node has, anywhere ("pCubeShape1" -> "pCubeShape2").
    NodePtr copy = newNode(node->type(), scene::uniqueName(node->name, nullptr, nullptr));
    copyNodeState(node, copy);
    if (node->type()->copyData)
        node->type()->copyData(*node, *copy);
    if (copy->user && node->user)
        copy->user->copyInternalData(node->user.get());
    addNode(edits, copy, parent);
    for (const auto& child : std::vector<NodePtr>(node->children))
        duplicateUnder(edits, child, copy);
    return copy;
}

} // namespace

std::string plugText(const Node& node, const PlugKey& key)
{
    PlugNameOptions options;
    options.includeNodeName = true;
    options.useLongNames = true;
    return plugName(node, key, options);
}

bool locked(const Node& node, const PlugKey& key)
{
    // A plug is locked when it, or a compound or array plug above it, is.
    for (std::optional<PlugKey> at = key; at; at = at->parentKey())
        if (const PlugState* state = node.state(*at); state && state->locked)
            return true;
    return false;
}

NodePtr newNode(const NodeTypePtr& type, const std::string& name)
{
    if (!type || type->abstract)
        throw MelError("Unknown object type: " + (type ? type->name : std::string()));
    auto node = std::make_shared<Node>(type, name);
    node->serial = nextSerial();
    node->uuid.generate();
    if (type->creator)
        node->setUser(static_cast<MPxNode*>(type->creator()));
    return node;
}

namespace {

void addNode(EditList& edits, const NodePtr& node, const NodePtr& parent)
{
    node->name = node->name.empty() ? scene::defaultName(node->type()->name, parent.get())
                                    : scene::uniqueName(node->name, node.get(), parent.get());
    ns::add(edits, ns::namespaceOf(node->name));
    edits.run(editing::addNode(node, node->isDag() ? parent : nullptr));
}

} // namespace

void insert(EditList& edits, const NodePtr& node, const NodePtr& parent)
{
    if (parent && !node->isDag())
        throw MelError("Cannot parent a dependency node: '" + node->type()->name + "' is not a DAG node type.");
    if (parent && parent->isShape())
        throw MelError("A shape node cannot have children: '" + parent->name + "'.");
    NodePtr under = parent;
    if (node->isShape() && !under)
    {
        under = createNode(edits, findNodeType("transform"), "", nullptr);
        node->serial = nextSerial(); // listed after its new parent
    }
    if (!node->name.empty())
        node->name = ns::qualify(node->name);
    addNode(edits, node, under);
    if (node->user)
        node->user->postConstructor();
}

NodePtr createNode(EditList& edits, const NodeTypePtr& type, const std::string& name, const NodePtr& parent)
{
    NodePtr node = newNode(type, name);
    insert(edits, node, parent);
    return node;
}

NodePtr createNode(EditList& edits, const std::string& typeName, const std::string& name, const NodePtr& parent)
{
    NodeTypePtr type = findNodeType(typeName);
    if (!type || type->abstract)
        throw MelError("Unknown object type: " + typeName);
    return createNode(edits, type, name, parent);
}

void absorb(EditList& edits, MDGModifier& modifier)
{
    EditList done = ModifierAccess::takeEdits(modifier);
    if (!done.empty())
        edits.adopt(std::make_unique<EditList>(std::move(done)));
}

void deleteNode(EditList& edits, const NodePtr& node)
{
    if (!node->alive)
        return;
    requireNotReferenced(*node, "delete");
    requireNotLocked(*node, "delete");
    {
        MDGModifier modifier;
        MObject object = objectOf(node.get());
        events::fireNodeAboutToDelete(object, modifier);
        modifier.doIt();
        absorb(edits, modifier);
    }
    for (const auto& child : std::vector<NodePtr>(node->children))
        deleteNode(edits, child);
    breakConnections(edits, node, nullptr);
    selection::deselect(edits, *node);
    edits.run(editing::removeNode(node));
}

std::string rename(EditList& edits, const NodePtr& node, const std::string& name)
{
    checkAlive(node);
    if (name.empty())
        throw MelError("New name must not be empty.");
    // A new name is relative to the current namespace, as a new node's is.
    const std::string qualified = ns::qualify(name);
    if (qualified == node->name)
        return qualified;
    requireNotReferenced(*node, "rename");
    requireNotLocked(*node, "rename");
    const std::string unique = scene::uniqueName(qualified, node.get(), node->parentNode().get());
    ns::add(edits, ns::namespaceOf(unique));
    edits.run(editing::rename(node, unique));
    return unique;
}

void connect(EditList& edits, const PlugAddress& source, const PlugAddress& destination, bool force)
{
    NodePtr from = source.lock();
    NodePtr to = destination.lock();
    checkAlive(from);
    checkAlive(to);
    if (source == destination)
        throw MelError("Cannot connect a plug to itself: '" + plugText(*to, destination.key) + "'.");
    if (!destination.key.attribute->writable)
        throw MelError("The destination attribute '" + plugText(*to, destination.key) +
                       "' cannot be connected to because it is not writable.");
    // Files lock channels before their connections come; reading one may
    // connect to a locked plug.
    if (locked(*to, destination.key) && !MFileIO::isReadingFile())
        throw MelError("The destination attribute '" + plugText(*to, destination.key) + "' is locked.");
    auto existing = to->incoming.find(destination.key);
    if (existing != to->incoming.end())
    {
        if (existing->second == source)
            throw MelError("'" + plugText(*from, source.key) + "' is already connected to '" +
                           plugText(*to, destination.key) + "'.");
        NodePtr previous = existing->second.lock();
        if (!force)
            throw MelError("'" + plugText(*to, destination.key) + "' already has an incoming connection from '" +
                           plugText(*previous, existing->second.key) + "'.");
        edits.run(editing::disconnect(existing->second, destination));
    }
    edits.run(editing::connect(source, destination));
}

void disconnect(EditList& edits, const PlugAddress& source, const PlugAddress& destination)
{
    NodePtr from = source.lock();
    NodePtr to = destination.lock();
    checkAlive(from);
    checkAlive(to);
    auto existing = to->incoming.find(destination.key);
    if (existing == to->incoming.end() || !(existing->second == source))
        throw MelError("There is no connection from '" + plugText(*from, source.key) + "' to '" +
                       plugText(*to, destination.key) + "' to disconnect");
    edits.run(editing::disconnect(source, destination));
}

void setValue(EditList& edits, const NodePtr& node, const PlugKey& key, const Value& value, bool command)
{
    checkAlive(node);
    if (locked(*node, key) || (command && eval::drivingSource(*node, key)))
        throw MelError("The attribute '" + plugText(*node, key) + "' is locked or connected and cannot be modified.");
    if (!key.attribute->writable)
        throw MelError("The attribute '" + plugText(*node, key) + "' is not writable.");
    if (!key.complete())
        throw MelError("The attribute '" + plugText(*node, key) + "' is a multi; give an element index.");
    EditPtr kept = node->type()->keptValueEdit ? node->type()->keptValueEdit(node, key, value) : nullptr;
    edits.run(kept ? std::move(kept) : editing::setValue(node, key, value));
}

void setVector(EditList& edits, const NodePtr& node, const std::string& compound, const MVector& v)
{
    AttributePtr attribute = node->findAttribute(compound);
    if (!attribute)
        return;
    const double values[3] = {v.x, v.y, v.z};
    for (size_t i = 0; i < 3 && i < attribute->children.size(); ++i)
    {
        const PlugKey key = keyOf(*attribute->children[i]);
        if (eval::stored(*node, key) != Value::ofNumber(values[i]))
            setValue(edits, node, key, Value::ofNumber(values[i]), false);
    }
}

void setLocked(EditList& edits, const NodePtr& node, const PlugKey& key, bool isLocked)
{
    checkAlive(node);
    const PlugState* state = node->state(key);
    if ((state && state->locked) == isLocked)
        return;
    requireNotLocked(*node, "lock or unlock attributes of");
    if (!isLocked && node->origin)
        if (auto loaded = node->origin->plugs.find(key); loaded != node->origin->plugs.end() && loaded->second.locked)
            throw MelError("The attribute '" + plugText(*node, key) +
                           "' is locked in a referenced file and cannot be unlocked.");
    edits.run(editing::setLocked(node, key, isLocked));
}

void setKeyable(EditList& edits, const NodePtr& node, const PlugKey& key, bool keyable)
{
    checkAlive(node);
    edits.run(editing::setKeyable(node, key, keyable));
}

void setChannelBox(EditList& edits, const NodePtr& node, const PlugKey& key, bool channelBox)
{
    checkAlive(node);
    edits.run(editing::setChannelBox(node, key, channelBox));
}

void addAttribute(EditList& edits, const NodePtr& node, const AttributePtr& attribute)
{
    checkAlive(node);
    requireNotLocked(*node, "add attributes to");
    for (const std::string* name : {&attribute->longName, &attribute->shortName})
        if (!name->empty() && node->findAttribute(*name))
            throw MelError("Found an attribute with the same name '" + *name + "' on node '" + node->name + "'.");
    attribute->dynamic = true;
    for (const auto& child : attribute->children)
        child->dynamic = true;
    edits.run(editing::addAttribute(node, attribute));
}

void removeAttribute(EditList& edits, const NodePtr& node, const AttributePtr& attribute)
{
    checkAlive(node);
    if (!attribute->dynamic)
        throw MelError("Cannot delete the static attribute '" + attribute->longName + "'.");
    requireNotLocked(*node, "remove attributes from");
    if (node->origin)
    {
        const auto& loaded = node->origin->dynamicAttributes;
        if (std::find(loaded.begin(), loaded.end(), attribute) != loaded.end())
            requireNotReferenced(*node, "remove the attribute '" + attribute->longName + "' from");
    }
    // Its connections go first, as its values go with it.
    breakConnections(edits, node, attribute.get());
    edits.run(editing::removeAttribute(node, attribute));
}

void reparent(EditList& edits, const NodePtr& node, const NodePtr& parent, bool relative)
{
    checkAlive(node);
    if (!node->isDag())
        throw MelError("'" + node->name + "' is not a DAG node and cannot be parented.");
    for (NodePtr p = parent; p; p = p->parentNode())
        if (p == node)
            throw MelError("Cannot parent '" + node->name + "' to itself or to one of its descendants.");
    if (parent && parent->isShape())
        throw MelError("Cannot parent to the shape '" + parent->name + "'.");
    if (node->parentNode() == parent)
        return;
    requireNotReferenced(*node, "reparent");
    requireNotLocked(*node, "reparent");
    const MMatrix world = transform::worldMatrix(*node);
    const std::string name = scene::nameTaken(node->name, node.get(), parent.get())
                                 ? scene::uniqueName(node->name, node.get(), parent.get())
                                 : node->name;
    if (name != node->name)
        edits.run(editing::rename(node, name));
    edits.run(editing::reparent(node, parent));
    if (relative || !node->hasFn(MFn::kTransform))
        return;
    const MMatrix parentWorld = parent ? transform::worldMatrix(*parent) : MMatrix();
    const transform::Channels c = transform::solve(*node, world * parentWorld.inverse());
    setVector(edits, node, "translate", c.translate);
    setVector(edits, node, "rotate", c.rotate);
    setVector(edits, node, "scale", c.scale);
    setVector(edits, node, "shear", c.shear);
}

NodePtr duplicate(EditList& edits, const NodePtr& node)
{
    checkAlive(node);
    return duplicateUnder(edits, node, node->parentNode());
}

void setUuid(EditList& edits, const NodePtr& node, const MUuid& uuid)
{
    checkAlive(node);
    edits.run(editing::setUuid(node, uuid));
}

} // namespace mayasim::ops
