#include "engine/Events.h"

#include "engine/Callbacks.h"
#include "file/SceneFile.h"

#include <maya/MDagMessage.h>
#include <maya/MNodeMessage.h>

namespace mayasim::events {

using callbacks::Callback;
using callbacks::Channel;

namespace {

bool always(const Callback&)
{
    return true;
}

// Runs the channel's callbacks registered on `node`.
void fireOnNode(Channel channel, const MObject& node, const std::function<void(const Callback&)>& call)
{
    const void* identity = callbacks::nodeRef(node).node;
    if (!identity)
        return;
    callbacks::fire(channel, [identity](const Callback& c) { return c.node == identity; }, call);
}

unsigned long& revision()
{
    static unsigned long count = 0;
    return count;
}

// Every change of the scene passes through here: the document is modified.
void sceneChanged()
{
    file::setModified(true);
    ++revision();
}

} // namespace

void fireEvent(const std::string& name)
{
    callbacks::fire(
        Channel::Event, [&name](const Callback& c) { return c.name == name; },
        [](const Callback& c) { c.as<MMessage::MBasicFunction>()(c.clientData); });
}

void fireSceneMessage(int message)
{
    ++revision();
    callbacks::fire(
        Channel::Scene, [message](const Callback& c) { return c.message == message; },
        [](const Callback& c) { c.as<MMessage::MBasicFunction>()(c.clientData); });
}

bool fireSceneCheck(int message)
{
    bool proceed = true;
    callbacks::fire(
        Channel::SceneCheck, [message](const Callback& c) { return c.message == message; },
        [&proceed](const Callback& c) {
            bool retCode = true;
            c.as<MMessage::MCheckFunction>()(&retCode, c.clientData);
            proceed = proceed && retCode;
        });
    return proceed;
}

void fireConditionChanged(const std::string& name, bool state)
{
    callbacks::setConditionState(name, state);
    callbacks::fire(
        Channel::Condition, [&name](const Callback& c) { return c.name == name; },
        [state](const Callback& c) { c.as<MMessage::MStateFunction>()(state, c.clientData); });
}

void fireActiveListModified()
{
    ++revision();
    callbacks::fire(Channel::ActiveList, always,
                    [](const Callback& c) { c.as<MMessage::MBasicFunction>()(c.clientData); });
    fireEvent("SelectionChanged");
}

void fireTimeChanged(const MTime& time)
{
    ++revision();
    callbacks::fire(Channel::TimeChange, always, [&time](const Callback& c) {
        // Each callback gets its own copy: Maya hands out a time it may change.
        callbacks::withTimeCopy(time, [&c](MTime& copy) { c.as<MMessage::MTimeFunction>()(copy, c.clientData); });
    });
    fireEvent("timeChanged");
}

void fireNodeAdded(MObject& node)
{
    sceneChanged();
    callbacks::fire(
        Channel::NodeAdded, [&node](const Callback& c) { return callbacks::nodeIsOfType(node, c.name); },
        [&node](const Callback& c) { c.as<MMessage::MNodeFunction>()(node, c.clientData); });
}

void fireNodeRemoved(MObject& node)
{
    sceneChanged();
    callbacks::fire(
        Channel::NodeRemoved, [&node](const Callback& c) { return callbacks::nodeIsOfType(node, c.name); },
        [&node](const Callback& c) { c.as<MMessage::MNodeFunction>()(node, c.clientData); });
}

void fireAttributeChanged(MObject& node, int msg, MPlug& plug, MPlug& otherPlug)
{
    sceneChanged();
    const auto message = static_cast<MNodeMessage::AttributeMessage>(msg);
    fireOnNode(Channel::AttributeChanged, node, [&](const Callback& c) {
        c.as<MNodeMessage::MAttr2PlugFunction>()(message, plug, otherPlug, c.clientData);
    });
}

void fireNodeAboutToDelete(MObject& node, MDGModifier& modifier)
{
    fireOnNode(Channel::NodeAboutToDelete, node, [&](const Callback& c) {
        c.as<MMessage::MNodeModifierFunction>()(node, modifier, c.clientData);
    });
}

void fireNodePreRemoval(MObject& node)
{
    fireOnNode(Channel::NodePreRemoval, node,
               [&](const Callback& c) { c.as<MMessage::MNodeFunction>()(node, c.clientData); });
}

void fireNameChanged(MObject& node, const MString& previousName)
{
    sceneChanged();
    fireOnNode(Channel::NameChanged, node, [&](const Callback& c) {
        c.as<MMessage::MNodeStringFunction>()(node, previousName, c.clientData);
    });
}

void fireWorldMatrixModified(MObject& transform)
{
    // A move moves everything below: the node and each DAG descendant hear it.
    callbacks::forSelfAndDescendants(transform, [](MObject& moved) {
        fireOnNode(Channel::WorldMatrix, moved, [&moved](const Callback& c) {
            auto modified = MDagMessage::kAll;
            c.as<MDagMessage::MWorldMatrixModifiedFunction>()(moved, modified, c.clientData);
        });
    });
}

unsigned long sceneRevision()
{
    return revision();
}

} // namespace mayasim::events
