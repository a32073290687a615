#include "engine/Callbacks.h"

#include <algorithm>
#include <array>
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
    // The ids of each channel, in registration order: firing a message looks
    // at its own callbacks only, not at every one registered.
    std::array<std::vector<MCallbackId>, kChannelCount> byChannel;
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

std::vector<MCallbackId>& idsOf(Channel channel)
{
    return table().byChannel[static_cast<std::size_t>(channel)];
}

std::map<MCallbackId, Callback>::iterator erase(std::map<MCallbackId, Callback>::iterator it)
{
    std::vector<MCallbackId>& ids = idsOf(it->second.channel);
    ids.erase(std::find(ids.begin(), ids.end(), it->first));
    return table().callbacks.erase(it);
}

} // namespace

MCallbackId add(Callback callback)
{
    Table& t = table();
    // Callbacks of nodes that no longer exist are dropped here, as Maya
    // drops them with the node.
    for (auto it = t.callbacks.begin(); it != t.callbacks.end();)
        it = nodeGone(it->second) ? erase(it) : std::next(it);
    callback.id = t.nextId++;
    const MCallbackId id = callback.id;
    idsOf(callback.channel).push_back(id);
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
    erase(it);
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
    // The snapshot sits on the stack while the channel is small: a message
    // fired at every key edit allocates nothing for it.
    constexpr std::size_t kInline = 8;
    const std::vector<MCallbackId>& channelIds = idsOf(channel);
    std::array<MCallbackId, kInline> inlineIds;
    std::vector<MCallbackId> heapIds;
    MCallbackId* ids = inlineIds.data();
    if (channelIds.size() > kInline)
    {
        heapIds.resize(channelIds.size());
        ids = heapIds.data();
    }
    std::size_t count = 0;
    for (MCallbackId id : channelIds)
    {
        const Callback& callback = table().callbacks.find(id)->second;
        if (!nodeGone(callback) && matches(callback))
            ids[count++] = id;
    }
    for (std::size_t i = 0; i < count; ++i)
    {
        auto it = table().callbacks.find(ids[i]);
        if (it == table().callbacks.end() || nodeGone(it->second))
            continue;
        runAs(it->second, call);
    }
}

std::vector<Callback> registered(Channel channel)
{
    std::vector<Callback> found;
    for (MCallbackId id : idsOf(channel))
    {
        const Callback& callback = table().callbacks.find(id)->second;
        if (!nodeGone(callback))
            found.push_back(callback);
    }
    return found;
}

bool listened(Channel channel)
{
    return !idsOf(channel).empty();
}

std::size_t listeners(Channel channel)
{
    return idsOf(channel).size();
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
            it = erase(it);
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
    for (std::vector<MCallbackId>& ids : t.byChannel)
        ids.clear();
    t.running.clear();
    t.resetConditions();
    t.clock = 0.0;
}

} // namespace mayasim::callbacks
