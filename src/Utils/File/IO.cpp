#include "Utils/File/IO.h"

#include <QCborValue>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <optional>

namespace File {

namespace {

std::optional<QByteArray> encodeValue(const QJsonValue& value, Format format)
{
    switch (format) {
    case Format::Json:
        if (value.isObject())
            return QJsonDocument(value.toObject()).toJson();
        if (value.isArray())
            return QJsonDocument(value.toArray()).toJson();
        return std::nullopt;
    case Format::Cbor:
        return QCborValue::fromJsonValue(value).toCbor();
    case Format::Text:
        break;
    }
    return std::nullopt;
}

} // namespace

QJsonValue IO::readValue(const QString& path, Format format)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QJsonValue();
    const QByteArray bytes = file.readAll();
    file.close();
    return decodeValue(bytes, format);
}

QJsonValue IO::decodeValue(const QByteArray& bytes, Format format)
{
    switch (format) {
    case Format::Json: {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
        if (error.error != QJsonParseError::NoError)
            return QJsonValue();
        if (document.isObject())
            return document.object();
        if (document.isArray())
            return document.array();
        return QJsonValue();
    }
    case Format::Cbor: {
        QCborParserError error;
        const QCborValue value = QCborValue::fromCbor(bytes, &error);
        if (error.error != QCborError::NoError)
            return QJsonValue();
        return value.toJsonValue();
    }
    case Format::Text:
        return QString::fromUtf8(bytes);
    }
    return QJsonValue();
}

bool IO::writeValue(const QJsonValue& value, const QString& path, Format format)
{
    // Written beside the old file and renamed over it on commit; dropping the
    // QSaveFile uncommitted leaves the old file as it was.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const std::optional<QByteArray> bytes = encodeValue(value, format);
    if (!bytes)
        return false;
    // A write error is carried to commit, which then fails; a short write
    // (full disk, file size limit) is not an error to Qt, so it is caught here.
    if (file.write(*bytes) != bytes->size())
        return false;
    return file.commit();
}

} // namespace File
