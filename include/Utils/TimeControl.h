#pragma once
#include <maya/MString.h>
#include <maya/MTime.h>

// The time slider.
MString playbackSliderName();
// The highlighted range; false when the highlight is a single frame (or none).
// start and end are set in any case.
bool timeSliderRange(MTime& start, MTime& end);
// Highlights start to end (both included); false when Maya refuses.
bool setTimeSliderRange(const MTime& start, const MTime& end);
