#pragma once
#include "TangentBlending/Manager.h"

#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace TangentBlending {

extern const MString CommandName;

class Cmd : public MPxCommand
{
public:
    ~Cmd() override;
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

} // namespace TangentBlending
