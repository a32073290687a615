// The `file` command: new, open, import, save, rename, export, references
// and the scene-name, modified and reference queries.
#include "engine/Command.h"
#include "file/SceneFile.h"
#include "scene/Scene.h"

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

ReferencePtr referenceNamed(const std::string& referenceNode)
{
    for (const ReferencePtr& reference : references::all())
        if (reference->nodeName == referenceNode)
            return reference;
    throw MelError("Reference node '" + referenceNode + "' not found.");
}

// The reference -removeReference acts on: -referenceNode, or its file name
// (with the copy number Maya adds to later references of one file).
ReferencePtr referenceArgument(const ParsedArgs& args)
{
    if (args.has("referenceNode"))
        return referenceNamed(args.args("referenceNode")[0].text);
    const std::string name = pathArgument(args);
    if (ReferencePtr reference = references::byFileName(name))
        return reference;
    throw MelError("No reference to the file '" + name + "' found.");
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
    if (args.has("reference"))
    {
        // The scene's own references; nested ones belong to their files.
        std::vector<std::string> names;
        for (const ReferencePtr& reference : references::all())
            if (!reference->parent.lock())
                names.push_back(references::fileName(*reference, !args.has("withoutCopyNumber")));
        return MelValue::ofStrings(names);
    }
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
                           {"esn", "executeScriptNodes", 1},
                           {"r", "reference", 0},
                           {"ns", "namespace", 1},
                           {"rfn", "referenceNode", 1},
                           {"dr", "deferReference", 1},
                           {"rdi", "referenceDepthInfo", 1},
                           {"rr", "removeReference", 0},
                           {"lr", "loadReference", 1},
                           {"rnn", "returnNewNodes", 0},
                           {"wcn", "withoutCopyNumber", 0}});
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
    // Header lines recording the depth of references to load: the
    // reference lines that follow do the work.
    if (args.has("referenceDepthInfo"))
        return MelValue::none();
    if (args.has("reference"))
    {
        requireMayaAscii(args);
        const std::string space = args.has("namespace") ? args.args("namespace")[0].text : "";
        const std::string node = args.has("referenceNode") ? args.args("referenceNode")[0].text : "";
        const file::CreatedReference created = file::createReference(pathArgument(args), space, node);
        if (args.has("returnNewNodes"))
        {
            std::vector<std::string> names;
            for (const NodePtr& n : created.nodes)
                names.push_back(scene::fullPathName(*n));
            return MelValue::ofStrings(names);
        }
        return MelValue::ofString(references::fileName(*created.reference));
    }
    if (args.has("removeReference"))
    {
        file::removeReference(referenceArgument(args));
        return MelValue::none();
    }
    if (args.has("loadReference"))
    {
        const ReferencePtr reference = referenceNamed(args.args("loadReference")[0].text);
        file::loadReference(reference);
        return MelValue::ofString(references::fileName(*reference));
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
