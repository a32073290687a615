#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>

namespace SelectionSetUi {

extern const MString CommandName;

// OVSelectionSetUi [-moveUI]: opens the selection set strip, or hides or
// restores it; -moveUI moves the floating strip under the mouse. Its syntax
// is the panel command's. Not undoable: it is interface.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
};

} // namespace SelectionSetUi
