#pragma once
// The undo queue's recording side. Scene edits made by built-in commands and
// API calls that Maya itself records (MDGModifier work done through a
// command, MEL edits) hand one UndoItem each to the step that is running.
#include <functional>
#include <memory>
#include <string>

namespace mayasim {

class UndoItem
{
public:
    virtual ~UndoItem() = default;
    virtual void undo() = 0;
    virtual void redo() = 0;
};

// Joins the running step (a top-level command, or an open chunk). Dropped
// when undo is off, and while the queue itself is undoing or redoing.
void recordUndo(std::unique_ptr<UndoItem> item);

// True while recordUndo would keep an item: a built-in command is running
// (its items are kept to take back if it fails, and join the undo queue when
// undo is on) and the queue is not undoing or redoing.
bool undoRecording();

// Runs `work` when the outermost MEL run has ended and closed its undo
// step, or at once when no MEL is running: what Maya does after an action
// (such as the key-edit messages), so that commands it runs are a step of
// their own.
void afterRun(std::function<void()> work);
// True while a MEL run is in progress, so afterRun waits for its end.
bool runInProgress();

} // namespace mayasim
