#pragma once
// The embedded CPython 3 interpreter, as Maya embeds it: started with the
// library, it runs the Python text that MGlobal, the MEL `python` command,
// idle work and mayasim-batch hand it, in the `__main__` namespace, where
// `maya.cmds` and `maya.mel` reach the command engine.
#include "engine/Interpreter.h"

#include <string>

namespace mayasim::python {

// MLibrary::initialize and MLibrary::cleanup. False when Python can't start.
bool start();
void stop();

struct Outcome : RunOutcome
{
    std::string text; // str() of the value, as executePythonCommandStringResult gives it; empty for None
};

// Runs Python text as one undo step: the commands it runs join it. A text
// that is one expression gives its value. An exception prints Maya's
// "# Error: ..." line, takes back what the text did, and fails the run.
// Nothing throws.
Outcome run(const std::string& code, const RunOptions& options);

// For the `_mayasim` module while Python runs: whether the commands it runs
// record undo, and print()'s output, written to the script output by lines.
bool commandsUndo();
void writePrinted(const std::string& text);

} // namespace mayasim::python
