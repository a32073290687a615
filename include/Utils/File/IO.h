#pragma once
#include <QByteArray>
#include <QJsonValue>
#include <QString>

namespace File {

// How one JSON value is held in a file.
enum class Format
{
    Json = 1, // indented JSON text of an object or array
    Cbor = 2, // the CBOR form of the value: all tool data
    Text = 4  // UTF-8 text, read only
};

// Reads and writes one JSON value a file. Failures are values: Null on read,
// false on write.
class IO
{
public:
    static QJsonValue readValue(const QString& path, Format format);
    static QJsonValue decodeValue(const QByteArray& bytes, Format format);
    // Atomic: the file is replaced whole on success and untouched otherwise.
    static bool writeValue(const QJsonValue& value, const QString& path, Format format);
};

} // namespace File
