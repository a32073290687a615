// The entry points and version symbols belong to PluginMain alone.
#define MNoPluginEntry
#define MNoVersionString
#include "Utils/Registration.h"

#include "Utils/Report.h"

namespace {

MStatus reported(MStatus status, const char* words, const MString& name, const char* file, int line,
                 const char* function)
{
    if (!status)
        reportError(QString::fromLatin1(words) + QString::fromUtf8(name.asChar()), QString::number(line, 10),
                    QString::fromUtf8(file), QString::fromLatin1(function));
    return status;
}

} // namespace

MStatus registerCommandReported(MFnPlugin& plugin, const MString& name, MCreatorFunction creator,
                                MCreateSyntaxFunction createSyntax, const char* file, int line)
{
    return reported(plugin.registerCommand(name, creator, createSyntax), "Failed to register ", name, file, line,
                    "Register");
}

MStatus deregisterCommandReported(MFnPlugin& plugin, const MString& name, const char* file, int line)
{
    return reported(plugin.deregisterCommand(name), "Failed to deregister ", name, file, line, "Deregister");
}

MStatus registerNodeReported(MFnPlugin& plugin, const MString& name, const MTypeId& id, MCreatorFunction creator,
                             MInitializeFunction initialize, MPxNode::Type type, const MString* classification,
                             const char* failurePrefix, const char* file, int line)
{
    return reported(plugin.registerNode(name, id, creator, initialize, type, classification), failurePrefix, name,
                    file, line, "Register");
}

MStatus deregisterNodeReported(MFnPlugin& plugin, const MString& name, const MTypeId& id, const char* file, int line)
{
    return reported(plugin.deregisterNode(id), "Failed to deregister ", name, file, line, "Deregister");
}

MStatus registerDrawOverrideReported(const MString& classification, const MString& registrant,
                                     MHWRender::MDrawRegistry::DrawOverrideCreator creator, const MString& label,
                                     const char* file, int line)
{
    return reported(MHWRender::MDrawRegistry::registerDrawOverrideCreator(classification, registrant, creator),
                    "Failed to register ", label, file, line, "Register");
}

MStatus deregisterDrawOverrideReported(const MString& classification, const MString& registrant,
                                       const MString& label, const char* file, int line)
{
    return reported(MHWRender::MDrawRegistry::deregisterDrawOverrideCreator(classification, registrant),
                    "Failed to deregister ", label, file, line, "Deregister");
}
