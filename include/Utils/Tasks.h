#pragma once
#include <functional>

// Runs work once, the next time Maya is idle. A task id means that only the
// newest request of a kind runs: replace the previous id to drop older ones.
int deferTask(std::function<void()> task);
int deferTaskReplacing(int previousId, std::function<void()> task);
void cancelTask(int id);
void cancelAllTasks();
