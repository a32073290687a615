// MFnPlugin's node registration: plug-in node types join the scene's type
// registry, their initialize function adding the static attributes.
#include <maya/MFnPlugin.h>

#include "engine/Plugins.h"
#include "scene/NodeType.h"

using namespace mayasim;

MStatus MFnPlugin::registerNode(const MString& typeName, const MTypeId& typeId, MCreatorFunction creatorFunction,
                                MInitializeFunction initFunction, MPxNode::Type type, const MString* classification)
{
    auto plugin = plugins::pluginOf(fObject);
    const std::string pluginName = plugin ? plugin->name : "";
    bool ok = plugins::registrationAllowed() && plugin && creatorFunction && !findNodeType(typeName.asChar()) &&
              !findNodeType(typeId.id());
    if (ok)
    {
        const bool locator = type == MPxNode::kLocatorNode;
        NodeTypePtr nodeType = makeNodeType(typeName.asChar(), findNodeType(locator ? "locator" : "node"),
                                            locator ? MFn::kPluginLocatorNode : MFn::kPluginDependNode, typeId.id());
        nodeType->creator = creatorFunction;
        nodeType->pxType = type;
        nodeType->pluginName = pluginName;
        if (classification)
            nodeType->classification = classification->asChar();
        typeBeingInitialized() = nodeType;
        ok = !initFunction || initFunction();
        typeBeingInitialized() = nullptr;
        if (ok)
            registerNodeType(nodeType);
    }
    plugins::recordRegistration(pluginName, "registerNode", typeName.asChar(), ok);
    return ok ? MS::kSuccess : MS::kFailure;
}

MStatus MFnPlugin::deregisterNode(const MTypeId& typeId)
{
    auto plugin = plugins::pluginOf(fObject);
    const std::string pluginName = plugin ? plugin->name : "";
    NodeTypePtr nodeType = findNodeType(typeId.id());
    const bool ok = plugins::registrationAllowed() && plugin && nodeType && nodeType->pluginName == pluginName;
    if (ok)
        deregisterNodeType(nodeType);
    plugins::recordRegistration(pluginName, "deregisterNode", nodeType ? nodeType->name : "", ok);
    return ok ? MS::kSuccess : MS::kFailure;
}
