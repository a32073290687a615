#include "scene/Edits.h"

#include "engine/Events.h"
#include "scene/Evaluation.h"
#include "scene/Plugs.h"
#include "scene/Scene.h"
#include "scene/Selection.h"

#include <maya/MNodeMessage.h>
#include <maya/MString.h>

#include <algorithm>
#include <functional>

namespace mayasim {

void EditList::run(EditPtr edit)
{
    edit->apply();
    fEdits.push_back(std::move(edit));
}

void EditList::apply()
{
    for (auto& edit : fEdits)
        edit->apply();
}

void EditList::revert()
{
    for (auto it = fEdits.rbegin(); it != fEdits.rend(); ++it)
        (*it)->revert();
}

void EditList::rollback()
{
    revert();
    fEdits.clear();
}

void EditList::commit()
{
    if (fEdits.empty())
        return;
    auto list = std::make_unique<EditList>();
    list->fEdits = std::move(fEdits);
    fEdits.clear();
    recordUndo(std::move(list));
}

namespace editing {

namespace {

// An edit from two functions.
class Lambda : public Edit
{
public:
    Lambda(std::function<void()> apply, std::function<void()> revert)
        : fApply(std::move(apply)), fRevert(std::move(revert))
    {
    }
    void apply() override { fApply(); }
    void revert() override { fRevert(); }

private:
    std::function<void()> fApply, fRevert;
};

void fireAttribute(Node& node, const PlugKey& key, int message, const MPlug& other = MPlug())
{
    MObject object = objectOf(&node);
    MPlug plug = makePlug(node, key);
    MPlug otherPlug = other;
    events::fireAttributeChanged(object, message, plug, otherPlug);
}

void fireSet(Node& node, const PlugKey& key)
{
    fireAttribute(node, key, MNodeMessage::kAttributeSet);
    if (key.attribute->affectsWorldSpace)
    {
        MObject object = objectOf(&node);
        events::fireWorldMatrixModified(object);
    }
}

void linkConnection(const PlugAddress& source, const PlugAddress& destination)
{
    NodePtr from = source.lock();
    NodePtr to = destination.lock();
    to->incoming[destination.key] = source;
    from->outgoing[source.key].push_back(destination);
}

void unlinkConnection(const PlugAddress& source, const PlugAddress& destination)
{
    NodePtr from = source.lock();
    NodePtr to = destination.lock();
    to->incoming.erase(destination.key);
    auto& list = from->outgoing[source.key];
    list.erase(std::remove(list.begin(), list.end(), destination), list.end());
    if (list.empty())
        from->outgoing.erase(source.key);
}

void fireConnection(const PlugAddress& source, const PlugAddress& destination, bool made)
{
    NodePtr from = source.lock();
    NodePtr to = destination.lock();
    const int kind = made ? MNodeMessage::kConnectionMade : MNodeMessage::kConnectionBroken;
    MPlug sourcePlug = makePlug(*from, source.key);
    MPlug destinationPlug = makePlug(*to, destination.key);
    fireAttribute(*from, source.key, kind, destinationPlug);
    fireAttribute(*to, destination.key, kind | MNodeMessage::kIncomingDirection, sourcePlug);
}

// Replaces a plug's state wholesale in both directions.
EditPtr plugStateEdit(NodePtr node, PlugKey key, std::function<void(PlugState&)> change, int message)
{
    const std::optional<PlugState> before =
        node->state(key) ? std::optional<PlugState>(*node->state(key)) : std::nullopt;
    auto restore = [node, key](const std::optional<PlugState>& state) {
        if (state)
            node->plugs[key] = *state;
        else
            node->plugs.erase(key);
    };
    return lambda(
        [node, key, change, message] {
            change(node->plugs[key]);
            fireAttribute(*node, key, message);
        },
        [node, key, before, restore] {
            restore(before);
            fireAttribute(*node, key, 0);
        });
}

} // namespace

EditPtr lambda(std::function<void()> apply, std::function<void()> revert)
{
    return std::make_unique<Lambda>(std::move(apply), std::move(revert));
}

EditPtr addNode(NodePtr node, NodePtr parent)
{
    return lambda(
        [node, parent] {
            node->alive = true;
            scene::insertNode(node, parent);
            MObject object = objectOf(node.get());
            events::fireNodeAdded(object);
        },
        [node] {
            MObject object = objectOf(node.get());
            events::fireNodePreRemoval(object);
            scene::removeNode(node);
            node->alive = false;
            selection::forget(*node);
            events::fireNodeRemoved(object);
        });
}

EditPtr removeNode(NodePtr node)
{
    NodePtr parent = node->parentNode();
    const int position = node->isDag() ? scene::childPosition(*node) : -1;
    return lambda(
        [node] {
            MObject object = objectOf(node.get());
            events::fireNodePreRemoval(object);
            scene::removeNode(node);
            node->alive = false;
            selection::forget(*node);
            events::fireNodeRemoved(object);
        },
        [node, parent, position] {
            node->alive = true;
            scene::insertNode(node, parent, position);
            MObject object = objectOf(node.get());
            events::fireNodeAdded(object);
        });
}

EditPtr rename(NodePtr node, std::string name)
{
    const std::string before = node->name;
    auto change = [node](const std::string& from, const std::string& to) {
        node->name = to;
        MObject object = objectOf(node.get());
        events::fireNameChanged(object, MString(from.c_str()));
    };
    return lambda([=] { change(before, name); }, [=] { change(name, before); });
}

EditPtr connect(PlugAddress source, PlugAddress destination)
{
    return lambda(
        [=] {
            linkConnection(source, destination);
            fireConnection(source, destination, true);
        },
        [=] {
            unlinkConnection(source, destination);
            fireConnection(source, destination, false);
        });
}

EditPtr disconnect(PlugAddress source, PlugAddress destination)
{
    return lambda(
        [=] {
            unlinkConnection(source, destination);
            fireConnection(source, destination, false);
        },
        [=] {
            linkConnection(source, destination);
            fireConnection(source, destination, true);
        });
}

EditPtr setValue(NodePtr node, PlugKey key, Value value)
{
    const PlugState* state = node->state(key);
    const Value before = state ? state->value : Value();
    return lambda(
        [=] {
            eval::store(*node, key, value);
            fireSet(*node, key);
        },
        [=] {
            eval::store(*node, key, before);
            fireSet(*node, key);
        });
}

EditPtr setLocked(NodePtr node, PlugKey key, bool locked)
{
    return plugStateEdit(
        node, key, [locked](PlugState& state) { state.locked = locked; },
        locked ? MNodeMessage::kAttributeLocked : MNodeMessage::kAttributeUnlocked);
}

EditPtr setKeyable(NodePtr node, PlugKey key, bool keyable)
{
    return plugStateEdit(
        node, key, [keyable](PlugState& state) { state.keyable = keyable; },
        keyable ? MNodeMessage::kAttributeKeyable : MNodeMessage::kAttributeUnkeyable);
}

EditPtr setChannelBox(NodePtr node, PlugKey key, bool channelBox)
{
    return plugStateEdit(
        node, key, [channelBox](PlugState& state) { state.channelBox = channelBox; }, 0);
}

namespace {

// The plug states of an attribute and its children leave the node with the
// attribute and come back with it: the node keys them by the attribute's
// address, and an attribute taken back may be freed once the undo queue
// lets go of it.
using PlugStates = std::map<PlugKey, PlugState>;

void insertAttribute(const NodePtr& node, const AttributePtr& attribute, long position, PlugStates& kept)
{
    auto& attributes = node->dynamicAttributes;
    const long at = position < 0 ? static_cast<long>(attributes.size())
                                 : std::min<long>(position, static_cast<long>(attributes.size()));
    attributes.insert(attributes.begin() + at, attribute);
    node->plugs.merge(kept);
    kept.clear();
    fireAttribute(*node, keyOf(*attribute), MNodeMessage::kAttributeAdded);
}

void eraseAttribute(const NodePtr& node, const AttributePtr& attribute, PlugStates& kept)
{
    fireAttribute(*node, keyOf(*attribute), MNodeMessage::kAttributeRemoved);
    auto& attributes = node->dynamicAttributes;
    attributes.erase(std::remove(attributes.begin(), attributes.end(), attribute), attributes.end());
    for (auto it = node->plugs.begin(); it != node->plugs.end();)
    {
        const std::vector<const Attribute*> chain = it->first.attribute->chain();
        if (std::find(chain.begin(), chain.end(), attribute.get()) != chain.end())
            kept.insert(node->plugs.extract(it++));
        else
            ++it;
    }
}

} // namespace

EditPtr addAttribute(NodePtr node, AttributePtr attribute)
{
    auto kept = std::make_shared<PlugStates>();
    return lambda([=] { insertAttribute(node, attribute, -1, *kept); }, [=] { eraseAttribute(node, attribute, *kept); });
}

EditPtr removeAttribute(NodePtr node, AttributePtr attribute)
{
    const auto& attributes = node->dynamicAttributes;
    const long position = std::find(attributes.begin(), attributes.end(), attribute) - attributes.begin();
    auto kept = std::make_shared<PlugStates>();
    return lambda([=] { eraseAttribute(node, attribute, *kept); },
                  [=] { insertAttribute(node, attribute, position, *kept); });
}

EditPtr reparent(NodePtr node, NodePtr parent)
{
    NodePtr before = node->parentNode();
    const int position = scene::childPosition(*node);
    auto move = [node](const NodePtr& to, int at) {
        scene::setParent(node, to, at);
        MObject object = objectOf(node.get());
        events::fireWorldMatrixModified(object);
    };
    return lambda([=] { move(parent, -1); }, [=] { move(before, position); });
}

EditPtr setUuid(NodePtr node, MUuid uuid)
{
    const MUuid before = node->uuid;
    return lambda([=] { node->uuid = uuid; }, [=] { node->uuid = before; });
}

EditPtr setNodeLocked(NodePtr node, bool locked)
{
    const bool before = node->locked;
    return lambda([=] { node->locked = locked; }, [=] { node->locked = before; });
}

} // namespace editing

} // namespace mayasim
