#pragma once
// Commands queued with MGlobal::executeCommandOnIdle and
// executePythonCommandOnIdle.
#include "engine/Output.h"

#include <string>

namespace mayasim {

void queueIdleCommand(const std::string& text, bool display, ScriptLanguage language = ScriptLanguage::Mel);
// Runs the commands queued before this call, in order; commands queued while
// they run wait for the next idle tick. The host's idle pump calls this.
void runIdleCommands();

} // namespace mayasim
