#include "PieMenu/Icons.h"

#include <maya/MQtUtil.h>

#include <QDirIterator>
#include <QFileInfo>
#include <QPixmap>

#include <memory>

namespace PieMenu {

// Made from the .qrc files when the build is configured.
QStringList pluginResourceImages();

namespace {

QStringList sorted(QStringList list)
{
    list.removeDuplicates();
    list.sort();
    return list;
}

} // namespace

QIcon sliceIcon(const QString& iconPath)
{
    if (iconPath.isEmpty())
        return QIcon();
    const QPixmap direct(iconPath);
    if (!direct.isNull())
        return QIcon(direct);
    const QPixmap resource(QStringLiteral(":/") + iconPath);
    if (!resource.isNull())
        return QIcon(resource);
    const std::unique_ptr<QIcon> maya(MQtUtil::createIcon(MQtUtil::toMString(iconPath)));
    return maya ? *maya : QIcon();
}

bool isImageFile(const QString& name)
{
    static const QStringList extensions = {QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("jpeg"),
                                           QStringLiteral("svg"), QStringLiteral("ico"), QStringLiteral("gif"),
                                           QStringLiteral("bmp"), QStringLiteral("webp")};
    return extensions.contains(QFileInfo(name).suffix().toLower());
}

const QStringList& pluginIconPaths()
{
    static const QStringList paths = sorted(pluginResourceImages());
    return paths;
}

const QStringList& mayaIconPaths()
{
    static const QStringList paths = [] {
        QStringList found;
        for (QDirIterator it(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
            const QString path = it.next();
            if (isImageFile(path) && !pluginIconPaths().contains(path))
                found.append(path);
        }
        return sorted(found);
    }();
    return paths;
}

} // namespace PieMenu
