#include "engine/Dispatch.h"

#include "engine/PluginCommands.h"
#include "engine/UndoQueue.h"

#include <algorithm>

namespace mayasim {

std::vector<std::string> commandNames()
{
    std::vector<std::string> names = builtinNames();
    for (std::string& name : pluginCommandNames())
        names.push_back(std::move(name));
    std::sort(names.begin(), names.end());
    return names;
}

bool commandExists(const std::string& name)
{
    return findBuiltin(name) || findPluginCommand(name);
}

MelValue dispatchCommand(const std::string& name, const std::vector<Word>& words, bool undo)
{
    if (const BuiltinCommand* builtin = findBuiltin(name)) {
        undo::CommandFrame frame(true, undo);
        MelValue result = (*builtin)(Invocation{name, words});
        frame.succeed();
        return result;
    }
    if (const PluginCommand* command = findPluginCommand(name)) {
        const PluginCommand registered = *command; // doIt may change the registry
        return runPluginCommand(registered, words, undo);
    }
    throw MelError("Cannot find procedure \"" + name + "\".");
}

} // namespace mayasim
