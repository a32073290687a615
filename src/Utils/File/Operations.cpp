#include "Utils/File/Operations.h"

#include <QDir>

namespace File {

bool Operations::ensureDir(const QString& path)
{
    return QDir(path).exists() || QDir().mkdir(path);
}

QString Operations::joinPath(const QString& dir, const QString& name)
{
    return QDir(dir).filePath(name);
}

bool Operations::removeFile(const QString& path)
{
    return QDir().remove(path);
}

} // namespace File
