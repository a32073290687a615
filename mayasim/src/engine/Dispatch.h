#pragma once
// Finding and running a command by name: built-ins first, then the
// commands plug-ins registered.
#include "engine/Command.h"

namespace mayasim {

const BuiltinCommand* findBuiltin(const std::string& name);
std::vector<std::string> builtinNames();

// Every command a call can reach now: built-ins and plug-in commands.
std::vector<std::string> commandNames();
bool commandExists(const std::string& name);

// Runs one command with its evaluated words. Throws MelError when it fails
// (an unknown name gives Maya's "Cannot find procedure" message).
MelValue dispatchCommand(const std::string& name, const std::vector<Word>& words, bool undo);

} // namespace mayasim
