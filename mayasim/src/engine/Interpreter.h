#pragma once
// Runs MEL text: the entry point behind MGlobal::executeCommand, runMel,
// idle commands and file loading.
#include "engine/Command.h"

#include <string>

namespace mayasim {

struct RunOptions
{
    bool display = false; // echo the text and print "// Result: ... //"
    bool undo = true;     // record the work in the undo queue
    int firstLine = 1;    // the line the text starts on, for error messages
    bool script = false;  // a script file: each top-level statement echoed, run on its own, its value printed
};

struct RunOutcome
{
    bool ok = false;
    MelValue value; // the last statement's value
};

// Parses the whole text, then runs its statements in order. A syntax error
// runs nothing; a failing statement stops the run. Errors are written to the
// script output in Maya's words. Nothing throws.
RunOutcome executeMel(const std::string& text, const RunOptions& options);

// Global MEL variables (Maya's UI defines $gPlayBackSlider and friends).
void setGlobalVariable(const std::string& name, const MelValue& value);
MelValue globalVariable(const std::string& name);

} // namespace mayasim
