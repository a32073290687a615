#pragma once
// Commands registered by plug-ins (MFnPlugin::registerCommand), and how a
// call reaches their MPxCommand.
#include "engine/Command.h"

#include <maya/MPlugin.h>

#include <memory>
#include <string>
#include <vector>

namespace mayasim {

struct PluginCommand
{
    std::string name;
    MCreatorFunction creator = nullptr;
    std::shared_ptr<const MSyntax> syntax; // null: the command parses its own arguments
    std::string plugin;
};

bool addPluginCommand(PluginCommand command); // false when the name is taken
bool removePluginCommand(const std::string& name);
const PluginCommand* findPluginCommand(const std::string& name);
std::vector<std::string> pluginCommandsOf(const std::string& plugin);
std::vector<std::string> pluginCommandNames();

// Parses the words against the command's syntax, creates the command, runs
// doIt, and keeps the object on the undo queue when undo is on and it is
// undoable. Throws MelError when the call is malformed or doIt fails.
MelValue runPluginCommand(const PluginCommand& command, const std::vector<Word>& words, bool undo);

// The result of the plug-in command whose doIt is running; null outside.
MelValue* runningCommandResult();

} // namespace mayasim
