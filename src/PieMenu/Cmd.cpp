#include "PieMenu/Cmd.h"

#include "PieMenu/Manager.h"
#include "Utils/Command.h"

#include <maya/MQtUtil.h>

namespace PieMenu {

const MString CommandName("OVPieMenu");

namespace {

const CommandFlag Show{"-s", "-show", {MSyntax::kLong}};
const CommandFlag Close{"-c", "-close", {MSyntax::kLong}};
const CommandFlags Flags = {&Show, &Close};

int menuId(const CommandArgs& args, const CommandFlag& flag)
{
    int id = 0;
    args.database().getFlagArgument(flag.shortName, 0, id);
    return id;
}

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax = commandSyntax(Flags, false);
    syntax.enableEdit();
    return syntax;
}

MStatus Cmd::doIt(const MArgList& argList)
{
    const CommandArgs args(syntax(), argList, Flags, OV_HERE("doIt"));
    if (!args.status())
        return args.status();
    const bool edit = args.database().isEdit();
    const bool show = args.isSet(Show);
    // Closing never needs a window: with no popup open it does nothing.
    if ((edit || show) && !MQtUtil::mainWindow()) {
        OV_REPORT(QStringLiteral("pie menus need Maya's interface"), "doIt");
        return MS::kFailure;
    }
    Manager& manager = Manager::instance();
    if (edit)
        manager.openMenuList();
    else if (show)
        manager.show(menuId(args, Show));
    else if (args.isSet(Close))
        manager.close(menuId(args, Close));
    return MS::kSuccess;
}

} // namespace PieMenu
