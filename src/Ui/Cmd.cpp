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

MStatus Cmd::doIt(const MArgList& args)
{
    const CommandArgs parsed(createSyntax(), args, Flags, OV_HERE("doIt"));
    if (!parsed.status())
        return parsed.status();
    // Maya in batch mode has a core application but no widgets.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance())) {
        OV_REPORT(QStringLiteral("the panel needs Maya's interface; there is none in batch mode"), "doIt");
        return MS::kFailure;
    }
    Manager& manager = Manager::instance();
    if (parsed.isSet(MoveUI)) {
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
