// Fuzz target: the MEL parser and interpreter, with the plug-in's commands.
// Each input runs as one script in an empty scene; then every undo step it
// left is undone and redone, and the scene is written after each pass.
#include "FuzzHost.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>

namespace {

// Undo or redo until the queue has nothing left that way.
void walkUndoQueue(const char* query, const char* command)
{
    for (int step = 0; step < 1000; ++step) {
        MString name;
        MGlobal::executeCommand(query, name);
        if (name.length() == 0)
            return;
        MGlobal::executeCommand(command);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string text = fuzz::text(data, size);
    if (fuzz::mayLeaveSandbox(text))
        return -1;
    fuzz::resetScene();
    MGlobal::executeCommand(text.c_str(), false, true);
    fuzz::writeScene();
    walkUndoQueue("undoInfo -q -undoName", "undo");
    fuzz::writeScene();
    walkUndoQueue("undoInfo -q -redoName", "redo");
    fuzz::writeScene();
    return 0;
}
