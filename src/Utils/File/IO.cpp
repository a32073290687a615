#include "Utils/File/IO.h"

#include <QCborValue>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>

#include <optional>
#include <vector>

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

// Whether an object of the JSON text names one key twice. Qt 5.15's parser
// keeps the last value of a repeated key and leaks the objects and arrays it
// drops; and a hand-edited file that says two things of one key is
// ambiguous anyway. Text that is not JSON is left for the parser to refuse:
// up to its first fault the scan sees the keys the parser sees.
bool hasRepeatedKey(const QByteArray& text)
{
    struct Level
    {
        bool object;
        bool keyNext;
        QSet<QString> keys;
    };
    std::vector<Level> levels;
    for (int i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '"') {
            const int start = i;
            for (++i; i < text.size() && text[i] != '"'; ++i)
                if (text[i] == '\\')
                    ++i;
            if (i >= text.size())
                return false;
            if (levels.empty() || !levels.back().keyNext)
                continue;
            levels.back().keyNext = false;
            // The parser's own reading of the name, escapes and all: an
            // array of one string repeats no key. A name it refuses reads
            // empty, and the parser refuses the text.
            const QJsonArray name = QJsonDocument::fromJson('[' + text.mid(start, i + 1 - start) + ']').array();
            const QString key = name.isEmpty() ? QString() : name.at(0).toString();
            if (levels.back().keys.contains(key))
                return true;
            levels.back().keys.insert(key);
        } else if (c == '{' || c == '[') {
            levels.push_back({c == '{', c == '{', {}});
        } else if (c == '}' || c == ']') {
            if (levels.empty())
                return false;
            levels.pop_back();
        } else if (c == ',' && !levels.empty()) {
            levels.back().keyNext = levels.back().object;
        }
    }
    return false;
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
        if (hasRepeatedKey(bytes))
            return QJsonValue();
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
