#include "Utils/MayaCmds/Duplicate.h"

#include "Utils/Nodes/Node.h"
#include "Utils/Report.h"

#include <maya/MGlobal.h>
#include <maya/MStringArray.h>

MObject duplicateNode(const MString& name, bool undoable)
{
    MStringArray result;
    MObject copy;
    if (MGlobal::executeCommand("duplicate " + name, result, false, undoable) && result.length() > 0)
        copy = objectByName(result[0]);
    if (copy.isNull())
        OV_REPORT(QStringLiteral("failed to duplicate: ") + QString::fromUtf8(name.asChar()), "duplicate");
    return copy;
}
