#pragma once
#include <maya/MDGModifier.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Mirror {

extern const MString CommandName;

// OVMirror: copies the pose of each object to its opposite, channel by
// channel with a sign; -snapshot freezes the signs, -fixAttribute flips
// chosen ones, -removeSnapshot and -removeSelectedFromSnapshot forget them.
// A mirror is one undo step.
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
    MDGModifier fModifier;
    bool fUndoable = false;
};

} // namespace Mirror
