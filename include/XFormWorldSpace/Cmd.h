#pragma once
#include <maya/MAnimCurveChange.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace XFormWorldSpace {

extern const MString CommandName;

// OVXFormWorldSpace: copies where the objects are in the world (one pose, or
// every keyed frame of the highlighted range); -paste keys that onto the
// same objects, their opposites or others, through their own parents. The
// keys go through setKeyframe and so are in Maya's undo queue; a paste that
// keyed something is one undo step.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;
    MStatus undoIt() override;
    MStatus redoIt() override;
    bool isUndoable() const override;

    static void* creator();
    static MSyntax createSyntax();

private:
    MAnimCurveChange fChange;
    bool fUndoable = false;
};

} // namespace XFormWorldSpace
