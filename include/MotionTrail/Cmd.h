#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace MotionTrail {

extern const MString CommandName;

// OVMotionTrail [objects]: toggles a trail on each object; with a flag it
// changes one setting of their trails, camera-space display, or removes
// every trail (-deleteAll). Only the first flag given in the table's order
// acts. Trails are display state, not scene edits: nothing to undo.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();
};

} // namespace MotionTrail
