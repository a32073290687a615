#pragma once
// What a tool asks of a named overlay, through OVTimelineOverlay as any script
// would: the overlay knows nothing of who asks.
#include <maya/MString.h>
#include <maya/MTime.h>

// Shows the overlay over start to end (UI frames, both included); false when
// there is no interface or slider to show it on.
bool showOverlayRange(const MString& name, const MTime& start, const MTime& end);
// Takes the overlay away, if there is one.
void removeOverlay(const MString& name);
