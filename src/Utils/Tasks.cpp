#include "Utils/Tasks.h"

#include <maya/MEventMessage.h>
#include <maya/MMessage.h>
#include <maya/MString.h>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace {

struct TaskRecord
{
    int32_t id = 0;
    MCallbackId callbackId = 0;
    std::function<void()> task;
};

int32_t lastTaskId = 0;
std::unordered_map<int32_t, std::unique_ptr<TaskRecord>> tasks;

void onIdle(void* clientData)
{
    TaskRecord* record = static_cast<TaskRecord*>(clientData);
    // The record goes before the work runs, so the work may queue more tasks
    // and a failure in it leaves nothing queued.
    std::function<void()> task = std::move(record->task);
    cancelTask(record->id);
    task();
}

} // namespace

int deferTask(std::function<void()> task)
{
    auto record = std::make_unique<TaskRecord>();
    record->id = ++lastTaskId;
    record->task = std::move(task);
    record->callbackId = MEventMessage::addEventCallback("idle", onIdle, record.get());
    const int32_t id = record->id;
    tasks[id] = std::move(record);
    return id;
}

int deferTaskReplacing(int previousId, std::function<void()> task)
{
    cancelTask(previousId);
    return deferTask(std::move(task));
}

void cancelTask(int id)
{
    const auto found = tasks.find(id);
    if (found == tasks.end())
        return;
    MMessage::removeCallback(found->second->callbackId);
    tasks.erase(found);
}

void cancelAllTasks()
{
    std::vector<int32_t> ids;
    ids.reserve(tasks.size());
    for (const auto& entry : tasks)
        ids.push_back(entry.first);
    for (int32_t id : ids)
        cancelTask(id);
}
