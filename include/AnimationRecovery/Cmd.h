#pragma once
#include <maya/MAnimCurveChange.h>
#include <maya/MDGModifier.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace AnimationRecovery {

extern const MString CommandName;

// OVAnimationRecovery: -enable true|false turns background saving of edited
// curves on or off; -restore rebuilds the saved curves in one undo step.
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
    MDGModifier fModifier;
};

} // namespace AnimationRecovery
