#pragma once
#include <maya/MDGModifier.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace Relationship {

extern const MString CommandName;

// OVRelationship: stores where the first of two transforms stands relative
// to the second; -paste puts it back there, at the current time or keyed
// over the highlighted range. A paste is one undo step.
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

} // namespace Relationship
