#pragma once
// A drag of the move tool in the top view, as the user makes it with the
// left button, for the programs that move things in the GUI host.
#include <maya/M3dView.h>
#include <maya/MGlobal.h>
#include <maya/MPoint.h>

#include <string>

// From a world point, by pixels right and down, in three steps.
inline bool dragInTop(const MPoint& from, int right, int down)
{
    M3dView top;
    if (!M3dView::getM3dViewFromModelPanel("modelPanel1", top))
        return false;
    short x = 0, y = 0;
    top.worldToView(from, x, y);
    const int fromX = x, fromY = top.portHeight() - y;
    return MGlobal::executeCommand(("mayasimUi -drag " + std::to_string(fromX) + " " + std::to_string(fromY) + " "
                                    + std::to_string(fromX + right) + " " + std::to_string(fromY + down)
                                    + " -steps 3 modelPanel1")
                                       .c_str(),
                                   false, true);
}
