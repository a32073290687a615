#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace PieMenu {

extern const MString CommandName;

// OVPieMenu -e opens the menu list; -s id shows a menu's popup at the mouse
// (the hotkey's press), -c id closes it and runs the slice the mouse points
// at (the release). Not undoable: the slice's own command is the step.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();
};

} // namespace PieMenu
