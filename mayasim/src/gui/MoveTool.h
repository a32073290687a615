#pragma once
// The move tool: its manipulator in the views (at the last selected
// transform's pivot, or where manipPivot put it, oriented as manipPivot
// says), pivot edit mode (ctxEditMode), and drags in a view, which move the
// selected transforms, or their pivots in pivot edit mode, as one undo step
// and raise "DragRelease" when they end.
#include "openmayaui/CameraView.h"

class QPainter;
class QPointF;

namespace mayasim::gui {

void drawManipulator(QPainter& painter, const CameraView& view);
// A drag from a point of a view (widget pixels); false when nothing is
// selected that the tool moves.
bool beginDrag(const CameraView& view, const QPointF& at);
void dragTo(const CameraView& view, const QPointF& at);
void endDrag();

} // namespace mayasim::gui
