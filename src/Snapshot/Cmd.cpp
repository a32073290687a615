#include "Snapshot/Cmd.h"

#include "Utils/Report.h"

#include <maya/MArgDatabase.h>
#include <maya/MSelectionList.h>

namespace Snapshot {

const MString CommandName("OVSnapshot");

namespace {

const char* const ClearShort = "-c";
const char* const ClearLong = "-clear";

} // namespace

void* Cmd::creator() { return new Cmd; }

MSyntax Cmd::createSyntax()
{
    MSyntax syntax;
    syntax.addFlag(ClearShort, ClearLong, MSyntax::kNoArg);
    syntax.setObjectType(MSyntax::kSelectionList, 1);
    syntax.useSelectionAsDefault(true);
    return syntax;
}

MStatus Cmd::doIt(const MArgList& args)
{
    MStatus status;
    MArgDatabase argData(syntax(), args, &status);
    if (!status) {
        OV_REPORT(QStringLiteral("failed to parse args\n"), "doIt");
        return status;
    }

    // Forgetting every pose needs no objects.
    if (argData.isFlagSet(ClearShort)) {
        fManager.clear();
        return MS::kSuccess;
    }

    MSelectionList objects;
    status = argData.getObjects(objects);
    if (!status) {
        OV_REPORT(QStringLiteral("no object/s specified"), "doIt");
        return status;
    }
    fManager.snapshot(objects);
    return status;
}

} // namespace Snapshot
