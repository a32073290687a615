// Loading and unloading plug-in modules (loadPlugin / unloadPlugin) and the
// registration log the host reads.
#include "engine/Plugins.h"

#include "engine/Callbacks.h"
#include "engine/Output.h"
#include "engine/PluginCommands.h"
#include "engine/UndoQueue.h"
#include "scene/Node.h"

#include <mayasim/Host.h>

#include <maya/MObject.h>
#include <maya/MStatus.h>

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <vector>

namespace mayasim::plugins {

namespace {

using EntryPoint = MStatus (*)(MObject);

struct Loaded
{
    std::shared_ptr<Plugin> plugin;
    void* module = nullptr;
    const void* codeBase = nullptr; // where the module's code is mapped; null for a linked plug-in
    EntryPoint uninitialize = nullptr;
};

struct PluginState
{
    std::vector<Loaded> loaded;
    std::vector<host::Registration> registrations;
    int failAt = 0; // calls until the failing one; 0: none
};

PluginState& state()
{
    static PluginState instance;
    return instance;
}

// The entry points have C++ linkage, as Maya's devkit declares them.
EntryPoint entryPoint(void* module, const char* mangled, const char* plain)
{
    void* symbol = dlsym(module, mangled);
    if (!symbol)
        symbol = dlsym(module, plain);
    return reinterpret_cast<EntryPoint>(symbol);
}

std::vector<Loaded>::iterator findModule(const std::string& nameOrPath)
{
    auto& loaded = state().loaded;
    for (auto it = loaded.begin(); it != loaded.end(); ++it)
        if (it->plugin->name == nameOrPath || it->plugin->path == nameOrPath)
            return it;
    return loaded.end();
}

// A file named as given, with ".so" added, or found on MAYA_PLUG_IN_PATH.
std::string resolve(const std::string& given)
{
    namespace fs = std::filesystem;
    std::vector<fs::path> candidates{given, given + ".so"};
    if (fs::path(given).is_relative() && std::getenv("MAYA_PLUG_IN_PATH")) {
        std::string list = std::getenv("MAYA_PLUG_IN_PATH");
        for (size_t from = 0; from <= list.size();) {
            size_t to = list.find(':', from);
            if (to == std::string::npos)
                to = list.size();
            const fs::path folder = list.substr(from, to - from);
            candidates.push_back(folder / given);
            candidates.push_back(folder / (given + ".so"));
            from = to + 1;
        }
    }
    for (const fs::path& candidate : candidates) {
        std::error_code error;
        if (fs::is_regular_file(candidate, error))
            return fs::absolute(candidate, error).lexically_normal().string();
    }
    return "";
}

const void* codeBaseOf(const void* address)
{
    Dl_info info;
    return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

// Nothing may run the module's code once it is gone: commands, node types
// and callbacks the plug-in left registered are dropped, and nodes of its
// types that still live (held by an MObject, or kept by -force) lose their
// plug-in part now, while its destructor can still run.
void dropLeftovers(const Loaded& module)
{
    const std::string& plugin = module.plugin->name;
    for (const std::string& command : pluginCommandsOf(plugin)) {
        removePluginCommand(command);
        writeOutput(OutputKind::Warning, "Plug-in " + plugin + " did not deregister command " + command);
    }
    for (const NodeTypePtr& type : nodeTypesOf(plugin)) {
        deregisterNodeType(type);
        writeOutput(OutputKind::Warning, "Plug-in " + plugin + " did not deregister node type " + type->name);
    }
    std::map<const NodeType*, NodeTypePtr> unknownForms;
    for (const NodePtr& node : nodesWithUserOf(plugin)) {
        NodeTypePtr& unknown = unknownForms[node->type().get()];
        if (!unknown)
            unknown = unknownFormOf(*node->type());
        node->dropUser(unknown);
    }
    if (!module.codeBase)
        return;
    const std::vector<MCallbackId> removed = callbacks::removeIf([&module](const callbacks::Callback& callback) {
        return codeBaseOf(reinterpret_cast<const void*>(callback.function)) == module.codeBase;
    });
    for (MCallbackId id : removed)
        writeOutput(OutputKind::Warning, "Plug-in " + plugin + " did not remove callback " + std::to_string(id));
}

// Runs initializePlugin; a plug-in that fails it is unloaded again.
void startPlugin(const std::string& name, const std::string& path, void* module, EntryPoint init, EntryPoint uninit)
{
    auto plugin = std::make_shared<Plugin>();
    plugin->name = name;
    plugin->path = path;
    const void* codeBase = module ? codeBaseOf(reinterpret_cast<const void*>(init)) : nullptr;
    state().loaded.push_back(Loaded{plugin, module, codeBase, uninit});
    if (!init(makeObject(plugin))) {
        dropLeftovers(*findModule(name));
        state().loaded.erase(findModule(name));
        if (module)
            dlclose(module);
        throw MelError("initializePlugin function failed (" + name + ")");
    }
}

// The scene's nodes whose plug-in part lives in the module.
std::vector<std::string> nodesInScene(const std::string& plugin)
{
    std::vector<std::string> names;
    for (const NodePtr& node : nodesWithUserOf(plugin))
        if (node->alive)
            names.push_back(node->name);
    return names;
}

std::string joinedNames(const std::vector<std::string>& names)
{
    std::string text;
    for (const std::string& name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

MelValue loadPlugin(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"qt", "quiet", 0}, {"n", "name", 1}});
    if (args.positional().size() != 1)
        throw MelError("Wrong number of arguments on call to loadPlugin.");
    const std::string given = args.positional()[0].text;
    const std::string path = resolve(given);
    if (path.empty())
        throw MelError("Plug-in, \"" + given + "\", was not found on MAYA_PLUG_IN_PATH.");
    const std::string name =
        args.has("name") ? args.args("name")[0].text : std::filesystem::path(path).stem().string();
    if (findModule(name) != state().loaded.end())
        return MelValue::ofStrings({name});

    void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module)
        throw MelError("Unable to dynamically load : " + path + "\n" + dlerror());
    // Their MObject parameter is the API namespace's, as in the devkit.
    const EntryPoint init =
        entryPoint(module, "_Z16initializePluginN8Autodesk4Maya16OpenMaya202200007MObjectE", "initializePlugin");
    const EntryPoint uninit =
        entryPoint(module, "_Z18uninitializePluginN8Autodesk4Maya16OpenMaya202200007MObjectE", "uninitializePlugin");
    if (!init || !uninit) {
        dlclose(module);
        throw MelError("Unable to find the initializePlugin and uninitializePlugin functions (" + name + ")");
    }
    startPlugin(name, path, module, init, uninit);
    return MelValue::ofStrings({name});
}

MelValue unloadPlugin(const Invocation& call)
{
    const ParsedArgs args(call.name, call.words, {{"f", "force", 0}});
    if (args.positional().size() != 1)
        throw MelError("Wrong number of arguments on call to unloadPlugin.");
    const std::string given = args.positional()[0].text;
    auto found = findModule(given);
    if (found == state().loaded.end())
        throw MelError("Plug-in, \"" + given + "\", is not loaded.");
    const Loaded module = *found;
    // As Maya does, a plug-in whose nodes are in the scene stays, unless
    // forced; forced, they live on as unknown nodes.
    if (const auto inUse = nodesInScene(module.plugin->name); !inUse.empty() && !args.has("force"))
        throw MelError("Plug-in, \"" + module.plugin->name + "\", is still in use and cannot be unloaded: the scene "
                       "holds its node" + (inUse.size() > 1 ? "s " : " ") + joinedNames(inUse) +
                       ". Use -force to unload it anyway.");
    if (!module.uninitialize(makeObject(module.plugin)))
        throw MelError("uninitializePlugin function failed (" + module.plugin->name + ")");
    // Commands and deleted nodes kept by the undo queue live in the module's code.
    undo::flush();
    dropLeftovers(module);
    state().loaded.erase(findModule(module.plugin->name));
    if (module.module)
        dlclose(module.module);
    return MelValue::none();
}

BuiltinRegistrar loadRegistrar("loadPlugin", &loadPlugin);
BuiltinRegistrar unloadRegistrar("unloadPlugin", &unloadPlugin);

} // namespace

