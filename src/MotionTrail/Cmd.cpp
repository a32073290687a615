#include "MotionTrail/Cmd.h"

#include "MotionTrail/Manager.h"
#include "Utils/Command.h"

#include <maya/MSelectionList.h>

namespace MotionTrail {

const MString CommandName("OVMotionTrail");

namespace {

const std::vector<MSyntax::MArgType> Colour = {MSyntax::kDouble, MSyntax::kDouble, MSyntax::kDouble};

const CommandFlag DeleteAll{"", "-deleteAll", {}};
const CommandFlag CameraSpace{"", "-cameraSpace", {MSyntax::kBoolean}};
const CommandFlag MainLineColor{"", "-mainLineColor", Colour};
const CommandFlag SecondaryLineColor{"", "-secondaryLineColor", Colour};
const CommandFlag PointsColor{"", "-pointsColor", Colour};
const CommandFlag ShowPoints{"", "-showPoints", {MSyntax::kBoolean}};
const CommandFlag ShowLine{"", "-showLine", {MSyntax::kBoolean}};
const CommandFlag PointsStyle{"", "-pointsStyle", {MSyntax::kBoolean}};
const CommandFlag LineStyle{"", "-lineStyle", {MSyntax::kBoolean}};
const CommandFlag PointsSize{"", "-pointsSize", {MSyntax::kDouble}};
const CommandFlag LineSize{"", "-lineSize", {MSyntax::kDouble}};
const CommandFlag CurrentFrameColor{"", "-currentFrameColor", Colour};
const CommandFlag ShowCurrentFrame{"", "-showCurrentFrame", {MSyntax::kBoolean}};
const CommandFlag CurrentFrameSize{"", "-currentFrameSize", {MSyntax::kDouble}};
const CommandFlag TransparencyFalloff{"", "-transparencyFalloff", {MSyntax::kBoolean}};
const CommandFlags Flags = {&DeleteAll,   &CameraSpace,       &MainLineColor,     &SecondaryLineColor,
                            &PointsColor, &ShowPoints,        &ShowLine,          &PointsStyle,
                            &LineStyle,   &PointsSize,        &LineSize,          &CurrentFrameColor,
                            &ShowCurrentFrame, &CurrentFrameSize, &TransparencyFalloff};

bool boolean(const CommandArgs& args, const CommandFlag& flag)
{
    bool value = false;
    args.database().getFlagArgument(flag.name(), 0, value);
    return value;
}

MColor colour(const CommandArgs& args, const CommandFlag& flag)
{
    return MColor(static_cast<float>(args.number(flag, 0)), static_cast<float>(args.number(flag, 1)),
                  static_cast<float>(args.number(flag, 2)), 1.0F);
}

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, true, 0); }

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    MSelectionList list;
    const MStatus status = args.getObjects(list, OV_HERE("doIt"), QStringLiteral("selection is correpted"));
    if (!status)
        return status;

    // One setting per call: the first flag given, in this order.
    Manager& manager = Manager::instance();
    if (args.isSet(DeleteAll)) {
        manager.resetAll();
    } else if (args.isSet(CameraSpace)) {
        if (boolean(args, CameraSpace))
            manager.enableCameraSpace();
        else
            manager.disableCameraSpace();
    } else if (args.isSet(MainLineColor)) {
        manager.setColor(list, colour(args, MainLineColor), Line);
    } else if (args.isSet(SecondaryLineColor)) {
        manager.setColor(list, colour(args, SecondaryLineColor), SecondaryLine);
    } else if (args.isSet(PointsColor)) {
        manager.setColor(list, colour(args, PointsColor), Points);
    } else if (args.isSet(ShowLine)) {
        manager.setVisible(list, boolean(args, ShowLine), Line);
    } else if (args.isSet(ShowPoints)) {
        manager.setVisible(list, boolean(args, ShowPoints), Points);
    } else if (args.isSet(PointsStyle)) {
        manager.setStyle(list, Points, boolean(args, PointsStyle) ? CirclePoints : PlainPoints);
    } else if (args.isSet(LineStyle)) {
        manager.setStyle(list, Line, boolean(args, LineStyle) ? SolidLine : AlternatingLine);
    } else if (args.isSet(PointsSize)) {
        manager.setSize(list, args.number(PointsSize), Points);
    } else if (args.isSet(LineSize)) {
        manager.setSize(list, args.number(LineSize), Line);
    } else if (args.isSet(CurrentFrameColor)) {
        manager.setColor(list, colour(args, CurrentFrameColor), CurrentFrame);
    } else if (args.isSet(ShowCurrentFrame)) {
        manager.setVisible(list, boolean(args, ShowCurrentFrame), CurrentFrame);
    } else if (args.isSet(CurrentFrameSize)) {
        manager.setSize(list, args.number(CurrentFrameSize), CurrentFrame);
    } else if (args.isSet(TransparencyFalloff)) {
        manager.setFalloff(list, boolean(args, TransparencyFalloff));
    } else {
        manager.toggleSelection(list);
    }
    return MS::kSuccess;
}

} // namespace MotionTrail
