#include "Ui/TimelineOverlay/Cmd.h"

#include "Ui/TimelineOverlay/Operations.h"
#include "Utils/Arithmetic.h"
#include "Utils/Command.h"

#include <maya/MArgDatabase.h>
#include <maya/MQtUtil.h>
#include <maya/MTime.h>

namespace TimelineOverlay {

const MString CommandName("OVTimelineOverlay");

namespace {

const auto Bool = MSyntax::kBoolean;
const auto Double = MSyntax::kDouble;
const auto String = MSyntax::kString;

const CommandFlag Remove{"-r", "-remove", {}};
const CommandFlag Exists{"-e", "-exists", {}};
const CommandFlag Visible{"-v", "-visible", {}};
const CommandFlag Show{"-s", "-show", {Bool}};
const CommandFlag ShowLine{"-sl", "-showLine", {Bool}};
const CommandFlag ShowBackground{"-sb", "-showBackground", {Bool}};
const CommandFlag StartRange{"-sr", "-startRange", {Double}};
const CommandFlag LineWidth{"-lw", "-lineWidth", {Double}};
const CommandFlag EndRange{"-er", "-endRange", {Double}};
const CommandFlag Alpha{"-a", "-alpha", {Double}};
const CommandFlag BackgroundColor{"-bc", "-backgroundColor", {Double, Double, Double}};
const CommandFlag LineColor{"-lc", "-lineColor", {Double, Double, Double}};
const CommandFlag IconSize{"-ics", "-iconSize", {Double}};
const CommandFlag ShowIcon{"-si", "-showIcon", {Bool}};
const CommandFlag IconPath{"-ip", "-iconPath", {String}};
const CommandFlag Text{"-t", "-text", {String}};
const CommandFlag TextSize{"-ts", "-textSize", {Double}};
const CommandFlag TextColor{"-tc", "-textColor", {Double, Double, Double}};
const CommandFlag TextBold{"-tb", "-textBold", {Bool}};
const CommandFlag TextItalic{"-ti", "-textItalic", {Bool}};
const CommandFlags Flags = {&Remove,    &Exists,     &Visible,   &Show,      &ShowLine,        &ShowBackground, &StartRange,
                            &LineWidth, &EndRange,   &Alpha,     &BackgroundColor, &LineColor,  &IconSize,       &ShowIcon,
                            &IconPath,  &Text,       &TextSize,  &TextColor, &TextBold,        &TextItalic};

// Sizes are truncated; one beyond any int is as far out as the clamps go.
int size(const CommandArgs& args, const CommandFlag& flag)
{
    const double value = args.number(flag);
    return truncatedInt(value, value < 0 ? INT_MIN : INT_MAX);
}

// Red, green and blue truncated, 0 to 255 each; anything else is an
// invalid colour, which the setters ignore.
QColor color(const CommandArgs& args, const CommandFlag& flag)
{
    int rgb[3];
    for (unsigned int i = 0; i < 3; ++i) {
        rgb[i] = truncatedInt(args.number(flag, i), -1);
        if (rgb[i] < 0 || rgb[i] > 255)
            return QColor();
    }
    return QColor(rgb[0], rgb[1], rgb[2], 255);
}

bool flagBool(const CommandArgs& args, const CommandFlag& flag)
{
    return args.database().flagArgumentBool(flag.shortName, 0);
}

QString flagString(const CommandArgs& args, const CommandFlag& flag)
{
    return QString::fromUtf8(args.database().flagArgumentString(flag.shortName, 0).asChar());
}

MTime frame(const CommandArgs& args, const CommandFlag& flag) { return MTime(args.number(flag), MTime::uiUnit()); }

// Every setting given, in this order, on the entry's live widget.
void applySettings(Operations& overlay, const CommandArgs& args)
{
    if (args.isSet(StartRange))
        overlay.setStartRange(frame(args, StartRange));
    if (args.isSet(EndRange))
        overlay.setEndRange(frame(args, EndRange));
    if (args.isSet(BackgroundColor))
        overlay.setBackgroundColor(color(args, BackgroundColor));
    if (args.isSet(LineColor))
        overlay.setLineColor(color(args, LineColor));
    if (args.isSet(Alpha))
        overlay.setAlpha(size(args, Alpha));
    if (args.isSet(LineWidth))
        overlay.setLineWidth(size(args, LineWidth));
    if (args.isSet(ShowLine))
        overlay.setShowLine(flagBool(args, ShowLine));
    if (args.isSet(ShowBackground))
        overlay.setShowBackground(flagBool(args, ShowBackground));
    if (args.isSet(ShowIcon))
        overlay.setShowIcon(flagBool(args, ShowIcon));
    if (args.isSet(IconSize))
        overlay.setIconSize(size(args, IconSize));
    if (args.isSet(IconPath))
        overlay.setIconPath(flagString(args, IconPath));
    if (args.isSet(Text))
        overlay.setText(flagString(args, Text));
    if (args.isSet(TextSize))
        overlay.setTextSize(size(args, TextSize));
    if (args.isSet(TextColor))
        overlay.setTextColor(color(args, TextColor));
    if (args.isSet(TextBold))
        overlay.setTextBold(flagBool(args, TextBold));
    if (args.isSet(TextItalic))
        overlay.setTextItalic(flagBool(args, TextItalic));
}

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax = commandSyntax(Flags, false);
    syntax.addArg(MSyntax::kString);
    return syntax;
}

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    MString nameArg;
    MStatus status = args.database().getCommandArgument(0, nameArg);
    if (!status) {
        OV_REPORT(QStringLiteral("need a name"), "doIt");
        return status;
    }
    const QString name = QString::fromUtf8(nameArg.asChar());
    if (name.isEmpty()) {
        OV_REPORT(QStringLiteral("name is empty"), "doIt");
        return MS::kFailure;
    }

    if (args.isSet(Exists)) {
        setResult(exists(name));
        return MS::kSuccess;
    }
    if (args.isSet(Visible)) {
        setResult(isVisible(name));
        return MS::kSuccess;
    }
    if (args.isSet(Remove)) {
        if (args.isSet(Show)) {
            OV_REPORT(QStringLiteral("can't use -remove with -show"), "doIt");
            return MS::kFailure;
        }
        remove(name);
        return MS::kSuccess;
    }

    // Without an interface there is no slider to lay an overlay over.
    if (!MQtUtil::mainWindow()) {
        OV_REPORT(QStringLiteral("no time slider: overlays need Maya's interface"), "doIt");
        return MS::kFailure;
    }
    if (Operations* overlay = entry(name))
        applySettings(*overlay, args);
    if (args.isSet(Show)) {
        if (!flagBool(args, Show))
            hideOverlay(name);
        else if (!showOverlay(name)) {
            OV_REPORT(QStringLiteral("no time slider to lay the overlay over"), "doIt");
            return MS::kFailure;
        }
    }
    return MS::kSuccess;
}

} // namespace TimelineOverlay
