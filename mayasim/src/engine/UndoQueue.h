#pragma once
// The undo queue itself: steps, chunks, undo and redo. The command engine
// drives it; scene code only sees Undo.h.
#include "engine/Undo.h"

#include <memory>
#include <string>
#include <vector>

namespace mayasim::undo {

// Brackets one command invocation. Items recorded while a built-in command
// runs belong to it: if the command fails they are undone at once, so a
// failed command leaves nothing half-applied; if it succeeds they join the
// running step (or the calling built-in), provided undo was on for the call.
// API edits made while a plug-in command runs are that command's own
// business (its undoIt takes them back), so they are not recorded.
class CommandFrame
{
public:
    CommandFrame(bool builtin, bool undoRequested);
    ~CommandFrame(); // rolls back when succeed() was not called
    CommandFrame(const CommandFrame&) = delete;
    CommandFrame& operator=(const CommandFrame&) = delete;

    bool undoEnabled() const { return fUndoEnabled; }
    // Hands the items recorded so far, and `retained` (a finished undoable
    // plug-in command) to the running step.
    void succeed(std::unique_ptr<UndoItem> retained = nullptr);

private:
    bool fBuiltin;
    bool fUndoEnabled;
    bool fDone = false;
    std::vector<std::unique_ptr<UndoItem>> fItems;
    CommandFrame* fParent;
    friend void mayasim::recordUndo(std::unique_ptr<UndoItem>);
    friend bool mayasim::undoRecording();
    friend void flush();
};

// Brackets one run of MEL text. Each top-level statement of the outermost
// run is one undo step; anything run while a statement is running (nested
// executeCommand calls, commands run from callbacks inside it) joins it.
class Execution
{
public:
    Execution();
    ~Execution();
    Execution(const Execution&) = delete;
    Execution& operator=(const Execution&) = delete;
    // Closes the step of a top-level statement, named by its text.
    void statementFinished(const std::string& text);

private:
    bool fOutermost;
};

void openChunk(const std::string& name);
void closeChunk();

bool undoStep();  // false when there is nothing to undo
bool redoStep();  // false when there is nothing to redo
std::string undoName();
std::string redoName();

bool enabled();
void setEnabled(bool on, bool flush);
void flush();

bool undoing();
bool redoing();

} // namespace mayasim::undo
