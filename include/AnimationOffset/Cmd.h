#pragma once
#include <maya/MAnimCurveChange.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace AnimationOffset {

extern const MString CommandName;

// OVAnimationOffset: toggles the offset mode (not undoable); -doOffset
// spreads the pending edits, one undo step.
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
    bool fUndoable = false;
    MAnimCurveChange fChange;
};

} // namespace AnimationOffset
