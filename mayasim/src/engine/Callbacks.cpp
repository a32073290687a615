#include "engine/Callbacks.h"

#include <algorithm>
#include <map>

namespace mayasim::callbacks {
namespace {

// Events and conditions Maya knows from the start (a subset of
// `scriptJob -listEvents` / `-listConditions`).
const char* const kEventNames[] = {
    "idle", "idleHigh", "idleVeryLow", "SelectionChanged", "PreFileNewOrOpened", "PreFileNew", "PreFileOpened",
    "NewSceneOpened", "SceneOpened", "SceneSaved", "SceneImported", "PostSceneRead", "Undo", "Redo",
    "DragRelease", "playbackRangeChanged", "playbackRangeSliderChanged", "playbackRangeAboutToChange",
    "modelEditorChanged", "animLayerRebuild", "animLayerRefresh", "animLayerLockChanged",
    "animLayerBaseLockChanged", "animLayerAnimationChanged", "animLayerGhostChanged", "timeChanged",
    "timeUnitChanged", "linearUnitChanged", "angularUnitChanged", "NameChanged", "ToolChanged",
    "graphEditorChanged", "graphEditorParamCurveSelected", "quitApplication", "deleteAll",
};
const char* const kConditionNames[] = {
    "playblasting", "playingBack", "busy", "readingFile", "writingFile", "opening", "newing",
    "SomethingSelected", "UndoAvailable", "RedoAvailable", "autoKeyframeState",
};

struct Table
{
    std::map<MCallbackId, Callback> callbacks; // ids grow, so this is registration order
    MCallbackId nextId = 1;
    std::vector<MCallbackId> running;          // nested firing: innermost last
    std::map<std::string, bool> conditions;
    double clock = 0.0;

    Table() { resetConditions(); }
    void resetConditions()
    {
        conditions.clear();
        for (const char* name : kConditionNames)
            conditions[name] = false;
    }
};

Table& table()
{
    static Table instance;
    return instance;
}

bool nodeGone(const Callback& callback)
{
    return callback.node && callback.nodeLife.expired();
}

} // namespace

MCallbackId add(Callback callback)
{
    Table& t = table();
    // Callbacks of nodes that no longer exist are dropped here, as Maya
    // drops them with the node.
    for (auto it = t.callbacks.begin(); it != t.callbacks.end();)
        it = nodeGone(it->second) ? t.callbacks.erase(it) : std::next(it);
    callback.id = t.nextId++;
    const MCallbackId id = callback.id;
    t.callbacks.emplace(id, std::move(callback));
    return id;
}

bool remove(MCallbackId id)
{
    Table& t = table();
    auto it = t.callbacks.find(id);
    if (it == t.callbacks.end())
        return false;
    const bool live = !nodeGone(it->second);
    t.callbacks.erase(it);
    return live;
}

void update(const Callback& callback)
{
    auto it = table().callbacks.find(callback.id);
    if (it != table().callbacks.end())
        it->second = callback;
}

std::vector<MCallbackId> ofNode(const void* node)
{
    std::vector<MCallbackId> ids;
    for (const auto& [id, callback] : table().callbacks)
        if (node && callback.node == node && !nodeGone(callback))
            ids.push_back(id);
    return ids;
}

MCallbackId current()
{
    const auto& running = table().running;
    return running.empty() ? 0 : running.back();
}

void runAs(const Callback& callback, const std::function<void(const Callback&)>& call)
{
    // A copy: the callback may remove itself, which erases the table's entry.
    const Callback running = callback;
    table().running.push_back(running.id);
    struct Pop
    {
        ~Pop() { table().running.pop_back(); }
    } pop;
    call(running);
}

void fire(Channel channel, const std::function<bool(const Callback&)>& matches,
          const std::function<void(const Callback&)>& call)
{
    std::vector<MCallbackId> ids;
    for (const auto& [id, callback] : table().callbacks)
        if (callback.channel == channel && !nodeGone(callback) && matches(callback))
            ids.push_back(id);
    for (MCallbackId id : ids)
    {
        auto it = table().callbacks.find(id);
        if (it == table().callbacks.end() || nodeGone(it->second))
            continue;
        runAs(it->second, call);
    }
}

std::vector<Callback> registered(Channel channel)
{
    std::vector<Callback> found;
    for (const auto& [id, callback] : table().callbacks)
        if (callback.channel == channel && !nodeGone(callback))
            found.push_back(callback);
    return found;
}

std::vector<MCallbackId> removeIf(const std::function<bool(const Callback&)>& matches)
{
    std::vector<MCallbackId> removed;
    auto& callbacks = table().callbacks;
    for (auto it = callbacks.begin(); it != callbacks.end();)
    {
        if (matches(it->second))
        {
            removed.push_back(it->first);
            it = callbacks.erase(it);
        }
        else
            ++it;
    }
    return removed;
}

bool isEventName(const std::string& name)
{
    return std::find(std::begin(kEventNames), std::end(kEventNames), name) != std::end(kEventNames);
}

std::vector<std::string> eventNames()
{
    return {std::begin(kEventNames), std::end(kEventNames)};
}

bool isConditionName(const std::string& name)
{
    return table().conditions.count(name) > 0;
}

std::vector<std::string> conditionNames()
{
    std::vector<std::string> names;
    for (const auto& [name, state] : table().conditions)
        names.push_back(name);
    return names;
}

bool conditionState(const std::string& name)
{
    auto it = table().conditions.find(name);
    return it != table().conditions.end() && it->second;
}

void setConditionState(const std::string& name, bool state)
{
    table().conditions[name] = state;
}

double clock()
{
    return table().clock;
}

void setClock(double seconds)
{
    table().clock = seconds;
}

void reset()
{
    Table& t = table();
    t.callbacks.clear();
    t.running.clear();
    t.resetConditions();
    t.clock = 0.0;
}

} // namespace mayasim::callbacks