std::shared_ptr<Plugin> pluginOf(const MObject& object)
{
    return std::dynamic_pointer_cast<Plugin>(sharedObject(object));
}

std::shared_ptr<Plugin> findLoaded(const std::string& name)
{
    auto found = findModule(name);
    return found == state().loaded.end() ? nullptr : found->plugin;
}

bool registrationAllowed()
{
    int& failAt = state().failAt;
    if (failAt == 0)
        return true;
    return --failAt != 0;
}

void recordRegistration(const std::string& plugin, const std::string& call, const std::string& name,
                        bool succeeded)
{
    state().registrations.push_back(host::Registration{plugin, call, name, succeeded});
}

} // namespace mayasim::plugins

namespace mayasim::host {

const std::vector<Registration>& registrations()
{
    return plugins::state().registrations;
}

void clearRegistrations()
{
    plugins::state().registrations.clear();
}

void failRegistrationAt(int n)
{
    plugins::state().failAt = n > 0 ? n : 0;
}

bool loadLinkedPlugin(const std::string& name, PluginEntryPoint initialize, PluginEntryPoint uninitialize)
{
    if (plugins::findLoaded(name))
        return true;
    try {
        plugins::startPlugin(name, "", nullptr, initialize, uninitialize);
        return true;
    } catch (const MelError& error) {
        writeOutput(OutputKind::Error, error.what());
        return false;
    }
}

} // namespace mayasim::host
