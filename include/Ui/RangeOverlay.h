#pragma once
#include <maya/MString.h>
#include <maya/MTime.h>

#include <QString>

namespace Ui {

// Shows the named overlay over start to end; false when the time slider
// can't be found.
bool showRangeOverlay(const QString& name, const MTime& start, const MTime& end);

// Runs the command once the press that asked for it has been handled, with
// the highlighted range of the time slider marked while it runs. Without a
// highlight no band is shown: the command acts on the current frame.
void runWithRangeOverlay(const MString& command, bool display, bool undo);

} // namespace Ui
