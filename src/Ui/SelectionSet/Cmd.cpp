#include "Ui/SelectionSet/Cmd.h"

#include "Ui/Cmd.h"
#include "Ui/SelectionSet/Manager.h"

namespace SelectionSetUi {

const MString CommandName("OVSelectionSetUi");

void* Cmd::creator() { return new Cmd; }

MStatus Cmd::doIt(const MArgList& args)
{
    const ::Ui::PanelArgs parsed = ::Ui::parsePanelArgs(syntax(), args);
    if (!parsed.status)
        return parsed.status;
    Manager& manager = Manager::instance();
    if (parsed.moveUI) {
        manager.moveToCursor();
        return MS::kSuccess;
    }
    return manager.showOrToggle();
}

} // namespace SelectionSetUi
