#pragma once
#include <maya/MDrawRegistry.h>
#include <maya/MFnPlugin.h>
#include <maya/MString.h>
#include <maya/MTypeId.h>

// Registration steps that report their own failure; file and line are those
// of the module's Registration header that calls them.
MStatus registerCommandReported(MFnPlugin& plugin, const MString& name, MCreatorFunction creator,
                                MCreateSyntaxFunction createSyntax, const char* file, int line);
MStatus deregisterCommandReported(MFnPlugin& plugin, const MString& name, const char* file, int line);
MStatus registerNodeReported(MFnPlugin& plugin, const MString& name, const MTypeId& id, MCreatorFunction creator,
                             MInitializeFunction initialize, MPxNode::Type type, const MString* classification,
                             const char* failurePrefix, const char* file, int line);
MStatus deregisterNodeReported(MFnPlugin& plugin, const MString& name, const MTypeId& id, const char* file, int line);
// A draw override's creator for the classification; the report names it label.
MStatus registerDrawOverrideReported(const MString& classification, const MString& registrant,
                                     MHWRender::MDrawRegistry::DrawOverrideCreator creator, const MString& label,
                                     const char* file, int line);
MStatus deregisterDrawOverrideReported(const MString& classification, const MString& registrant,
                                       const MString& label, const char* file, int line);
