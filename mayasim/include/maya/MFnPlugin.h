#pragma once
// Registration of a plug-in's commands and node types. Including this header
// also emits the plug-in's API version (see MApiVersion.h).
#include <maya/MFnBase.h>
#include <maya/MApiVersion.h>
#include <maya/MPxNode.h>
#include <maya/MDeprecate.h>
#include <maya/MPlugin.h>

PLUGIN_EXPORT MStatus initializePlugin(MObject obj);
PLUGIN_EXPORT MStatus uninitializePlugin(MObject obj);

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! Registers and deregisters a plug-in's services with Maya.
class OPENMAYA_EXPORT MFnPlugin : public MFnBase
{
public:
    MFnPlugin();
    MFnPlugin(MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = 0L);
    ~MFnPlugin() override;
    MFn::Type type() const override;

    MString vendor(MStatus* ReturnStatus = nullptr) const;
    MString version(MStatus* ReturnStatus = nullptr) const;
    MString apiVersion(MStatus* ReturnStatus = nullptr) const;
    MString name(MStatus* ReturnStatus = nullptr) const;
    MString loadPath(MStatus* ReturnStatus = nullptr) const;

    MStatus registerCommand(const MString& commandName, MCreatorFunction creatorFunction,
                            MCreateSyntaxFunction createSyntaxFunction = nullptr);
    MStatus deregisterCommand(const MString& commandName);
    MStatus registerNode(const MString& typeName, const MTypeId& typeId, MCreatorFunction creatorFunction,
                         MInitializeFunction initFunction, MPxNode::Type type = MPxNode::kDependNode,
                         const MString* classification = nullptr);
    MStatus deregisterNode(const MTypeId& typeId);

    static MObject findPlugin(const MString& pluginName);

    static const char* className();

private:
    MFnPlugin(const MObject& object, const char* vendor = "Unknown", const char* version = "Unknown",
              const char* requiredApiVersion = "Any", MStatus* ReturnStatus = 0L);
    MFnPlugin& operator=(const MFnPlugin&);
    MFnPlugin* operator&() const;
    MFnPlugin* operator&();
};

OPENMAYA_NAMESPACE_CLOSE
