#pragma once
#include "Retiming/Manager.h"

#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Retiming {

extern const MString CommandName;

// OVRetiming -value <frames> -retimeType <0-6> [-JumpToNewTime] [objects]:
// changes the time between keys; its result is the number of keys moved,
// and it is one undo step when that is above 0.
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
    Manager fManager;
};

} // namespace Retiming
