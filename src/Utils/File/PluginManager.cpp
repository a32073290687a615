#include "Utils/File/PluginManager.h"

#include <maya/MFileIO.h>

#include <QStandardPaths>

namespace File {

namespace {

const int MayaVersion = 2022;
const QString DataFolderName = QStringLiteral("Orvane");

QString documentsFolder(const QString& relativePath)
{
    return QStandardPaths::locate(QStandardPaths::DocumentsLocation, relativePath,
                                  QStandardPaths::LocateDirectory);
}

} // namespace

QString PluginManager::scriptsDir()
{
    const QString common = documentsFolder(QStringLiteral("maya/scripts"));
    if (!common.isEmpty())
        return common;
    return documentsFolder(QStringLiteral("maya/") + QString::number(MayaVersion) + QStringLiteral("/scripts"));
}

QString PluginManager::pluginDir()
{
    // No scripts folder leaves a relative path, made in the working directory.
    const QString dir = joinPath(scriptsDir(), DataFolderName);
    return ensureDir(dir) ? dir : QString();
}

QString PluginManager::pluginFilePath(const QString& name)
{
    const QString dir = pluginDir();
    return dir.isEmpty() ? QString() : joinPath(dir, name);
}

QString PluginManager::pluginSubDir(const QString& name)
{
    const QString dir = pluginFilePath(name);
    return !dir.isEmpty() && ensureDir(dir) ? dir : QString();
}

QString PluginManager::sceneFilePath()
{
    // Maya names an unsaved scene "<folder>/untitled"; a file saved under such
    // a name, in any case, counts as unsaved too.
    const QString path = QString::fromUtf8(MFileIO::currentFile().asChar());
    return path.toLower().endsWith(QStringLiteral("untitled")) ? QString() : path;
}

bool PluginManager::sceneIsUntitled()
{
    return sceneFilePath().isEmpty();
}

} // namespace File
