#pragma once
#include <maya/MPxCommand.h>
#include <maya/MString.h>
#include <maya/MSyntax.h>

namespace TempPivot {

extern const MString CommandName;

// OVTempPivot: turns the temporary pivot on for the objects (-enable true,
// with -center, -lastObject or -worldSpace), off, or answers and adjusts it.
// Not undoable itself: the moves it makes are undone as a chunk of their own.
class Cmd : public MPxCommand
{
public:
    MStatus doIt(const MArgList& args) override;

    static void* creator();
    static MSyntax createSyntax();
};

} // namespace TempPivot
