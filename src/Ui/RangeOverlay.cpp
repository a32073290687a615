#include "Ui/RangeOverlay.h"

#include "Ui/TimelineOverlay/Operations.h"
#include "Utils/TimeControl.h"

#include <maya/MGlobal.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTimer>

namespace Ui {

namespace {

const QString OverlayName = QStringLiteral("orvane");

} // namespace

bool showRangeOverlay(const QString& name, const MTime& start, const MTime& end)
{
    if (!TimelineOverlay::showOverlay(name))
        return false;
    TimelineOverlay::Operations* overlay = TimelineOverlay::entry(name);
    overlay->setStartRange(start);
    overlay->setEndRange(end);
    return true;
}

void runWithRangeOverlay(const MString& command, bool display, bool undo)
{
    MTime start;
    MTime end;
    QPointer<TimelineOverlay::Operations> band;
    if (timeSliderRange(start, end) && showRangeOverlay(OverlayName, start, end))
        band = TimelineOverlay::entry(OverlayName);
    QTimer::singleShot(1, QCoreApplication::instance(), [command, display, undo, band] {
        // Painted first: the command may hold the event loop for long.
        if (band)
            band->repaint();
        MGlobal::executeCommand(command, display, undo);
        if (band)
            TimelineOverlay::remove(OverlayName);
    });
}

} // namespace Ui
