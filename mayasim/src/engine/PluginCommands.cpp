#include "engine/PluginCommands.h"

#include "engine/CommandLine.h"
#include "engine/Dispatch.h"
#include "engine/UndoQueue.h"
#include "foundation/InPlace.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>
#include <maya/MSyntax.h>

#include <algorithm>
#include <map>

namespace mayasim {

struct CommandAccess
{
    static void prepare(MPxCommand& command, std::shared_ptr<const MSyntax> syntax, const std::string& text)
    {
        inPlace<std::shared_ptr<const MSyntax>>(command.fSyntax) = std::move(syntax);
        command.fCommandString = MString(text.c_str());
    }
};

namespace {

std::map<std::string, PluginCommand>& registry()
{
    static std::map<std::string, PluginCommand> commands;
    return commands;
}

std::vector<MelValue*>& resultStack()
{
    static std::vector<MelValue*> stack;
    return stack;
}

// Where MPxCommand::setResult writes while one command's doIt runs.
class ResultSlot
{
public:
    ResultSlot() { resultStack().push_back(&fValue); }
    ~ResultSlot() { resultStack().pop_back(); }
    ResultSlot(const ResultSlot&) = delete;
    ResultSlot& operator=(const ResultSlot&) = delete;
    MelValue fValue;
};

// A finished command kept alive by the undo queue.
class RetainedCommand : public UndoItem
{
public:
    explicit RetainedCommand(std::unique_ptr<MPxCommand> command) : fCommand(std::move(command)) {}
    void undo() override { fCommand->undoIt(); }
    void redo() override { fCommand->redoIt(); }

private:
    std::unique_ptr<MPxCommand> fCommand;
};

std::string commandText(const std::string& name, const std::vector<Word>& words)
{
    std::string text = name;
    for (const Word& word : words)
        text += " " + (word.quoted ? "\"" + word.text + "\"" : word.text);
    return text;
}

} // namespace

bool addPluginCommand(PluginCommand command)
{
    if (findBuiltin(command.name) || registry().count(command.name))
        return false;
    const std::string name = command.name;
    registry().emplace(name, std::move(command));
    return true;
}

bool removePluginCommand(const std::string& name)
{
    return registry().erase(name) != 0;
}

const PluginCommand* findPluginCommand(const std::string& name)
{
    auto found = registry().find(name);
    return found == registry().end() ? nullptr : &found->second;
}

std::vector<std::string> pluginCommandsOf(const std::string& plugin)
{
    std::vector<std::string> names;
    for (const auto& entry : registry())
        if (entry.second.plugin == plugin)
            names.push_back(entry.first);
    return names;
}

std::vector<std::string> pluginCommandNames()
{
    std::vector<std::string> names;
    for (const auto& entry : registry())
        names.push_back(entry.first);
    return names;
}

MelValue runPluginCommand(const PluginCommand& registered, const std::vector<Word>& given, bool undo)
{
    const std::vector<Word> words = expandKeywords(given, registered.syntax ? &ArgAccess::spec(*registered.syntax) : nullptr);
    if (registered.syntax) {
        // Maya checks a call against the syntax before the command exists.
        const ParsedCall call = parseCall(ArgAccess::spec(*registered.syntax), words);
        if (call.syntax.objectFormat == MSyntax::kSelectionList)
            for (const Word& object : call.objects) {
                MSelectionList probe;
                if (!probe.add(MString(object.text.c_str())))
                    throw MelError("No object matches name: " + object.text);
            }
    }
    std::unique_ptr<MPxCommand> command(static_cast<MPxCommand*>(registered.creator()));
    if (!command)
        throw MelError("Unable to create command " + registered.name);
    CommandAccess::prepare(*command, registered.syntax, commandText(registered.name, words));
    MArgList args;
    ArgAccess::words(args) = words;

    undo::CommandFrame frame(false, undo);
    ResultSlot result;
    if (!command->doIt(args))
        throw MelError(""); // the command reported why, as plug-ins do
    std::unique_ptr<UndoItem> retained;
    if (frame.undoEnabled() && command->isUndoable())
        retained = std::make_unique<RetainedCommand>(std::move(command));
    frame.succeed(std::move(retained));
    return result.fValue;
}

MelValue* runningCommandResult()
{
    return resultStack().empty() ? nullptr : resultStack().back();
}

} // namespace mayasim
