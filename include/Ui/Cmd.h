#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Ui {

// "orvane": the command's name, the plug-in's name and the control's ui script.
extern const MString CommandName;

// orvane [-moveUI]: toggles the panel; -moveUI moves the floating panel under
// the mouse and never opens it. Not undoable: the panel is interface.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    // Shared with the selection set panel's command.
    static MSyntax createSyntax();
};

// What both panel commands start with: their arguments parsed, and an
// interface to show a panel in (batch mode has none). A failed status comes
// with its report.
struct PanelArgs
{
    MStatus status;
    bool moveUI = false;
};
PanelArgs parsePanelArgs(const MSyntax& syntax, const MArgList& args);

} // namespace Ui
