#include <maya/MAngle.h>
#include <maya/MAnimControl.h>
#include <maya/MDistance.h>

#include "engine/Events.h"
#include "openmayaanim/AnimCurveData.h"
#include "openmayaanim/TimeControl.h"
#include "scene/Evaluation.h"

#include <algorithm>

namespace mayasim::anim {

namespace {

PlaybackRange startRange()
{
    return PlaybackRange{MTime(1.0, MTime::uiUnit()), MTime(120.0, MTime::uiUnit()), MTime(1.0, MTime::uiUnit()),
                         MTime(200.0, MTime::uiUnit())};
}

PlaybackRange& range()
{
    static PlaybackRange state = startRange();
    return state;
}

} // namespace

void resetTime()
{
    MTime::setUIUnit(MTime::kFilm);
    MAngle::setUIUnit(MAngle::kDegrees);
    MDistance::setUIUnit(MDistance::kCentimeters);
    range() = startRange();
    eval::setCurrentTime(MTime(1.0, MTime::uiUnit()));
}

bool PlaybackRange::operator==(const PlaybackRange& other) const
{
    return minTime == other.minTime && maxTime == other.maxTime && animationStart == other.animationStart &&
           animationEnd == other.animationEnd;
}

const PlaybackRange& playbackRange()
{
    return range();
}

PlaybackRange withEnd(PlaybackRange r, RangeEnd end, const MTime& time)
{
    switch (end)
    {
    case RangeEnd::Min:
        r.minTime = time;
        r.maxTime = std::max(r.maxTime, time);
        break;
    case RangeEnd::Max:
        r.maxTime = time;
        r.minTime = std::min(r.minTime, time);
        break;
    case RangeEnd::AnimationStart:
        r.animationStart = time;
        r.animationEnd = std::max(r.animationEnd, time);
        break;
    case RangeEnd::AnimationEnd:
        r.animationEnd = time;
        r.animationStart = std::min(r.animationStart, time);
        break;
    }
    if (end == RangeEnd::Min || end == RangeEnd::Max)
    {
        r.animationStart = std::min(r.animationStart, r.minTime);
        r.animationEnd = std::max(r.animationEnd, r.maxTime);
    }
    else
    {
        r.minTime = std::clamp(r.minTime, r.animationStart, r.animationEnd);
        r.maxTime = std::clamp(r.maxTime, r.animationStart, r.animationEnd);
    }
    return r;
}

void setPlaybackRange(const PlaybackRange& after)
{
    const PlaybackRange before = range();
    range() = after;
    if (before.minTime != after.minTime || before.maxTime != after.maxTime)
        events::fireEvent("playbackRangeChanged");
    if (before.animationStart != after.animationStart || before.animationEnd != after.animationEnd)
        events::fireEvent("playbackRangeSliderChanged");
}

void setCurrentTime(const MTime& time)
{
    eval::setCurrentTime(time);
    events::fireTimeChanged(time);
}

} // namespace mayasim::anim

namespace {

using mayasim::anim::PlaybackRange;
using mayasim::anim::RangeEnd;
using mayasim::anim::withEnd;

// Sets both ends of a range; the one that moves away from its partner goes
// first, so that neither passes the other on the way.
MStatus setBothEnds(RangeEnd startEnd, const MTime& start, RangeEnd endEnd, const MTime& end, const MTime& currentEnd)
{
    if (end < start)
        return MS::kInvalidParameter;
    PlaybackRange range = mayasim::anim::playbackRange();
    const bool endFirst = start > currentEnd;
    range = withEnd(range, endFirst ? endEnd : startEnd, endFirst ? end : start);
    range = withEnd(range, endFirst ? startEnd : endEnd, endFirst ? start : end);
    mayasim::anim::setPlaybackRange(range);
    return MS::kSuccess;
}

MStatus setEnd(RangeEnd end, const MTime& time)
{
    mayasim::anim::setPlaybackRange(withEnd(mayasim::anim::playbackRange(), end, time));
    return MS::kSuccess;
}

MFnAnimCurve::TangentType globalType(mayasim::anim::TangentType type, MStatus* ReturnStatus)
{
    if (ReturnStatus)
        *ReturnStatus = MS::kSuccess;
    return static_cast<MFnAnimCurve::TangentType>(type);
}

MStatus setGlobalType(mayasim::anim::TangentType& slot, MFnAnimCurve::TangentType type)
{
    // The global types stand for real types: "global" itself is no choice.
    if (type == MFnAnimCurve::kTangentGlobal || !mayasim::anim::isTangentType(type))
        return MS::kInvalidParameter;
    slot = static_cast<mayasim::anim::TangentType>(type);
    return MS::kSuccess;
}

} // namespace

MAnimControl::MAnimControl() = default;
MAnimControl::~MAnimControl() = default;

MTime MAnimControl::minTime()
{
    return mayasim::anim::playbackRange().minTime;
}

MTime MAnimControl::maxTime()
{
    return mayasim::anim::playbackRange().maxTime;
}

MStatus MAnimControl::setMinTime(MTime newMinTime)
{
    return setEnd(RangeEnd::Min, newMinTime);
}

MStatus MAnimControl::setMaxTime(MTime newMaxTime)
{
    return setEnd(RangeEnd::Max, newMaxTime);
}

MStatus MAnimControl::setMinMaxTime(MTime min, MTime max)
{
    return setBothEnds(RangeEnd::Min, min, RangeEnd::Max, max, maxTime());
}

MTime MAnimControl::animationStartTime()
{
    return mayasim::anim::playbackRange().animationStart;
}

MTime MAnimControl::animationEndTime()
{
    return mayasim::anim::playbackRange().animationEnd;
}

MStatus MAnimControl::setAnimationStartTime(MTime newStartTime)
{
    return setEnd(RangeEnd::AnimationStart, newStartTime);
}

MStatus MAnimControl::setAnimationEndTime(MTime newEndTime)
{
    return setEnd(RangeEnd::AnimationEnd, newEndTime);
}

MStatus MAnimControl::setAnimationStartEndTime(MTime newStartTime, MTime newEndTime)
{
    return setBothEnds(RangeEnd::AnimationStart, newStartTime, RangeEnd::AnimationEnd, newEndTime, animationEndTime());
}

MTime MAnimControl::currentTime()
{
    MTime time = mayasim::eval::currentTime();
    time.setUnit(MTime::uiUnit());
    return time;
}

MStatus MAnimControl::setCurrentTime(const MTime& newTime)
{
    mayasim::anim::setCurrentTime(newTime);
    return MS::kSuccess;
}

MFnAnimCurve::TangentType MAnimControl::globalInTangentType(MStatus* ReturnStatus)
{
    return globalType(mayasim::anim::defaultTangentTypes().in, ReturnStatus);
}

MStatus MAnimControl::setGlobalInTangentType(const MFnAnimCurve::TangentType& tangentType)
{
    return setGlobalType(mayasim::anim::defaultTangentTypes().in, tangentType);
}

MFnAnimCurve::TangentType MAnimControl::globalOutTangentType(MStatus* ReturnStatus)
{
    return globalType(mayasim::anim::defaultTangentTypes().out, ReturnStatus);
}

MStatus MAnimControl::setGlobalOutTangentType(const MFnAnimCurve::TangentType& tangentType)
{
    return setGlobalType(mayasim::anim::defaultTangentTypes().out, tangentType);
}
