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

MStatus hideWorkspaceControl(const MString& name)
{
    MString command;
    command.format("workspaceControl -e -visible ^1s \"^2s\"", MString() + 0.0, name);
    return MGlobal::executeCommand(command);
}

MStatus restoreWorkspaceControl(const MString& name)
{
    MString command;
    command.format("workspaceControl -e -restore \"^1s\"", name);
    return MGlobal::executeCommand(command);
}

MStatus toggleWorkspaceControl(const MString& name)
{
    return workspaceControlVisible(name) ? hideWorkspaceControl(name) : restoreWorkspaceControl(name);
}

void centerWindowOnCursor(QWidget* widget)
{
    if (!widget)
        return;
    // QRect::moveCenter would land one pixel off for even sizes.
    QWidget* window = widget->window();
    const QRect frame = window->frameGeometry();
    const QPoint cursor = QCursor::pos();
    window->move(cursor.x() - frame.width() / 2, cursor.y() - frame.height() / 2);
}
