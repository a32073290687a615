// Built-in commands of the engine itself: undo, redo, undoInfo, flushUndo,
// requires, fileInfo, print and evalDeferred.
#include "engine/Command.h"
#include "engine/FileInfo.h"
#include "engine/IdleCommands.h"
#include "engine/Output.h"
#include "engine/UndoQueue.h"

#include <algorithm>

namespace mayasim {

namespace {

FileInfoEntries& entries()
{
    static FileInfoEntries store;
    return store;
}

MelValue undoCommand(const Invocation& call)
{
    ParsedArgs(call.name, call.words, {});
    if (!undo::undoStep())
        writeOutput(OutputKind::Warning, "There are no more commands to undo.");
    return MelValue::none();
}

MelValue redoCommand(const Invocation& call)
{
    ParsedArgs(call.name, call.words, {});
    if (!undo::redoStep())
        writeOutput(OutputKind::Warning, "There are no more commands to redo.");
    return MelValue::none();
}

MelValue flushUndo(const Invocation& call)
{
    ParsedArgs(call.name, call.words, {});
    undo::flush();
    return MelValue::none();
}

MelValue undoInfo(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"ock", "openChunk", 0},
                           {"cck", "closeChunk", 0},
                           {"cn", "chunkName", 1},
                           {"st", "state", 1},
                           {"swf", "stateWithoutFlush", 1},
                           {"un", "undoName", 1},
                           {"rn", "redoName", 1}});
    if (args.has("query")) {
        if (args.has("state") || args.has("stateWithoutFlush"))
            return MelValue::ofInt(undo::enabled() ? 1 : 0);
        if (args.has("undoName"))
            return MelValue::ofString(undo::undoName());
        if (args.has("redoName"))
            return MelValue::ofString(undo::redoName());
        return MelValue::none();
    }
    if (args.has("state"))
        undo::setEnabled(args.args("state")[0].boolean(), true);
    if (args.has("stateWithoutFlush"))
        undo::setEnabled(args.args("stateWithoutFlush")[0].boolean(), false);
    if (args.has("openChunk"))
        undo::openChunk(args.has("chunkName") ? args.args("chunkName")[0].text : "");
    if (args.has("closeChunk"))
        undo::closeChunk();
    return MelValue::none();
}

// requires only states what a scene needs; loading plug-ins stays explicit.
MelValue requiresCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"nt", "nodeType", 1}, {"dt", "dataType", 1}});
    if (args.positional().size() < 2)
        throw MelError("Wrong number of arguments on call to requires.");
    return MelValue::none();
}

MelValue fileInfoCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"q", "query", 0}, {"rm", "remove", 1}});
    const auto& positional = args.positional();
    // A query changes nothing: in query mode -remove takes no key to remove.
    if (args.has("query")) {
        std::vector<std::string> answer;
        for (const auto& entry : entries()) {
            if (!positional.empty() && entry.first != positional[0].text)
                continue;
            if (positional.empty())
                answer.push_back(entry.first);
            answer.push_back(entry.second);
        }
        return MelValue::ofStrings(std::move(answer));
    }
    if (args.has("remove")) {
        const std::string key = args.args("remove")[0].text;
        auto& store = entries();
        store.erase(std::remove_if(store.begin(), store.end(), [&](const auto& e) { return e.first == key; }),
                    store.end());
        return MelValue::none();
    }
    if (positional.size() != 2)
        throw MelError("Wrong number of arguments on call to fileInfo.");
    setFileInfo(positional[0].text, positional[1].text);
    return MelValue::none();
}

// Maya prints a lone value as it is, and each item of several on its own line.
MelValue print(const Invocation& call)
{
    std::string text;
    for (const Word& word : call.words)
        text += word.text + (call.words.size() > 1 ? "\n" : "");
    writeOutput(OutputKind::Info, text);
    return MelValue::none();
}

// The script runs once the interface is idle, after what was queued before it.
MelValue evalDeferred(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {});
    if (args.positional().size() != 1)
        throw MelError("Wrong number of arguments on call to evalDeferred.");
    queueIdleCommand(args.positional()[0].text, false);
    return MelValue::none();
}

BuiltinRegistrar undoRegistrar("undo", &undoCommand);
BuiltinRegistrar redoRegistrar("redo", &redoCommand);
BuiltinRegistrar flushRegistrar("flushUndo", &flushUndo);
BuiltinRegistrar undoInfoRegistrar("undoInfo", &undoInfo);
BuiltinRegistrar requiresRegistrar("requires", &requiresCommand);
BuiltinRegistrar fileInfoRegistrar("fileInfo", &fileInfoCommand);
BuiltinRegistrar printRegistrar("print", &print);
BuiltinRegistrar evalDeferredRegistrar("evalDeferred", &evalDeferred);

} // namespace

const FileInfoEntries& fileInfo()
{
    return entries();
}

void setFileInfo(const std::string& key, const std::string& value)
{
    for (auto& entry : entries())
        if (entry.first == key) {
            entry.second = value;
            return;
        }
    entries().emplace_back(key, value);
}

void clearFileInfo()
{
    entries().clear();
}

} // namespace mayasim
