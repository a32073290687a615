#include "Utils/MayaCmds/ManipPivot.h"

#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>

bool manipPivotOrientation(double orientation[3])
{
    MDoubleArray values;
    if (!MGlobal::executeCommand("manipPivot -query -orientation", values) || values.length() < 3)
        return false;
    for (unsigned int i = 0; i < 3; ++i)
        orientation[i] = values[i];
    return true;
}

bool setManipPivotOrientation(const double orientation[3])
{
    // Maya takes whole degrees here: fractions are cut.
    MString command("manipPivot -orientation ");
    for (int i = 0; i < 3; ++i) {
        if (i > 0)
            command += " ";
        command += static_cast<int>(orientation[i]);
    }
    return MGlobal::executeCommand(command);
}
