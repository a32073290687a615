#include "Ui/Cmd.h"

#include "Ui/Manager.h"
#include "Ui/UpdateCheck.h"
#include "Utils/Command.h"

#include <QApplication>

namespace Ui {

const MString CommandName("orvane");

namespace {

const CommandFlag MoveUI{"-m", "-moveUI", {}};
const CommandFlags Flags{&MoveUI};

// The update check runs at the first toggle of the process only.
bool updateChecked = false;

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax() { return commandSyntax(Flags, false); }

PanelArgs parsePanelArgs(const MSyntax& syntax, const MArgList& args)
{
    PanelArgs panelArgs;
    const CommandArgs parsed(syntax, args, Flags, OV_HERE("doIt"));
    panelArgs.status = parsed.status();
    if (!panelArgs.status)
        return panelArgs;
    // Maya in batch mode has a core application but no widgets.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        OV_REPORT(QStringLiteral("the panel needs Maya's interface; there is none in batch mode"), "doIt");
        panelArgs.status = MS::kFailure;
        return panelArgs;
    }
    panelArgs.moveUI = parsed.isSet(MoveUI);
    return panelArgs;
}

MStatus Cmd::doIt(const MArgList& args)
{
    const PanelArgs parsed = parsePanelArgs(createSyntax(), args);
    if (!parsed.status)
        return parsed.status;
    Manager& manager = Manager::instance();
    if (parsed.moveUI) {
        manager.moveToCursor();
        return MS::kSuccess;
    }
    if (!updateChecked) {
        updateChecked = true;
        checkForUpdate();
    }
    return manager.toggle();
}

} // namespace Ui
