#pragma once
#include "Snapshot/Manager.h"

#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Snapshot {

extern const MString CommandName;

// OVSnapshot: stores the current channel values of the objects as their
// default pose; -clear forgets every stored pose. Not undoable.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();

private:
    Manager fManager;
};

} // namespace Snapshot
