#pragma once
// The table behind every M*Message class: who is registered for what, in the
// order of registration. Firing walks a snapshot, so a callback may remove
// itself or any other callback, and one added while firing waits for the
// next time the message is raised.
#include <maya/MMessage.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace mayasim::callbacks {

enum class Channel
{
    Event,
    Scene,
    SceneCheck,
    Condition,
    ActiveList,
    TimeChange,
    NodeAdded,
    NodeRemoved,
    AttributeChanged,
    NodeAboutToDelete,
    NodePreRemoval,
    NameChanged,
    WorldMatrix,
    Timer,
    AnimCurveEdited,
    AnimKeyframeEdited,
};
constexpr std::size_t kChannelCount = static_cast<std::size_t>(Channel::AnimKeyframeEdited) + 1;

// The function the client registered, kept untyped; each message casts it
// back to the type it was registered with before calling it.
using AnyFunction = void (*)();

struct Callback
{
    MCallbackId id = 0;
    Channel channel = Channel::Event;
    std::string name;           // event or condition name, node type filter
    int message = 0;            // MSceneMessage::Message
    const void* node = nullptr; // the node a per-node callback watches
    std::weak_ptr<void> nodeLife;
    AnyFunction function = nullptr;
    void* clientData = nullptr;
    double period = 0.0;        // timers: seconds between calls
    double due = 0.0;           // timers: clock time of the next call
    double lastCall = 0.0;      // timers: clock time of the previous call

    template <typename Fn>
    Fn as() const { return reinterpret_cast<Fn>(function); }
};

template <typename Fn>
AnyFunction untyped(Fn function) { return reinterpret_cast<AnyFunction>(function); }

// --- what the messages need from the scene (CallbackScene.cpp) -----------
// A node as per-node callbacks see it: its identity and whether it exists.
struct NodeRef
{
    const void* node = nullptr;
    std::weak_ptr<void> life;
};
NodeRef nodeRef(const MObject& node);
// Node type filters of MDGMessage: "dependNode" takes every node, any other
// name takes nodes of that type and of types derived from it.
bool nodeIsOfType(const MObject& node, const std::string& typeName);
// Calls `visit` with the DAG node and then each of its descendants.
void forSelfAndDescendants(const MObject& node, const std::function<void(MObject&)>& visit);
// Calls `use` with a copy of `time` it may change.
void withTimeCopy(const MTime& time, const std::function<void(MTime&)>& use);

MCallbackId add(Callback callback);
// False when the id is not registered (never was, or already removed, or its
// node is gone).
bool remove(MCallbackId id);
// Updates a registered callback (timers move their due time).
void update(const Callback& callback);
// The ids registered on a node, in registration order.
std::vector<MCallbackId> ofNode(const void* node);
// The callback being run, 0 outside callbacks.
MCallbackId current();

// Calls `call` with each callback of the channel that `matches`, in
// registration order, over the callbacks registered when firing began; one
// removed meanwhile, or whose node is gone, is skipped.
void fire(Channel channel, const std::function<bool(const Callback&)>& matches,
          const std::function<void(const Callback&)>& call);
// The channel's live callbacks, for the timer queue.
std::vector<Callback> registered(Channel channel);
// Whether any callback is registered on the channel (one whose node is gone
// may count): a message can skip preparing what nobody would receive.
bool listened(Channel channel);
// How many callbacks the channel has.
std::size_t listeners(Channel channel);
// Removes every callback `matches` picks (whatever its channel) and returns
// their ids, in registration order.
std::vector<MCallbackId> removeIf(const std::function<bool(const Callback&)>& matches);
// Runs one callback with current() naming it.
void runAs(const Callback& callback, const std::function<void(const Callback&)>& call);

// --- state the messages report ------------------------------------------
bool isEventName(const std::string& name);
std::vector<std::string> eventNames();
// Conditions: a name the host has set, or one Maya knows from the start.
bool isConditionName(const std::string& name);
std::vector<std::string> conditionNames();
bool conditionState(const std::string& name);
void setConditionState(const std::string& name, bool state);
// The clock timers run on, in seconds since initialisation.
double clock();
void setClock(double seconds);
// Back to the state of a fresh library: no callbacks, conditions off, clock 0.
void reset();

} // namespace mayasim::callbacks
