#pragma once
#include "ResetPose/Manager.h"

#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace ResetPose {

extern const MString CommandName;

// OVResetPose: the objects' channels back to their default pose, all of them
// or those of -translate, -rotate, -scale. One undo step.
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
    Manager fManager;
    bool fUndoable = false;
};

} // namespace ResetPose
