#include "Ui/Manager.h"

#include "Ui/Cmd.h"
#include "Ui/Main.h"
#include "Utils/MayaCmds/WorkspaceControl.h"
#include "Utils/Report.h"
#include "Utils/Version.h"

#include <maya/MQtUtil.h>

namespace Ui {

namespace {

// Torn down by unload alone: at process exit, with the plug-in still
// loaded, Maya's own state may be gone before this module's statics.
Manager*& held()
{
    static Manager* manager = nullptr;
    return manager;
}

} // namespace

Manager& Manager::instance()
{
    if (!held())
        held() = new Manager;
    return *held();
}

void Manager::destroy()
{
    delete held();
    held() = nullptr;
}

Main* Manager::panel() const { return main; }

Manager::~Manager()
{
    if (workspaceControl)
        closeWorkspaceControl(name);
    delete main;
}

MStatus Manager::toggle()
{
    // A control whose panel is in it toggles. When Maya rebuilds the layout
    // and runs the ui script, the panel is not in the new control yet: it is
    // put back without hiding what the user left open.
    if (workspaceControl && main && workspaceControl->isAncestorOf(main))
        return toggleWorkspaceControl(name);
    if (!workspaceControlExists(name)) {
        const MStatus status = createWorkspaceControl(MString("Orvane ") + PluginVersion, CommandName, name);
        if (!status) {
            OV_REPORT(QStringLiteral("failed to create workspace"), "toggle");
            return status;
        }
    }
    workspaceControl = MQtUtil::findControl(name);
    if (!workspaceControl)
        return MS::kSuccess;
    if (!main)
        main = new Main;
    MQtUtil::addWidgetToMayaLayout(main, workspaceControl);
    const MStatus status = setWorkspaceUiScript(CommandName, name);
    if (!status) {
        OV_REPORT(QStringLiteral("failed to add ui script for workspace"), "toggle");
        return status;
    }
    // A control left closed by an earlier load of the plug-in comes back.
    if (!workspaceControlVisible(name))
        return restoreWorkspaceControl(name);
    return status;
}

void Manager::moveToCursor()
{
    if (main && workspaceControlVisible(name) && workspaceControlFloating(name))
        centerWindowOnCursor(main);
}

} // namespace Ui
