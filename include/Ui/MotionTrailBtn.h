#pragma once
#include "Ui/ToolButton.h"

#include <QColor>

namespace Ui {

// How new motion trails look, kept in motionTrail_prefs.json.
struct TrailStyle
{
    bool cameraSpace = false;
    bool showLine = true;
    bool showPoints = false;
    bool pointsStyle = false; // false squares, true circles
    bool lineStyle = true;    // true solid, false dash
    double lineSize = 3.0;
    double pointsSize = 9.0;
    bool showCurrentFrame = true;
    double currentFrameSize = 1.0;
    bool transparencyFalloff = true;
    QColor mainLineColor{253, 3, 251};
    QColor secondaryLineColor{9, 243, 241};
    QColor pointsColor{253, 3, 251};
    QColor currentFrameColor{255, 255, 255};
};

// The stored style over the defaults, key by key.
TrailStyle readTrailStyle();
// Failures are silent: the trails keep working with the style in memory.
void writeTrailStyle(const TrailStyle& style);
// Toggles the trail of the selection, then gives it the style.
void applyTrailStyle(const TrailStyle& style);

// Toggles motion trails; the menu (which tears off) sets their style.
class MotionTrailBtn : public ToolButton
{
    Q_OBJECT

public:
    explicit MotionTrailBtn(QWidget* parent);

private:
    QAction* addToggle(const QString& text, bool TrailStyle::*field, const char* flag);
    void addColour(const QString& text, QColor TrailStyle::*field, const char* flag);
    void addSize(const QString& text, double TrailStyle::*field, const char* flag);
    // Sends the setting once Maya is idle and keeps the style.
    void send(const MString& arguments);
    void removeAll();

    TrailStyle style;
    QAction* cameraSpace = nullptr;
};

} // namespace Ui
