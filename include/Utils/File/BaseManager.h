#pragma once
#include "Utils/File/PluginManager.h"

#include <QJsonObject>

namespace File {

// One named CBOR file of the data folder, holding a JSON object. Holds no
// open file: each read or write opens and closes it.
class BaseManager : public PluginManager
{
public:
    explicit BaseManager(const QString& fileName);
    virtual ~BaseManager() = default;

    virtual QString dataFilePath() const;
    // A missing or corrupt file reads as an empty object.
    QJsonObject readObject() const;
    bool writeObject(const QJsonObject& object) const;

private:
    QString fFileName;
};

} // namespace File
