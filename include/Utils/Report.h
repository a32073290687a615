#pragma once
#include <QString>

// The one way the system tells the user that something went wrong: a framed
// block in the script output, naming the message, function, line and file.
QString formatReport(const QString& message, const QString& line, const QString& file, const QString& function);
void reportError(const QString& message, const QString& line, const QString& file, const QString& function);

// How a report names a command flag: "[-bv, -blendValue]".
inline QString flagText(const char* shortName, const char* longName)
{
    return QStringLiteral("[") + QString::fromLatin1(shortName) + QStringLiteral(", ") + QString::fromLatin1(longName)
           + QStringLiteral("]");
}

// Reports from the call site: the line and file are the caller's own.
#define OV_REPORT(message, function) \
    reportError((message), QString::number(__LINE__, 10), QStringLiteral(__FILE__), QStringLiteral(function))
