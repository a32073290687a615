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

// Work done at the start of each idle tick, before the idle callbacks: Maya
// issues the keyframe-edited messages it queued there.
void setIdleStartWork(void (*work)());
void runIdleStartWork();

} // namespace mayasim
