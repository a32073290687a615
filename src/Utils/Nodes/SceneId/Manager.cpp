#include "Utils/Nodes/SceneId/Manager.h"

#include "Utils/Nodes/Node.h"
#include "Utils/Nodes/SceneId/Node.h"

#include <maya/MFnDependencyNode.h>
#include <maya/MPlug.h>

namespace SceneId {

const QString AnimationRecoveryFolder = QStringLiteral("AnimationRecovery");
const QString TempPivotFolder = QStringLiteral("TempPivot");

double Manager::sceneId() const
{
    // An unsaved scene has no identity, even with the node already there.
    if (sceneFilePath().isEmpty())
        return 0.0;
    const MObject node = findOrCreateNode();
    if (!isValidObject(node))
        return 0.0;
    const MPlug plug = MFnDependencyNode(node).findPlug("id", true);
    return plug.isNull() ? 0.0 : plug.asDouble();
}

MObject Manager::findOrCreateNode() const
{
    const MObject node = objectByName(NodeName);
    if (isValidObject(node))
        return node;
    MFnDependencyNode created;
    return created.create(NodeTypeId, NodeName);
}

QString Manager::scenePath(const QString& toolFolder) const
{
    const double id = sceneId();
    if (id == 0.0)
        return QString();
    const QString folder = pluginSubDir(toolFolder);
    if (folder.isEmpty())
        return QString();
    // A whole number: no fraction, no exponent.
    return joinPath(folder, QString::number(id, 'f', 0));
}

QString Manager::sceneDir(const QString& toolFolder) const
{
    const QString path = scenePath(toolFolder);
    return !path.isEmpty() && ensureDir(path) ? path : QString();
}

const Manager& manager()
{
    static const Manager instance;
    return instance;
}

} // namespace SceneId
