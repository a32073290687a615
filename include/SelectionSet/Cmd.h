#pragma once
#include <maya/MDGModifier.h>
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace SelectionSet {

extern const MString CommandName;

// OVSelectionSet <name> [objects]: makes a set labelled name of the
// objects; with -select, -modify, -remove or -hide it acts on the set of
// that node name instead. Each edit is one undo step.
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

} // namespace SelectionSet
