#pragma once
#include <maya/MStatus.h>
#include <maya/MString.h>

#include <QPointer>
#include <QWidget>

namespace SelectionSetUi {

class Ui;

extern const MString ControlName;

// Ties the set strip to its workspace control. One per process, made on
// first use and torn down at unload, which closes the control and deletes
// the strip.
class Manager
{
public:
    static Manager& instance();
    static void destroy();
    ~Manager();

    // Opens the strip, or hides or restores the control that holds it.
    MStatus showOrToggle();
    void moveToCursor();
    Ui* panel() const;

private:
    MStatus ensureUiCreated();

    QPointer<QWidget> workspaceControl;
    QPointer<Ui> ui;
};

} // namespace SelectionSetUi
