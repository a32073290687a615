#include "Utils/File/BaseManager.h"

namespace File {

BaseManager::BaseManager(const QString& fileName)
    : fFileName(fileName)
{
}

QString BaseManager::dataFilePath() const
{
    return pluginFilePath(fFileName);
}

QJsonObject BaseManager::readObject() const
{
    return readValue(dataFilePath(), Format::Cbor).toObject();
}

bool BaseManager::writeObject(const QJsonObject& object) const
{
    return writeValue(object, dataFilePath(), Format::Cbor);
}

} // namespace File
