#include "Utils/TimeControl.h"

#include "Utils/Report.h"

#include <maya/MDoubleArray.h>
#include <maya/MGlobal.h>

MString playbackSliderName() { return MGlobal::executeCommandStringResult("$tmpVar=$gPlayBackSlider"); }

bool timeSliderRange(MTime& start, MTime& end)
{
    const MString name = playbackSliderName();
    MDoubleArray range;
    if (!MGlobal::executeCommand("timeControl -q -rangeArray " + name, range) || range.length() == 0) {
        OV_REPORT(QStringLiteral("failed to get range array"), "rangeArray");
        return false;
    }
    // The array runs one frame past the highlight.
    start = MTime(range[0], MTime::uiUnit());
    end = MTime(range[range.length() - 1] - 1.0, MTime::uiUnit());
    return (end - start).value() >= 1.0;
}

bool setTimeSliderRange(const MTime& start, const MTime& end)
{
    // The range is given as the query answers it: one frame past the highlight.
    MString range;
    range += start.as(MTime::uiUnit());
    range += ":";
    range += end.as(MTime::uiUnit()) + 1.0;
    return MGlobal::executeCommand("timeControl -e -range \"" + range + "\" " + playbackSliderName(), false, false);
}
