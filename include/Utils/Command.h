#pragma once
// What every command's doIt starts with: the arguments parsed against the
// command's flags, the objects, and the reports for what is missing or bad.
// Each report names the place the caller passes in (OV_HERE), so a block
// shows the command's own doIt, line and file.
#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MStatus.h>
#include <maya/MSyntax.h>

#include <QString>

#include <vector>

// One flag of a command: its names and the types of its arguments.
struct CommandFlag
{
    const char* shortName;
    const char* longName;
    std::vector<MSyntax::MArgType> arguments;

    // The name the parsed arguments know the flag by: its short name, or
    // its long name where it has no short one.
    const char* name() const { return *shortName ? shortName : longName; }

    // How a report names the flag: "[-bv, -blendValue]".
    QString text() const
    {
        return QStringLiteral("[") + QString::fromLatin1(shortName) + QStringLiteral(", ")
               + QString::fromLatin1(longName) + QStringLiteral("]");
    }
};

// A command's flags, in the order of its syntax.
using CommandFlags = std::vector<const CommandFlag*>;

// The flags in their order; a command that acts on objects takes a list of
// at least minObjects, the active selection when none is given.
MSyntax commandSyntax(const CommandFlags& flags, bool actsOnObjects, unsigned int minObjects = 1);

class CommandArgs
{
public:
    // Parses args. Arguments Maya refuses report "failed to parse args\n";
    // a number that isn't finite (NaN, an infinity) reports the flag and
    // "flag needs a finite number". Either fails the status, before the
    // command has changed anything.
    CommandArgs(const MSyntax& syntax, const MArgList& args, const CommandFlags& flags, const ReportSite& site);

    const MStatus& status() const { return fStatus; }
    bool isSet(const CommandFlag& flag) const;

    // The objects of the call; the failure words ("no object/s specified"
    // unless the command has its own) and a failed status when there are none.
    MStatus getObjects(MSelectionList& objects, const ReportSite& site,
                       const QString& failure = QStringLiteral("no object/s specified")) const;

    // An argument of a number flag that is set: finite, as parsing checked.
    double number(const CommandFlag& flag, unsigned int index = 0) const;
    // The flag's number, or the fallback and the report missing when the
    // flag isn't given: a missing value isn't an error where a default exists.
    double numberOr(const CommandFlag& flag, double fallback, const QString& missing, const ReportSite& site) const;

    const MArgDatabase& database() const { return fDatabase; }

private:
    // Whether every number argument of the flags given is finite; reports
    // the first that isn't.
    bool numbersAreFinite(const CommandFlags& flags, const ReportSite& site) const;

    MStatus fStatus;
    MArgDatabase fDatabase;
};

// The reports of the blend commands when the blend value or type is missing.
QString missingBlendValueText(const CommandFlag& flag);
QString missingBlendTypeText(const CommandFlag& flag, const QString& defaultName, const QString& typeList);
