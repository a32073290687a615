#pragma once
// The time slider's state: the current time and the two ranges. The
// playback range (what plays) lies inside the animation range (the range
// slider's outer ends).
#include <maya/MTime.h>

namespace mayasim::anim {

struct PlaybackRange
{
    MTime minTime;
    MTime maxTime;
    MTime animationStart;
    MTime animationEnd;
    bool operator==(const PlaybackRange& other) const;
    bool operator!=(const PlaybackRange& other) const { return !(*this == other); }
};

enum class RangeEnd
{
    Min,
    Max,
    AnimationStart,
    AnimationEnd
};

const PlaybackRange& playbackRange();
// `range` with one end moved. An end moved past its partner carries the
// partner along; a playback end outside the animation range widens it, and
// an animation end moved inside the playback range narrows that.
PlaybackRange withEnd(PlaybackRange range, RangeEnd end, const MTime& time);
// Fires "playbackRangeChanged" when the playback range changed and
// "playbackRangeSliderChanged" when the animation range did.
void setPlaybackRange(const PlaybackRange& range);

// A new scene's time: film units, frame 1, playback 1..120 inside 1..200.
// Fires nothing: the scene messages of File New tell listeners.
void resetTime();

// Moves the current time: values set on driven plugs since the last change
// give way to their inputs, and the time-change messages fire.
void setCurrentTime(const MTime& time);

} // namespace mayasim::anim
