#include "Utils/Command.h"

#include <maya/MArgList.h>
#include <maya/MSelectionList.h>

#include <cmath>

namespace {

bool isNumberType(MSyntax::MArgType type)
{
    return type == MSyntax::kDouble || type == MSyntax::kDistance || type == MSyntax::kAngle
           || type == MSyntax::kTime;
}

} // namespace

MSyntax commandSyntax(const CommandFlags& flags, bool actsOnObjects, unsigned int minObjects)
{
    MSyntax syntax;
    for (const CommandFlag* flag : flags) {
        // MSyntax takes up to six argument types, kNoArg for none.
        const std::vector<MSyntax::MArgType>& types = flag->arguments;
        auto type = [&](size_t i) { return i < types.size() ? types[i] : MSyntax::kNoArg; };
        syntax.addFlag(flag->shortName, flag->longName, type(0), type(1), type(2), type(3), type(4), type(5));
    }
    if (actsOnObjects) {
        syntax.setObjectType(MSyntax::kSelectionList, minObjects);
        syntax.useSelectionAsDefault(true);
    }
    return syntax;
}

CommandArgs::CommandArgs(const MSyntax& syntax, const MArgList& args, const CommandFlags& flags,
                         const ReportSite& site)
    : fDatabase(syntax, args, &fStatus)
{
    if (!fStatus) {
        reportAt(site, QStringLiteral("failed to parse args\n"));
        return;
    }
    if (!numbersAreFinite(flags, site))
        fStatus = MS::kInvalidParameter;
}

bool CommandArgs::numbersAreFinite(const CommandFlags& flags, const ReportSite& site) const
{
    for (const CommandFlag* flag : flags) {
        if (!isSet(*flag))
            continue;
        for (unsigned int i = 0; i < flag->arguments.size(); ++i) {
            if (isNumberType(flag->arguments[i]) && !std::isfinite(number(*flag, i))) {
                reportAt(site, flag->text() + QStringLiteral(" flag needs a finite number"));
                return false;
            }
        }
    }
    return true;
}

bool CommandArgs::isSet(const CommandFlag& flag) const { return fDatabase.isFlagSet(flag.name()); }

MStatus CommandArgs::getObjects(MSelectionList& objects, const ReportSite& site, const QString& failure) const
{
    const MStatus status = fDatabase.getObjects(objects);
    if (!status)
        reportAt(site, failure);
    return status;
}

double CommandArgs::number(const CommandFlag& flag, unsigned int index) const
{
    double value = 0.0;
    fDatabase.getFlagArgument(flag.name(), index, value);
    return value;
}

double CommandArgs::numberOr(const CommandFlag& flag, double fallback, const QString& missing,
                             const ReportSite& site) const
{
    if (isSet(flag))
        return number(flag);
    reportAt(site, missing);
    return fallback;
}

QString missingBlendValueText(const CommandFlag& flag)
{
    return QStringLiteral("no blend value specified so, the value 0 will be used\nto specify blend value use flag ")
           + flag.text() + QStringLiteral("\n");
}

QString missingBlendTypeText(const CommandFlag& flag, const QString& defaultName, const QString& typeList)
{
    return QStringLiteral("no blend type specified\nso, the default blend type [") + defaultName
           + QStringLiteral("] will be used\n\nuse flag ") + flag.text() + QStringLiteral(" with any of these types:\n")
           + typeList;
}
