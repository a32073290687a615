#pragma once
#include <maya/MStatus.h>
#include <maya/MString.h>

class QWidget;

MStatus createWorkspaceControl(const MString& label, const MString& plugin, const MString& name);
MStatus setWorkspaceUiScript(const MString& script, const MString& name);
MStatus closeWorkspaceControl(const MString& name);
bool workspaceControlExists(const MString& name);
bool workspaceControlFloating(const MString& name);
bool workspaceControlVisible(const MString& name);
MStatus hideWorkspaceControl(const MString& name);
MStatus restoreWorkspaceControl(const MString& name);
// Hides a visible control, restores a hidden one.
MStatus toggleWorkspaceControl(const MString& name);
// Moves the widget's window so that its centre is under the mouse: the
// top-left at the cursor less half the frame, in whole pixels.
void centerWindowOnCursor(QWidget* widget);
