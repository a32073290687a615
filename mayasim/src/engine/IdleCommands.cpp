#include "engine/IdleCommands.h"

#include "engine/Interpreter.h"
#include "python/Embedded.h"

#include <vector>

namespace mayasim {

namespace {

struct IdleCommand
{
    std::string text;
    bool display = false;
    ScriptLanguage language = ScriptLanguage::Mel;
};

std::vector<IdleCommand>& queue()
{
    static std::vector<IdleCommand> commands;
    return commands;
}

void (*idleStartWork)() = nullptr;

} // namespace

void setIdleStartWork(void (*work)())
{
    idleStartWork = work;
}

void runIdleStartWork()
{
    if (idleStartWork)
        idleStartWork();
}

void queueIdleCommand(const std::string& text, bool display, ScriptLanguage language)
{
    queue().push_back(IdleCommand{text, display, language});
}

void runIdleCommands()
{
    const std::vector<IdleCommand> due = std::move(queue());
    queue().clear();
    // Work run on idle is undoable, as if the user had typed it.
    for (const IdleCommand& command : due) {
        const RunOptions options{command.display, true};
        if (command.language == ScriptLanguage::Python)
            python::run(command.text, options);
        else
            executeMel(command.text, options);
    }
}

} // namespace mayasim
