#pragma once
#include <maya/MFnAnimCurve.h>
#include <maya/MStatus.h>
#include <maya/MTime.h>
#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

//! The current time, the playback range (minTime..maxTime) inside the
//! animation range, and the global tangent types new keys get.
class OPENMAYAANIM_EXPORT MAnimControl
{
public:
    enum PlaybackMode
    {
        kPlaybackOnce,
        kPlaybackLoop,
        kPlaybackOscillate
    };

    enum PlaybackViewMode
    {
        kPlaybackViewAll,
        kPlaybackViewActive
    };

    MAnimControl();
    virtual ~MAnimControl();

    static MTime minTime();
    static MTime maxTime();
    static MStatus setMinTime(MTime newMinTime);
    static MStatus setMaxTime(MTime newMaxTime);
    static MStatus setMinMaxTime(MTime min, MTime max);
    static MTime animationStartTime();
    static MTime animationEndTime();
    static MStatus setAnimationStartTime(MTime newStartTime);
    static MStatus setAnimationEndTime(MTime newEndTime);
    static MStatus setAnimationStartEndTime(MTime newStartTime, MTime newEndTime);
    static MTime currentTime();
    static MStatus setCurrentTime(const MTime& newTime);

    static MFnAnimCurve::TangentType globalInTangentType(MStatus* ReturnStatus = NULL);
    static MStatus setGlobalInTangentType(const MFnAnimCurve::TangentType& tangentType);
    static MFnAnimCurve::TangentType globalOutTangentType(MStatus* ReturnStatus = NULL);
    static MStatus setGlobalOutTangentType(const MFnAnimCurve::TangentType& tangentType);
};

OPENMAYA_NAMESPACE_CLOSE
