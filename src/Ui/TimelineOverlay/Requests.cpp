#include "Ui/TimelineOverlay/Requests.h"

#include "Ui/TimelineOverlay/Cmd.h"

#include <maya/MGlobal.h>

bool showOverlayRange(const MString& name, const MTime& start, const MTime& end)
{
    // The settings of the call that makes an overlay are lost, so the range
    // comes in a second call.
    if (!MGlobal::executeCommand(TimelineOverlay::CommandName + " -show true " + name))
        return false;
    MString range;
    range += start.as(MTime::uiUnit());
    range += " -endRange ";
    range += end.as(MTime::uiUnit());
    return MGlobal::executeCommand(TimelineOverlay::CommandName + " -startRange " + range + " " + name);
}

void removeOverlay(const MString& name) { MGlobal::executeCommand(TimelineOverlay::CommandName + " -remove " + name); }
