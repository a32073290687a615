#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace SelectOpposite {

extern const MString CommandName;

// OVSelectOpposite: selects the opposites of the objects, or adds them,
// deselects a side, pairs objects by position or by hand, and turns the
// automatic selection of opposites on and off. Not undoable itself: the
// selection changes are Maya's own undo steps.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();
};

} // namespace SelectOpposite
