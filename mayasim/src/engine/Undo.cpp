#include "engine/UndoQueue.h"

#include "engine/Events.h"
#include "engine/Output.h"

#include <vector>

namespace mayasim {

namespace undo {

namespace {

struct Step
{
    std::string name;
    std::vector<std::unique_ptr<UndoItem>> items;
};

struct QueueState
{
    std::vector<Step> done;
    std::vector<Step> undone;
    Step running;            // the top-level statement's work so far
    Step chunk;              // the open chunk's work so far
    int chunkDepth = 0;
    int executionDepth = 0;
    bool enabled = true;
    bool undoing = false;
    bool redoing = false;
    bool rollingBack = false;
    CommandFrame* frame = nullptr; // innermost running command
    std::vector<std::function<void()>> afterRun;
};

QueueState& queue()
{
    static QueueState state;
    return state;
}

bool replaying()
{
    const QueueState& q = queue();
    return q.undoing || q.redoing || q.rollingBack;
}

void append(Step& to, std::vector<std::unique_ptr<UndoItem>>& items)
{
    for (auto& item : items)
        to.items.push_back(std::move(item));
    items.clear();
}

// Destroys steps after the queue is consistent again: a retained command's
// destructor may run more commands.
void discard(std::vector<Step> steps)
{
    while (!steps.empty())
        steps.pop_back();
}

void push(Step step)
{
    QueueState& q = queue();
    std::vector<Step> dropped = std::move(q.undone);
    q.undone.clear();
    q.done.push_back(std::move(step));
    discard(std::move(dropped));
}

void commit(Step step)
{
    if (step.items.empty())
        return;
    QueueState& q = queue();
    if (q.chunkDepth > 0) {
        if (q.chunk.name.empty())
            q.chunk.name = step.name;
        append(q.chunk, step.items);
        return;
    }
    push(std::move(step));
}

void commitRunning(const std::string& name)
{
    Step step = std::move(queue().running);
    queue().running = Step{};
    if (step.name.empty())
        step.name = name;
    commit(std::move(step));
}

void closeAllChunks()
{
    while (queue().chunkDepth > 0)
        closeChunk();
}

} // namespace

// --- command frames --------------------------------------------------------------

CommandFrame::CommandFrame(bool builtin, bool undoRequested)
    : fBuiltin(builtin), fUndoEnabled(undoRequested && queue().enabled && !replaying()), fParent(queue().frame)
{
    queue().frame = this;
}

CommandFrame::~CommandFrame()
{
    queue().frame = fParent;
    if (fDone)
        return;
    // The command failed: take back what it did, newest first.
    QueueState& q = queue();
    const bool wasRollingBack = q.rollingBack;
    q.rollingBack = true;
    for (auto item = fItems.rbegin(); item != fItems.rend(); ++item)
        (*item)->undo();
    q.rollingBack = wasRollingBack;
}

void CommandFrame::succeed(std::unique_ptr<UndoItem> retained)
{
    fDone = true;
    if (retained)
        fItems.push_back(std::move(retained));
    if (fParent && fParent->fBuiltin) {
        for (auto& item : fItems)
            fParent->fItems.push_back(std::move(item));
    } else if (fUndoEnabled) {
        append(queue().running, fItems);
    }
    fItems.clear();
}

// --- executions ------------------------------------------------------------------

Execution::Execution() : fOutermost(queue().executionDepth == 0)
{
    ++queue().executionDepth;
}

Execution::~Execution()
{
    --queue().executionDepth;
    if (!fOutermost)
        return;
    commitRunning("");
    // Work queued meanwhile may queue more, or start runs of its own.
    while (!queue().afterRun.empty())
    {
        std::vector<std::function<void()>> work = std::move(queue().afterRun);
        queue().afterRun.clear();
        for (auto& item : work)
            item();
    }
}

void Execution::statementFinished(const std::string& text)
{
    if (fOutermost)
        commitRunning(text);
}

// --- chunks, undo and redo -----------------------------------------------------

void openChunk(const std::string& name)
{
    QueueState& q = queue();
    if (q.chunkDepth++ == 0)
        q.chunk = Step{name, {}};
}

void closeChunk()
{
    QueueState& q = queue();
    if (q.chunkDepth == 0)
        return; // an unbalanced close is ignored, as in Maya
    // Work of the statement that closes the chunk belongs to the chunk too.
    append(q.chunk, q.running.items);
    if (--q.chunkDepth > 0)
        return;
    Step chunk = std::move(q.chunk);
    q.chunk = Step{};
    if (!chunk.items.empty())
        push(std::move(chunk));
}

bool undoStep()
{
    closeAllChunks();
    QueueState& q = queue();
    if (q.done.empty())
        return false;
    Step step = std::move(q.done.back());
    q.done.pop_back();
    q.undoing = true;
    for (auto item = step.items.rbegin(); item != step.items.rend(); ++item)
        (*item)->undo();
    q.undoing = false;
    writeOutput(OutputKind::Info, "// Undo: " + step.name + " //");
    q.undone.push_back(std::move(step));
    events::fireEvent("Undo");
    return true;
}

bool redoStep()
{
    closeAllChunks();
    QueueState& q = queue();
    if (q.undone.empty())
        return false;
    Step step = std::move(q.undone.back());
    q.undone.pop_back();
    q.redoing = true;
    for (auto& item : step.items)
        item->redo();
    q.redoing = false;
    writeOutput(OutputKind::Info, "// Redo: " + step.name + " //");
    q.done.push_back(std::move(step));
    events::fireEvent("Redo");
    return true;
}

std::string undoName()
{
    return queue().done.empty() ? std::string() : queue().done.back().name;
}

std::string redoName()
{
    return queue().undone.empty() ? std::string() : queue().undone.back().name;
}

bool enabled()
{
    return queue().enabled;
}

void setEnabled(bool on, bool flushQueue)
{
    queue().enabled = on;
    if (!on && flushQueue)
        flush();
}

void flush()
{
    // The running statement's and the open chunk's work go too: nothing
    // recorded before the flush can be undone after it.
    QueueState& q = queue();
    std::vector<Step> dropped = std::move(q.done);
    q.done.clear();
    for (Step* step : {&q.running, &q.chunk}) {
        const std::string name = step->name; // an open chunk stays open
        dropped.push_back(std::move(*step));
        *step = Step{name, {}};
    }
    for (Step& step : q.undone)
        dropped.push_back(std::move(step));
    q.undone.clear();
    // Nor do the running commands keep what they did before it: a file
    // operation run by MEL (open, reference) is no undo step.
    for (CommandFrame* frame = q.frame; frame; frame = frame->fParent) {
        dropped.push_back(Step{});
        append(dropped.back(), frame->fItems);
    }
    discard(std::move(dropped));
}

bool undoing()
{
    return queue().undoing;
}

bool redoing()
{
    return queue().redoing;
}

} // namespace undo

// --- the recording side (Undo.h) -------------------------------------------------

void recordUndo(std::unique_ptr<UndoItem> item)
{
    if (undoRecording())
        undo::queue().frame->fItems.push_back(std::move(item));
}

bool undoRecording()
{
    const undo::CommandFrame* frame = undo::queue().frame;
    return frame && frame->fBuiltin && !undo::replaying();
}

bool runInProgress()
{
    return undo::queue().executionDepth > 0;
}

void afterRun(std::function<void()> work)
{
    if (runInProgress())
        undo::queue().afterRun.push_back(std::move(work));
    else
        work();
}

} // namespace mayasim
