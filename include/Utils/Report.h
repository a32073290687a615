#pragma once
#include <QString>

// The one way the system tells the user that something went wrong: a framed
// block in the script output, naming the message, function, line and file.
QString formatReport(const QString& message, const QString& line, const QString& file, const QString& function);
void reportError(const QString& message, const QString& line, const QString& file, const QString& function);

// Where a failure is found: the line, file and function a report names.
// Helpers that report for their caller take one, so the block shows the
// caller's place and not the helper's.
struct ReportSite
{
    int line;
    const char* file;
    const char* function;
};

void reportAt(const ReportSite& site, const QString& message);

// The site of the line where it is written.
#define OV_HERE(function) (ReportSite{__LINE__, __FILE__, function})

// Reports from the call site: the line and file are the caller's own.
#define OV_REPORT(message, function) reportAt(OV_HERE(function), (message))
