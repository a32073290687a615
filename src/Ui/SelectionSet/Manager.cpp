#include "Ui/SelectionSet/Manager.h"

#include "Ui/Cmd.h"
#include "Ui/SelectionSet/Cmd.h"
#include "Ui/SelectionSet/Ui.h"
#include "Utils/MayaCmds/WorkspaceControl.h"
#include "Utils/Report.h"

#include <maya/MQtUtil.h>

#include <memory>

namespace SelectionSetUi {

const MString ControlName("OVSELECTIONSET_WORKSPACE_CONTROL");

namespace {

std::unique_ptr<Manager>& held()
{
    static std::unique_ptr<Manager> manager;
    return manager;
}

} // namespace

Manager& Manager::instance()
{
    if (!held())
        held() = std::make_unique<Manager>();
    return *held();
}

void Manager::destroy() { held().reset(); }

Ui* Manager::panel() const { return ui; }

Manager::~Manager()
{
    if (workspaceControl)
        closeWorkspaceControl(ControlName);
    delete ui;
}

MStatus Manager::showOrToggle()
{
    // When Maya rebuilds the layout and runs the ui script, the strip is not
    // in the new control yet: it goes back in without hiding anything.
    if (workspaceControl && ui && workspaceControl->isAncestorOf(ui))
        return toggleWorkspaceControl(ControlName);
    return ensureUiCreated();
}

MStatus Manager::ensureUiCreated()
{
    if (!workspaceControlExists(ControlName)) {
        if (const MStatus status = createWorkspaceControl("Selection Sets", ::Ui::CommandName, ControlName); !status) {
            OV_REPORT(QStringLiteral("failed to create workspace"), "ensureUiCreated");
            return status;
        }
        if (!setWorkspaceUiScript(CommandName, ControlName))
            OV_REPORT(QStringLiteral("failed to add ui script for workspace"), "ensureUiCreated");
    }
    workspaceControl = MQtUtil::findControl(ControlName);
    if (!workspaceControl)
        return MS::kSuccess;
    if (!ui)
        ui = new Ui;
    MQtUtil::addWidgetToMayaLayout(ui, workspaceControl);
    return MS::kSuccess;
}

void Manager::moveToCursor()
{
    if (ui && workspaceControlVisible(ControlName) && workspaceControlFloating(ControlName))
        centerWindowOnCursor(ui);
}

} // namespace SelectionSetUi
