#pragma once
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <QPointer>
#include <QWidget>

namespace Ui {

class Main;

// Ties the panel to its workspace control. One per process, made on first
// use and torn down at unload, which closes the control and deletes the panel.
class Manager
{
public:
    static Manager& instance();
    static void destroy();
    ~Manager();

    // Opens the panel, or hides or restores it when it is already there.
    MStatus toggle();
    // Puts the floating, visible panel's centre under the mouse.
    void moveToCursor();
    Main* panel() const;

private:
    QPointer<QWidget> workspaceControl;
    const MString name = "ORVANE_WORKSPACE_CONTROL";
    QPointer<Main> main;
};

} // namespace Ui
