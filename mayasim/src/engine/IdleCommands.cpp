#include "engine/IdleCommands.h"

#include "engine/Interpreter.h"

#include <vector>

namespace mayasim {

namespace {

struct IdleCommand
{
    std::string text;
    bool display = false;
};

std::vector<IdleCommand>& queue()
{
    static std::vector<IdleCommand> commands;
    return commands;
}

} // namespace

void queueIdleCommand(const std::string& text, bool display)
{
    queue().push_back(IdleCommand{text, display});
}

void runIdleCommands()
{
    const std::vector<IdleCommand> due = std::move(queue());
    queue().clear();
    // Work run on idle is undoable, as if the user had typed it.
    for (const IdleCommand& command : due)
        executeMel(command.text, RunOptions{command.display, true});
}

} // namespace mayasim
