#include "Utils/MayaCmds/WorkspaceControl.h"

#include <maya/MGlobal.h>

#include <QCursor>
#include <QWidget>

MStatus createWorkspaceControl(const MString& label, const MString& plugin, const MString& name)
{
    MString command;
    command.format("workspaceControl -retain true -deleteLater true -loadImmediately true -floating true "
                   "-label \"^1s\" -requiredPlugin \"^2s\" \"^3s\"",
                   label, plugin, name);
    return MGlobal::executeCommand(command, true);
}

MStatus setWorkspaceUiScript(const MString& script, const MString& name)
{
    MString command;
    command.format("workspaceControl -e -uiScript \"^1s\" \"^2s\"", script, name);
    return MGlobal::executeCommand(command, true);
}

MStatus closeWorkspaceControl(const MString& name)
{
    MString command;
    command.format("workspaceControl -e -close \"^1s\"", name);
    return MGlobal::executeCommand(command);
}

namespace {

bool queryFlag(const char* flag, const MString& name)
{
    MString command;
    command.format("workspaceControl -q ^1s \"^2s\"", MString(flag), name);
    int result = 0;
    return MGlobal::executeCommand(command, result) && result != 0;
}

} // namespace

bool workspaceControlExists(const MString& name) { return queryFlag("-exists", name); }

bool workspaceControlFloating(const MString& name) { return queryFlag("-floating", name); }

bool workspaceControlVisible(const MString& name) { return queryFlag("-visible", name); }

void centerWindowOnCursor(QWidget* widget)
{
    if (!widget)
        return;
    QWidget* window = widget->window();
    QRect frame = window->frameGeometry();
    frame.moveCenter(QCursor::pos());
    window->move(frame.topLeft());
}
