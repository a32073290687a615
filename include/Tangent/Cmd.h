#pragma once
#include <maya/MAnimCurveChange.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Tangent {

extern const MString CommandName;

// OVTangent: sets one tangent type on the collected keys, no blending.
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
    bool fInTangent = false;
    bool fOutTangent = false;
    MAnimCurveChange fChange;
    bool fUndoable = false;
};

} // namespace Tangent
