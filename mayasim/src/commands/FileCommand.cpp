// The `file` command: new, open, import, save, rename, export and the
// scene-name and modified queries.
#include "engine/Command.h"
#include "file/SceneFile.h"

#include <filesystem>

namespace mayasim {

namespace {

// The file name of an operation, from its own flag or the command argument.
std::string pathArgument(const ParsedArgs& args)
{
    if (args.positional().size() != 1)
        throw MelError("Wrong number of arguments on call to file.");
    return args.positional()[0].text;
}

void requireMayaAscii(const ParsedArgs& args)
{
    if (!args.has("type"))
        return;
    const std::string type = args.args("type")[0].text;
    if (type != "mayaAscii")
        throw MelError("Invalid file type specified: " + type + " (only mayaAscii is supported).");
}

MelValue query(const ParsedArgs& args)
{
    if (args.has("sceneName"))
    {
        const std::string& path = file::scenePath();
        if (args.has("shortName"))
            return MelValue::ofString(std::filesystem::path(path).filename().string());
        return MelValue::ofString(path);
    }
    if (args.has("modified"))
        return MelValue::ofInt(file::modified() ? 1 : 0);
    throw MelError("No query flag specified for file.");
}

MelValue fileCommand(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words,
                          {{"q", "query", 0},
                           {"new", "newFile", 0},
                           {"o", "open", 0},
                           {"i", "import", 0},
                           {"s", "save", 0},
                           {"ea", "exportAll", 0},
                           {"rn", "rename", 1},
                           {"f", "force", 0},
                           {"typ", "type", 1},
                           {"sn", "sceneName", 0},
                           {"shn", "shortName", 0},
                           {"mf", "modified", 1},
                           {"op", "options", 1},
                           {"iv", "ignoreVersion", 0},
                           {"pmt", "prompt", 1},
                           {"esn", "executeScriptNodes", 1}});
    if (args.has("query"))
        return query(args);
    const bool force = args.has("force");
    if (args.has("newFile"))
    {
        file::newScene(force);
        return MelValue::none();
    }
    if (args.has("open"))
    {
        requireMayaAscii(args);
        file::open(pathArgument(args), force);
        return MelValue::ofString(file::scenePath());
    }
    if (args.has("import"))
    {
        requireMayaAscii(args);
        file::import(pathArgument(args));
        return MelValue::none();
    }
    if (args.has("exportAll"))
    {
        requireMayaAscii(args);
        file::exportAll(pathArgument(args));
        return MelValue::ofString(pathArgument(args));
    }
    if (args.has("rename"))
    {
        file::rename(args.args("rename")[0].text);
        if (!args.has("save"))
            return MelValue::ofString(file::scenePath());
    }
    if (args.has("save"))
    {
        requireMayaAscii(args);
        file::save();
        return MelValue::ofString(file::scenePath());
    }
    if (args.has("modified"))
    {
        file::setModified(args.args("modified")[0].boolean());
        return MelValue::none();
    }
    throw MelError("No file operation specified.");
}

BuiltinRegistrar fileRegistrar("file", &fileCommand);

} // namespace

} // namespace mayasim
