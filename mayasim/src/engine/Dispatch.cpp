#include "engine/Dispatch.h"

#include "engine/PluginCommands.h"
#include "engine/UndoQueue.h"

namespace mayasim {

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
