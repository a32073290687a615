#pragma once
// Workspace controls: dockable windows that hold a plug-in's UI, made and
// driven by the workspaceControl command.
#include <string>

class QWidget;

namespace mayasim::gui {

// The control's own widget (the one its uiScript fills), or null.
QWidget* workspaceControl(const std::string& name);
// Empties the control and runs its stored -uiScript again, as Maya does when
// it restores a workspace at start. False when there is no such control.
bool rebuildWorkspaceControl(const std::string& name);
void closeWorkspaceControls();
// UI-only commands fail in batch mode: throws MelError in the command's name.
void requireInterface(const std::string& command);

} // namespace mayasim::gui
