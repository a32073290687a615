#include "Utils/Report.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>

#include <QDir>

QString formatReport(const QString& message, const QString& line, const QString& file, const QString& function)
{
    // "src/KeyBlending/Cmd.cpp" shows as "Cmd": the last path component up to its first dot.
    // Paths may mix both kinds of separator.
    const QString path = QString(file).replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString fileName = QDir(path).dirName().split(QLatin1Char('.'), Qt::KeepEmptyParts).first();
    QString block = QStringLiteral("\n===============[Orvane]===============\n");
    if (!message.isEmpty())
        block += QStringLiteral("Message: ") + message + QStringLiteral("\n\n");
    block += QStringLiteral("Function: ") + function + QStringLiteral("\n");
    block += QStringLiteral("Line: ") + line + QStringLiteral("\n");
    block += QStringLiteral("File: ") + fileName + QStringLiteral("\n");
    block += QStringLiteral("===============================================\n");
    return block;
}

void reportError(const QString& message, const QString& line, const QString& file, const QString& function)
{
    MGlobal::displayInfo(MString(formatReport(message, line, file, function).toUtf8().constData()));
}

void reportAt(const ReportSite& site, const QString& message)
{
    reportError(message, QString::number(site.line, 10), QString::fromUtf8(site.file),
                QString::fromUtf8(site.function));
}
