// MFnPlugin's command side; PluginNodes.cpp holds the node registration.
#include <maya/MFnPlugin.h>
#include <maya/MSyntax.h>

#include "engine/PluginCommands.h"
#include "engine/Plugins.h"

#include <filesystem>

using mayasim::plugins::Plugin;

namespace {

// One text field of the attached plug-in; fails when none is attached.
MString field(const MObject& object, std::string Plugin::*member, MStatus* status)
{
    auto plugin = mayasim::plugins::pluginOf(object);
    if (status)
        *status = plugin ? MS::kSuccess : MS::kFailure;
    return plugin ? MString(((*plugin).*member).c_str()) : MString();
}

} // namespace

MFnPlugin::MFnPlugin() = default;

MFnPlugin::MFnPlugin(MObject& object, const char* vendor, const char* version, const char* requiredApiVersion,
                     MStatus* ReturnStatus)
{
    MStatus status;
    attach(object, &status);
    if (status) {
        // Vendor and version belong to the module: the first MFnPlugin sets them.
        std::shared_ptr<Plugin> plugin = mayasim::plugins::pluginOf(fObject);
        if (!plugin->described) {
            plugin->vendor = vendor ? vendor : "Unknown";
            plugin->version = version ? version : "Unknown";
            plugin->apiVersion = requiredApiVersion ? requiredApiVersion : "Any";
            plugin->described = true;
        }
    }
    if (ReturnStatus)
        *ReturnStatus = status;
}

MFnPlugin::~MFnPlugin() = default;

MFn::Type MFnPlugin::type() const
{
    return MFn::kPlugin;
}

MString MFnPlugin::vendor(MStatus* ReturnStatus) const
{
    return field(fObject, &Plugin::vendor, ReturnStatus);
}

MString MFnPlugin::version(MStatus* ReturnStatus) const
{
    return field(fObject, &Plugin::version, ReturnStatus);
}

MString MFnPlugin::apiVersion(MStatus* ReturnStatus) const
{
    return field(fObject, &Plugin::apiVersion, ReturnStatus);
}

MString MFnPlugin::name(MStatus* ReturnStatus) const
{
    return field(fObject, &Plugin::name, ReturnStatus);
}

MString MFnPlugin::loadPath(MStatus* ReturnStatus) const
{
    const std::string path = field(fObject, &Plugin::path, ReturnStatus).asChar();
    return MString(std::filesystem::path(path).parent_path().string().c_str());
}

MStatus MFnPlugin::registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                                   MCreateSyntaxFunction createSyntaxFunction)
{
    auto plugin = mayasim::plugins::pluginOf(fObject);
    const std::string pluginName = plugin ? plugin->name : "";
    bool ok = mayasim::plugins::registrationAllowed() && plugin && creatorFunction;
    if (ok) {
        mayasim::PluginCommand command;
        command.name = commandName.asChar();
        command.creator = creatorFunction;
        if (createSyntaxFunction)
            command.syntax = std::make_shared<const MSyntax>(createSyntaxFunction());
        command.plugin = pluginName;
        ok = mayasim::addPluginCommand(std::move(command));
    }
    mayasim::plugins::recordRegistration(pluginName, "registerCommand", commandName.asChar(), ok);
    return ok ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterCommand(const MString& commandName)
{
    auto plugin = mayasim::plugins::pluginOf(fObject);
    const std::string pluginName = plugin ? plugin->name : "";
    const mayasim::PluginCommand* command = mayasim::findPluginCommand(commandName.asChar());
    bool ok = mayasim::plugins::registrationAllowed() && plugin && command && command->plugin == pluginName;
    if (ok)
        mayasim::removePluginCommand(commandName.asChar());
    mayasim::plugins::recordRegistration(pluginName, "deregisterCommand", commandName.asChar(), ok);
    return ok ? MS::kSuccess : MS::kFailure;
}

MObject MFnPlugin::findPlugin(const MString& pluginName)
{
    auto plugin = mayasim::plugins::findLoaded(pluginName.asChar());
    return plugin ? makeObject(plugin) : MObject();
}

const char* MFnPlugin::className()
{
    return "MFnPlugin";
}
